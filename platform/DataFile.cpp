#include "platform/DataFile.h"

#include "platform/FileHandle.h"
#include "platform/Uuid.h"

namespace vantel {

namespace {

FileURL temporaryBeside(const FileURL& file) {
    return file.parent_path() / ("." + file.filename().string() + "." + text(randomUuid()) + ".tmp");
}

Result<void> fill(FileSystem::Descriptor descriptor, const FileURL& replaced, std::string_view bytes,
                  FileSystem& files) {
    FileHandle handle(files, descriptor);
    if (auto written = handle.write(bytes); !written)
        return written;
    if (const auto old = files.status(replaced))
        if (auto changed = handle.changeMode(old->mode); !changed)
            return changed;
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
