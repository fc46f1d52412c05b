#include "platform/InformationDictionary.h"

#include "platform/DataFile.h"
#include "platform/JsonDocument.h"

#include <system_error>

namespace vantel {

FileURL informationDictionaryOf(const FileURL& executable) {
    return executable.parent_path().parent_path() / "share" / executable.filename() / "Info.json";
}

std::optional<std::string> informationText(const FileURL& dictionary, std::string_view key) {
    const auto bytes = readFile(dictionary, systemFileSystem());
    if (!bytes)
        return std::nullopt;
    JsonDocument document;
    auto root = document.parseObject(*bytes);
    if (!root)
        return std::nullopt;
    auto value = root->optionalText(key);
    if (root->failure())
        return std::nullopt;
    return value;
}

FileURL mainExecutable() {
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error);
}

} // namespace vantel
