#include "cli/SnapshotSource.h"

#include "core/SnapshotDocument.h"
#include "platform/VisibleText.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <iostream>
#include <system_error>

namespace vantel {

namespace {

struct FileCloser {
    void operator()(std::FILE* file) const { std::ignore = std::fclose(file); }
};

/// What to call a file in a message.
std::string nameFor(const std::string& file) {
    if (file == "-")
        return "standard input";
    return file.empty() ? "\"\"" : file;
}

std::string reasonFor(int number) {
    return std::generic_category().message(number);
}

SharedSnapshot ignoredDocument(const std::string& file, const std::string& why) {
    std::cerr << "vantelctl: " << visibleText(nameFor(file)) << ": " << visibleText(why)
              << " (shown as no snapshot)\n";
    return nullptr;
}

SharedSnapshot snapshotFrom(const std::string& file, std::string_view bytes) {
    auto snapshot = decodeSnapshot(bytes);
    if (!snapshot)
        return ignoredDocument(file, message(snapshot.error()));
    if (snapshot->version != WidgetSnapshot::currentVersion)
        return ignoredDocument(file, "version " + std::to_string(snapshot->version) + " is not known");
    return std::make_shared<const WidgetSnapshot>(std::move(*snapshot));
}

} // namespace

std::expected<SharedSnapshot, CommandFailure> requestedSnapshot(const Arguments& arguments,
                                                                const Surroundings& surroundings) {
    if (arguments.usesPlaceholder)
        return std::make_shared<const WidgetSnapshot>(
            WidgetSnapshot::placeholder(surroundings.clock.now(), surroundings.calendar));
    if (arguments.snapshotFile) {
        const auto bytes = readInput(*arguments.snapshotFile);
        if (!bytes)
            return std::unexpected(bytes.error());
        return snapshotFrom(*arguments.snapshotFile, *bytes);
    }
    auto snapshot = WidgetSnapshot::load();
    return snapshot ? std::make_shared<const WidgetSnapshot>(std::move(*snapshot)) : nullptr;
}

std::expected<std::string, CommandFailure> readInput(const std::string& file) {
    const bool isStandardInput = file == "-";
    const std::unique_ptr<std::FILE, FileCloser> opened(isStandardInput ? nullptr
                                                                        : std::fopen(file.c_str(), "rb"));
    std::FILE* stream = isStandardInput ? stdin : opened.get();
    if (stream == nullptr)
        return failed(nameFor(file), reasonFor(errno));
    std::string bytes;
    std::array<char, 65536> buffer{};
    while (std::feof(stream) == 0 && std::ferror(stream) == 0)
        bytes.append(buffer.data(), std::fread(buffer.data(), 1, buffer.size(), stream));
    if (std::ferror(stream) != 0)
        return failed(nameFor(file), reasonFor(errno));
    return bytes;
}

std::expected<WidgetSnapshot, CommandFailure> decodeInput(const std::string& file) {
    const auto bytes = readInput(file);
    if (!bytes)
        return std::unexpected(bytes.error());
    auto snapshot = decodeSnapshot(*bytes);
    if (!snapshot)
        return failed(nameFor(file), snapshot.error());
    return std::move(*snapshot);
}

} // namespace vantel
