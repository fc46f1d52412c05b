#include "platform/DataFile.h"

#include "platform/FileHandle.h"
#include "platform/Uuid.h"

#include <cerrno>

namespace vantel {

namespace {

bool saysMissing(const Error& error) {
    const auto* system = std::get_if<SystemError>(&error);
    return system != nullptr &&
           (system->number == ENOENT || system->number == ENOTDIR || system->number == ELOOP);
}

constexpr std::string_view temporaryEnding = ".tmp";

std::string temporaryBeginning(const FileURL& file) {
    return "." + file.filename().string() + ".";
}

FileURL temporaryBeside(const FileURL& file) {
    return file.parent_path() /
           (temporaryBeginning(file) + text(randomUuid()) + std::string(temporaryEnding));
}

Result<void> takeMode(FileHandle& handle, const FileURL& like, FileSystem& files) {
    const auto old = statusIfPresent(like, files);
    if (!old)
        return std::unexpected(old.error());
    return *old ? handle.changeMode((*old)->mode) : Result<void>();
}

Result<void> fill(FileSystem::Descriptor descriptor, const FileURL& like, std::string_view bytes,
                  FileSystem& files) {
    FileHandle handle(files, descriptor);
    if (auto taken = takeMode(handle, like, files); !taken)
        return taken;
    if (auto written = handle.write(bytes); !written)
        return written;
    return handle.synchronize();
}

Result<void> writeTemporary(const FileURL& temporary, const FileURL& like, std::string_view bytes,
                            FileSystem& files) {
    const auto descriptor = files.open(temporary, OpenMode::writeNew);
    if (!descriptor)
        return std::unexpected(descriptor.error());
    const auto filled = fill(*descriptor, like, bytes, files);
    const auto closed = files.close(*descriptor);
    auto done = filled ? closed : filled;
    if (!done)
        std::ignore = files.remove(temporary);
    return done;
}

Result<void> replaceFile(const FileURL& file, std::string_view bytes, const FileURL& like,
                         FileSystem& files) {
    const FileURL temporary = temporaryBeside(file);
    if (auto written = writeTemporary(temporary, like, bytes, files); !written)
        return written;
    auto renamed = files.rename(temporary, file);
    if (!renamed)
        std::ignore = files.remove(temporary);
    return renamed;
}

bool cannotSyncFolders(const Error& error) {
    const auto* system = std::get_if<SystemError>(&error);
    return system != nullptr && system->number == EINVAL;
}

} // namespace

Result<std::string> readFile(const FileURL& file, FileSystem& files) {
    const auto descriptor = files.open(file, OpenMode::read);
    if (!descriptor)
        return std::unexpected(descriptor.error());
    auto bytes = FileHandle(files, *descriptor).readToEnd();
    std::ignore = files.close(*descriptor);
    return bytes;
}

Result<std::optional<FileStatus>> statusIfPresent(const FileURL& file, FileSystem& files) {
    const auto status = files.status(file);
    if (status)
        return *status;
    if (saysMissing(status.error()))
        return std::nullopt;
    return std::unexpected(status.error());
}

Result<void> writeFileAtomically(const FileURL& file, std::string_view bytes, FileSystem& files) {
    if (auto replaced = replaceFile(file, bytes, file, files); !replaced)
        return replaced;
    std::ignore = syncDirectory(file.parent_path(), files);
    return {};
}

Result<void> writeFileDurably(const FileURL& file, std::string_view bytes, const FileURL& like,
                              FileSystem& files) {
    if (auto replaced = replaceFile(file, bytes, like, files); !replaced)
        return replaced;
    return syncDirectory(file.parent_path(), files);
}

void sweepTemporaries(const FileURL& file, FileSystem& files) {
    const auto names = files.names(file.parent_path());
    if (!names)
        return;
    for (const std::string& name : *names)
        if (name.starts_with(temporaryBeginning(file)) && name.ends_with(temporaryEnding))
            std::ignore = files.remove(file.parent_path() / name);
}

Result<void> syncDirectory(const FileURL& directory, FileSystem& files) {
    const auto descriptor = files.open(directory, OpenMode::readDirectory);
    if (!descriptor)
        return std::unexpected(descriptor.error());
    const auto synced = files.sync(*descriptor);
    std::ignore = files.close(*descriptor);
    return synced || cannotSyncFolders(synced.error()) ? Result<void>() : synced;
}

} // namespace vantel
