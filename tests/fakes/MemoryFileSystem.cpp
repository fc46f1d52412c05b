#include "tests/fakes/MemoryFileSystem.h"

#include <algorithm>
#include <cerrno>

#include <gtest/gtest.h>

namespace vantel::testing {

namespace {

constexpr unsigned privateDirectory = 0700;
constexpr unsigned sharedFile = 0644;

std::unexpected<Error> refusal(FileOperation operation, const FileURL& file, int number) {
    return std::unexpected<Error>(SystemError{name(operation), file.string(), number});
}

/// The outcome of a call that gives nothing but its success.
template <typename Value>
Result<void> outcome(const Result<Value>& result) {
    if (!result)
        return std::unexpected(result.error());
    return {};
}

} // namespace

bool MemoryFileSystem::isAnyLockHeld() const {
    return std::ranges::any_of(m_open, [](const auto& entry) { return entry.second.isLocked; });
}

Result<std::size_t> MemoryFileSystem::enter(FileOperation operation, const FileURL& file) {
    const auto [number, length] = m_faults.enter(operation);
    if (number != 0)
        return refusal(operation, file, number);
    return length;
}

Result<MemoryFileSystem::Use> MemoryFileSystem::use(FileOperation operation, Descriptor descriptor) {
    const auto found = m_open.find(descriptor);
    if (found == m_open.end()) {
        ADD_FAILURE() << name(operation) << " of a descriptor that is not open";
        return refusal(operation, {}, EBADF);
    }
    const auto length = enter(operation, found->second.path);
    if (!length)
        return std::unexpected(length.error());
    return Use{found->second, *length};
}

Result<MemoryFileSystem::FileUse> MemoryFileSystem::useFile(FileOperation operation, Descriptor descriptor) {
    const auto used = use(operation, descriptor);
    if (!used)
        return std::unexpected(used.error());
    if (!used->open.number)
        return refusal(operation, used->open.path, EISDIR);
    return FileUse{used->open, m_disk.file(*used->open.number), used->length};
}

Result<void> MemoryFileSystem::createDirectories(const FileURL& directory) {
    if (const auto entered = enter(FileOperation::createDirectories, directory); !entered)
        return outcome(entered);
    for (FileURL path = directory; path.has_relative_path(); path = path.parent_path())
        if (m_disk.find(path))
            return refusal(FileOperation::createDirectories, directory, ENOTDIR);
    m_disk.makeFolders(directory);
    return {};
}

Result<std::optional<MemoryDisk::FileNumber>> MemoryFileSystem::resolve(const FileURL& file, OpenMode mode) {
    const bool isFolder = m_disk.hasFolder(file);
    const auto found = m_disk.find(file);
    if (mode == OpenMode::writeNew && (found || isFolder))
        return refusal(FileOperation::open, file, EEXIST);
    if (mode == OpenMode::lock && isFolder)
        return refusal(FileOperation::open, file, EISDIR);
    if (mode == OpenMode::readDirectory && found)
        return refusal(FileOperation::open, file, ENOTDIR);
    if (found || isFolder)
        return found;
    const bool makes = mode == OpenMode::lock || mode == OpenMode::writeNew;
    if (!makes || !m_disk.hasFolder(file.parent_path()))
        return refusal(FileOperation::open, file, ENOENT);
    return m_disk.create(file, sharedFile);
}

Result<std::vector<std::string>> MemoryFileSystem::names(const FileURL& directory) {
    if (const auto entered = enter(FileOperation::names, directory); !entered)
        return std::unexpected(entered.error());
    if (!m_disk.hasFolder(directory))
        return refusal(FileOperation::names, directory, ENOENT);
    return m_disk.names(directory);
}

Result<FileSystem::Descriptor> MemoryFileSystem::open(const FileURL& file, OpenMode mode) {
    if (const auto entered = enter(FileOperation::open, file); !entered)
        return std::unexpected(entered.error());
    const auto number = resolve(file, mode);
    if (!number)
        return std::unexpected(number.error());
    m_open.emplace(++m_lastDescriptor, OpenFile{file, *number, mode});
    return m_lastDescriptor;
}

Result<void> MemoryFileSystem::close(Descriptor descriptor) {
    const auto used = use(FileOperation::close, descriptor);
    m_open.erase(descriptor);
    return outcome(used);
}

Result<void> MemoryFileSystem::lock(Descriptor descriptor) {
    const auto used = use(FileOperation::lock, descriptor);
    if (!used)
        return outcome(used);
    for (const auto& [other, open] : m_open) {
        if (other == descriptor || open.number != used->open.number || !open.isLocked)
            continue;
        ADD_FAILURE() << "would wait for ever for a lock that this process holds: " << open.path;
        return refusal(FileOperation::lock, open.path, EDEADLK);
    }
    used->open.isLocked = true;
    return {};
}

Result<void> MemoryFileSystem::unlock(Descriptor descriptor) {
    const auto used = use(FileOperation::unlock, descriptor);
    if (used)
        used->open.isLocked = false;
    return outcome(used);
}

Result<FileStatus> MemoryFileSystem::status(const FileURL& file) {
    if (const auto entered = enter(FileOperation::status, file); !entered)
        return std::unexpected(entered.error());
    if (m_disk.hasFolder(file))
        return FileStatus{FileStatus::Kind::directory, privateDirectory, 0};
    const auto found = m_disk.find(file);
    if (!found)
        return refusal(FileOperation::status, file, ENOENT);
    const auto& [mode, bytes] = m_disk.file(*found);
    return FileStatus{FileStatus::Kind::regular, mode, bytes.current.size()};
}

Result<FileStatus> MemoryFileSystem::status(Descriptor descriptor) {
    const auto used = use(FileOperation::status, descriptor);
    if (!used)
        return std::unexpected(used.error());
    if (!used->open.number)
        return FileStatus{FileStatus::Kind::directory, privateDirectory, 0};
    const auto& [mode, bytes] = m_disk.file(*used->open.number);
    return FileStatus{FileStatus::Kind::regular, mode, bytes.current.size()};
}

Result<bool> MemoryFileSystem::isNamed(Descriptor descriptor, const FileURL& file) {
    const auto used = use(FileOperation::isNamed, descriptor);
    if (!used)
        return std::unexpected(used.error());
    return used->open.number == m_disk.find(file);
}

Result<std::size_t> MemoryFileSystem::read(Descriptor descriptor, std::span<char> buffer) {
    const auto used = useFile(FileOperation::read, descriptor);
    if (!used)
        return std::unexpected(used.error());
    const std::string& bytes = used->file.bytes.current;
    const std::size_t start = std::min<std::size_t>(used->open.position, bytes.size());
    const std::size_t count = bytes.copy(buffer.data(), std::min(buffer.size(), used->length), start);
    used->open.position += count;
    return count;
}

Result<std::size_t> MemoryFileSystem::readAt(Descriptor descriptor, std::uint64_t offset,
                                             std::span<char> buffer) {
    const auto used = useFile(FileOperation::readAt, descriptor);
    if (!used)
        return std::unexpected(used.error());
    const std::string& bytes = used->file.bytes.current;
    const std::size_t start = std::min<std::size_t>(offset, bytes.size());
    return bytes.copy(buffer.data(), std::min(buffer.size(), used->length), start);
}

Result<std::size_t> MemoryFileSystem::write(Descriptor descriptor, std::string_view bytes) {
    const auto used = useFile(FileOperation::write, descriptor);
    if (!used)
        return std::unexpected(used.error());
    if (used->open.mode == OpenMode::read)
        return refusal(FileOperation::write, used->open.path, EBADF);
    const std::string_view taken = bytes.substr(0, used->length);
    std::string next = used->file.bytes.current;
    next.resize(std::max<std::size_t>(next.size(), used->open.position + taken.size()));
    next.replace(used->open.position, taken.size(), taken);
    used->file.bytes.change(std::move(next));
    used->open.position += taken.size();
    return taken.size();
}

Result<std::uint64_t> MemoryFileSystem::seekToEnd(Descriptor descriptor) {
    const auto used = useFile(FileOperation::seekToEnd, descriptor);
    if (!used)
        return std::unexpected(used.error());
    used->open.position = used->file.bytes.current.size();
    return used->open.position;
}

Result<void> MemoryFileSystem::seek(Descriptor descriptor, std::uint64_t offset) {
    const auto used = useFile(FileOperation::seek, descriptor);
    if (used)
        used->open.position = offset;
    return outcome(used);
}

Result<void> MemoryFileSystem::truncate(Descriptor descriptor, std::uint64_t length) {
    const auto used = useFile(FileOperation::truncate, descriptor);
    if (!used)
        return outcome(used);
    std::string next = used->file.bytes.current;
    next.resize(length);
    used->file.bytes.change(std::move(next));
    return {};
}

Result<void> MemoryFileSystem::sync(Descriptor descriptor) {
    const auto used = use(FileOperation::sync, descriptor);
    if (used && used->open.number)
        m_disk.file(*used->open.number).bytes.sync();
    else if (used)
        m_disk.syncFolder(used->open.path);
    return outcome(used);
}

Result<void> MemoryFileSystem::syncData(Descriptor descriptor) {
    const auto used = useFile(FileOperation::syncData, descriptor);
    if (used)
        used->file.bytes.sync();
    return outcome(used);
}

Result<void> MemoryFileSystem::changeMode(Descriptor descriptor, unsigned mode) {
    const auto used = useFile(FileOperation::changeMode, descriptor);
    if (used)
        used->file.mode = mode;
    return outcome(used);
}

Result<void> MemoryFileSystem::rename(const FileURL& from, const FileURL& to) {
    if (const auto entered = enter(FileOperation::rename, to); !entered)
        return outcome(entered);
    if (!m_disk.find(from))
        return refusal(FileOperation::rename, from, ENOENT);
    if (m_disk.hasFolder(to))
        return refusal(FileOperation::rename, to, EISDIR);
    if (from.parent_path() != to.parent_path())
        return refusal(FileOperation::rename, to, EXDEV);
    m_disk.rename(from, to);
    return {};
}

Result<void> MemoryFileSystem::remove(const FileURL& file) {
    if (const auto entered = enter(FileOperation::remove, file); !entered)
        return outcome(entered);
    if (!m_disk.find(file))
        return refusal(FileOperation::remove, file, m_disk.hasFolder(file) ? EISDIR : ENOENT);
    m_disk.remove(file);
    return {};
}

Result<FileURL> MemoryFileSystem::linkTarget(const FileURL& link) {
    if (const auto entered = enter(FileOperation::linkTarget, link); !entered)
        return std::unexpected(entered.error());
    return refusal(FileOperation::linkTarget, link,
                   m_disk.find(link) || m_disk.hasFolder(link) ? EINVAL : ENOENT);
}

} // namespace vantel::testing
