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

FileURL temporaryBeside(const FileURL& file) {
    return file.parent_path() / ("." + file.filename().string() + "." + text(randomUuid()) + ".tmp");
}

Result<void> keepMode(FileHandle& handle, const FileURL& replaced, FileSystem& files) {
    const auto old = statusIfPresent(replaced, files);
    if (!old)
        return std::unexpected(old.error());
    return *old ? handle.changeMode((*old)->mode) : Result<void>();
}

Result<void> fill(FileSystem::Descriptor descriptor, const FileURL& replaced, std::string_view bytes,
                  FileSystem& files) {
    FileHandle handle(files, descriptor);
    if (auto kept = keepMode(handle, replaced, files); !kept)
        return kept;
    if (auto written = handle.write(bytes); !written)
        return written;
    return handle.synchronize();
}

Result<void> writeTemporary(const FileURL& temporary, const FileURL& replaced, std::string_view bytes,
                            FileSystem& files) {
    const auto descriptor = files.open(temporary, OpenMode::writeNew);
    if (!descriptor)
        return std::unexpected(descriptor.error());
    const auto filled = fill(*descriptor, replaced, bytes, files);
    const auto closed = files.close(*descriptor);
    auto done = filled ? closed : filled;
    if (!done)
        std::ignore = files.remove(temporary);
    return done;
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
    const FileURL temporary = temporaryBeside(file);
    if (auto written = writeTemporary(temporary, file, bytes, files); !written)
        return written;
    if (auto renamed = files.rename(temporary, file); !renamed) {
        std::ignore = files.remove(temporary);
        return renamed;
    }
    syncDirectory(file.parent_path(), files);
    return {};
}

void syncDirectory(const FileURL& directory, FileSystem& files) {
    const auto descriptor = files.open(directory, OpenMode::readDirectory);
    if (!descriptor)
        return;
    std::ignore = files.sync(*descriptor);
    std::ignore = files.close(*descriptor);
}

} // namespace vantel
