#include "platform/FileSystem.h"

#include <array>
#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vantel {

namespace {

constexpr mode_t privateDirectory = 0700;
constexpr mode_t sharedFile = 0644;

Error failure(const char* operation, const FileURL& path) {
    return SystemError{operation, path.string(), errno};
}

Error failure(const char* operation, int descriptor) {
    return SystemError{operation, "descriptor " + std::to_string(descriptor), errno};
}

Result<void> checked(int result, const char* operation, int descriptor) {
    if (result != 0)
        return std::unexpected(failure(operation, descriptor));
    return {};
}

Result<void> checked(int result, const char* operation, const FileURL& path) {
    if (result != 0)
        return std::unexpected(failure(operation, path));
    return {};
}

Result<std::size_t> counted(ssize_t count, const char* operation, int descriptor) {
    if (count < 0)
        return std::unexpected(failure(operation, descriptor));
    return static_cast<std::size_t>(count);
}

int flagsFor(OpenMode mode) {
    switch (mode) {
    case OpenMode::lock:
        return O_RDWR | O_CREAT;
    case OpenMode::read:
        return O_RDONLY | O_NONBLOCK | O_CLOEXEC;
    case OpenMode::writeNew:
        return O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    case OpenMode::readDirectory:
        return O_RDONLY | O_DIRECTORY | O_CLOEXEC;
    }
    return O_RDONLY;
}

FileStatus::Kind kindOf(mode_t mode) {
    if (S_ISREG(mode))
        return FileStatus::Kind::regular;
    return S_ISDIR(mode) ? FileStatus::Kind::directory : FileStatus::Kind::other;
}

FileStatus statusFrom(const struct stat& status) {
    return {kindOf(status.st_mode), status.st_mode & 07777U, static_cast<std::uint64_t>(status.st_size)};
}

void syncParent(const FileURL& directory) {
    const int parent = ::open(directory.parent_path().c_str(), flagsFor(OpenMode::readDirectory));
    if (parent < 0)
        return;
    ::fsync(parent);
    ::close(parent);
}

bool makesDirectory(const FileURL& directory) {
    if (::mkdir(directory.c_str(), privateDirectory) != 0)
        return false;
    syncParent(directory);
    return true;
}

bool isDirectory(const FileURL& path) {
    struct stat status{};
    return ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

class SystemFileSystem final : public FileSystem {
public:
    Result<void> createDirectories(const FileURL& directory) override {
        if (isDirectory(directory) || makesDirectory(directory))
            return {};
        if (errno == ENOENT && directory.has_relative_path()) {
            if (auto parent = createDirectories(directory.parent_path()); !parent)
                return parent;
            if (makesDirectory(directory))
                return {};
        }
        const int number = errno;
        if (isDirectory(directory))
            return {};
        return std::unexpected(SystemError{"mkdir", directory.string(), number});
    }

    Result<std::vector<std::string>> names(const FileURL& directory) override {
        std::vector<std::string> result;
        std::error_code error;
        for (std::filesystem::directory_iterator entry(directory, error), end; !error && entry != end;
             entry.increment(error))
            result.push_back(entry->path().filename());
        if (error)
            return std::unexpected(SystemError{"readdir", directory.string(), error.value()});
        return result;
    }

    Result<Descriptor> open(const FileURL& file, OpenMode mode) override {
        const int descriptor = ::open(file.c_str(), flagsFor(mode), sharedFile);
        if (descriptor < 0)
            return std::unexpected(failure("open", file));
        if (mode == OpenMode::lock) // No child may keep the lock of a process that is killed.
            ::fcntl(descriptor, F_SETFD, FD_CLOEXEC);
        return descriptor;
    }

    Result<void> close(Descriptor descriptor) override {
        return checked(::close(descriptor), "close", descriptor);
    }

    Result<void> lock(Descriptor descriptor) override {
        return checked(::flock(descriptor, LOCK_EX), "flock", descriptor);
    }

    Result<void> unlock(Descriptor descriptor) override {
        return checked(::flock(descriptor, LOCK_UN), "flock", descriptor);
    }

    Result<FileStatus> status(const FileURL& file) override {
        struct stat status{};
        if (::stat(file.c_str(), &status) != 0)
            return std::unexpected(failure("stat", file));
        return statusFrom(status);
    }

    Result<FileStatus> status(Descriptor descriptor) override {
        struct stat status{};
        if (::fstat(descriptor, &status) != 0)
            return std::unexpected(failure("fstat", descriptor));
        return statusFrom(status);
    }

    Result<bool> isNamed(Descriptor descriptor, const FileURL& file) override {
        struct stat opened{};
        struct stat named{};
        if (::fstat(descriptor, &opened) != 0)
            return std::unexpected(failure("fstat", descriptor));
        if (::stat(file.c_str(), &named) == 0)
            return opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
        if (errno == ENOENT)
            return false;
        return std::unexpected(failure("stat", file));
    }

    Result<std::size_t> read(Descriptor descriptor, std::span<char> buffer) override {
        return counted(::read(descriptor, buffer.data(), buffer.size()), "read", descriptor);
    }

    Result<std::size_t> readAt(Descriptor descriptor, std::uint64_t offset, std::span<char> buffer) override {
        const auto at = static_cast<off_t>(offset);
        return counted(::pread(descriptor, buffer.data(), buffer.size(), at), "pread", descriptor);
    }

    Result<std::size_t> write(Descriptor descriptor, std::string_view bytes) override {
        return counted(::write(descriptor, bytes.data(), bytes.size()), "write", descriptor);
    }

    Result<std::uint64_t> seekToEnd(Descriptor descriptor) override {
        const off_t end = ::lseek(descriptor, 0, SEEK_END);
        if (end < 0)
            return std::unexpected(failure("lseek", descriptor));
        return static_cast<std::uint64_t>(end);
    }

    Result<void> seek(Descriptor descriptor, std::uint64_t offset) override {
        const off_t at = ::lseek(descriptor, static_cast<off_t>(offset), SEEK_SET);
        return checked(at < 0 ? -1 : 0, "lseek", descriptor);
    }

    Result<void> truncate(Descriptor descriptor, std::uint64_t length) override {
        return checked(::ftruncate(descriptor, static_cast<off_t>(length)), "ftruncate", descriptor);
    }

    Result<void> sync(Descriptor descriptor) override {
        return checked(::fsync(descriptor), "fsync", descriptor);
    }

    Result<void> syncData(Descriptor descriptor) override {
        return checked(::fdatasync(descriptor), "fdatasync", descriptor);
    }

    Result<void> changeMode(Descriptor descriptor, unsigned mode) override {
        return checked(::fchmod(descriptor, mode), "fchmod", descriptor);
    }

    Result<void> rename(const FileURL& from, const FileURL& to) override {
        return checked(::rename(from.c_str(), to.c_str()), "rename", to);
    }

    Result<void> remove(const FileURL& file) override {
        return checked(::unlink(file.c_str()), "unlink", file);
    }

    Result<FileURL> linkTarget(const FileURL& link) override {
        std::error_code error;
        FileURL target = std::filesystem::read_symlink(link, error);
        if (error)
            return std::unexpected(SystemError{"readlink", link.string(), error.value()});
        return target;
    }
};

} // namespace

FileSystem& systemFileSystem() {
    static SystemFileSystem files;
    return files;
}

} // namespace vantel
