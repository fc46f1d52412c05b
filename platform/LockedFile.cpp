#include "platform/LockedFile.h"

#include <utility>

namespace vantel {

namespace {

constexpr FileSystem::Descriptor none = -1;
constexpr int mostAttempts = 100;

} // namespace

Result<LockedFile> LockedFile::acquire(const FileURL& file, FileSystem& files) {
    for (int attempt = 0; attempt < mostAttempts; ++attempt) {
        if (auto made = files.createDirectories(file.parent_path()); !made)
            return std::unexpected(made.error());
        const auto descriptor = files.open(file, OpenMode::lock);
        if (!descriptor)
            return std::unexpected(fileWriteUnknown());
        if (!files.lock(*descriptor)) {
            std::ignore = files.close(*descriptor);
            return std::unexpected(fileWriteUnknown());
        }
        LockedFile locked(files, *descriptor);
        const auto isNamed = files.isNamed(*descriptor, file);
        if (!isNamed)
            return std::unexpected(fileWriteUnknown());
        if (*isNamed)
            return locked;
    }
    return std::unexpected(fileWriteUnknown());
}

LockedFile::LockedFile(LockedFile&& other) noexcept
    : m_files(other.m_files)
    , m_descriptor(std::exchange(other.m_descriptor, none)) {}

LockedFile::~LockedFile() {
    if (m_descriptor == none)
        return;
    std::ignore = m_files->unlock(m_descriptor);
    std::ignore = m_files->close(m_descriptor);
}

} // namespace vantel
