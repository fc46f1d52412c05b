#include "platform/FileSystem.h"
#include "platform/LockedFile.h"
#include "tests/fakes/ReadFile.h"
#include "tests/fakes/ScratchFolder.h"

#include <cerrno>
#include <csignal>
#include <fstream>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <sys/time.h>

namespace vantel {
namespace {

using testing::readFile;
using testing::ScratchFolder;
using ::testing::UnorderedElementsAre;

/// The process's mask for the modes of new files, put back at the end.
class ScopedUmask {
public:
    explicit ScopedUmask(mode_t mask)
        : m_before(::umask(mask)) {}
    ScopedUmask(const ScopedUmask&) = delete;
    ScopedUmask& operator=(const ScopedUmask&) = delete;
    ~ScopedUmask() { ::umask(m_before); }

private:
    mode_t m_before;
};

/// Interrupts every system call that waits, again and again: an alarm whose handler does not restart calls.
class ScopedInterruptions {
public:
    ScopedInterruptions() {
        struct sigaction action{};
        action.sa_handler = [](int) {};
        ::sigaction(SIGALRM, &action, &m_before);
        const itimerval often{{0, 1000}, {0, 1000}};
        ::setitimer(ITIMER_REAL, &often, nullptr);
    }

    ScopedInterruptions(const ScopedInterruptions&) = delete;
    ScopedInterruptions& operator=(const ScopedInterruptions&) = delete;

    ~ScopedInterruptions() {
        const itimerval never{};
        ::setitimer(ITIMER_REAL, &never, nullptr);
        ::sigaction(SIGALRM, &m_before, nullptr);
    }

private:
    struct sigaction m_before{};
};

struct SystemFiles : ::testing::Test {
    ScratchFolder folder;
    FileSystem& files = systemFileSystem();
    FileURL file = folder / "file";

    static void write(const FileURL& path, const std::string& contents) { std::ofstream(path) << contents; }

    unsigned modeOf(const FileURL& path) { return files.status(path).value().mode; }

    template <typename Value>
    static int numberOf(const Result<Value>& result) {
        return result ? 0 : std::get<SystemError>(result.error()).number;
    }

    int errorOfOpening(const FileURL& path, OpenMode mode) {
        const auto descriptor = files.open(path, mode);
        return descriptor ? numberOf(files.close(*descriptor)) : numberOf(descriptor);
    }
};

TEST_F(SystemFiles, MissingFoldersAreMadePrivateToTheUser) {
    const ScopedUmask mask(0);
    ASSERT_TRUE(files.createDirectories(folder / "a" / "b" / "c"));
    for (const char* made : {"a", "a/b", "a/b/c"})
        EXPECT_EQ(modeOf(folder / made), 0700U) << made;
}

TEST_F(SystemFiles, AnExistingFolderIsFineAndKeepsItsMode) {
    std::filesystem::create_directory(folder / "a");
    std::filesystem::permissions(folder / "a", std::filesystem::perms(0755));
    EXPECT_TRUE(files.createDirectories(folder / "a"));
    EXPECT_TRUE(files.createDirectories(folder / "a" / "b"));
    EXPECT_EQ(modeOf(folder / "a"), 0755U);
}

TEST_F(SystemFiles, ALinkToAFolderIsAFolder) {
    std::filesystem::create_directory(folder / "real");
    std::filesystem::create_directory_symlink(folder / "real", folder / "link");
    EXPECT_TRUE(files.createDirectories(folder / "link"));
    EXPECT_TRUE(files.createDirectories(folder / "link" / "a"));
    EXPECT_TRUE(std::filesystem::is_directory(folder / "real" / "a"));
}

TEST_F(SystemFiles, AFolderCannotBeMadeWhereSomethingElseIs) {
    write(file, "");
    std::filesystem::create_symlink(folder / "nowhere", folder / "dangling");
    EXPECT_EQ(numberOf(files.createDirectories(file)), EEXIST);
    EXPECT_EQ(numberOf(files.createDirectories(file / "below")), ENOTDIR);
    EXPECT_EQ(numberOf(files.createDirectories(folder / "dangling")), EEXIST);
    EXPECT_EQ(numberOf(files.createDirectories("")), ENOENT);
}

TEST_F(SystemFiles, ALockFileHasItsModeLessTheUmask) {
    for (const mode_t mask : {0000, 0022, 0027, 0077}) {
        const ScopedUmask scope(mask);
        const FileURL path = folder / std::to_string(mask);
        ASSERT_EQ(errorOfOpening(path, OpenMode::lock), 0);
        EXPECT_EQ(modeOf(path), 0644U & ~mask) << mask;
    }
}

TEST_F(SystemFiles, ALockFileIsNeverTruncatedAndKeepsItsMode) {
    write(file, "kept");
    std::filesystem::permissions(file, std::filesystem::perms(0600));
    ASSERT_EQ(errorOfOpening(file, OpenMode::lock), 0);
    EXPECT_EQ(readFile(file), "kept");
    EXPECT_EQ(modeOf(file), 0600U);
}

TEST_F(SystemFiles, NoFileStaysOpenAcrossExec) {
    const auto isClosedOnExec = [&](const FileURL& path, OpenMode mode) {
        const auto descriptor = files.open(path, mode).value();
        const int flags = ::fcntl(descriptor, F_GETFD);
        EXPECT_TRUE(files.close(descriptor));
        return (flags & FD_CLOEXEC) != 0;
    };
    EXPECT_TRUE(isClosedOnExec(file, OpenMode::lock));
    EXPECT_TRUE(isClosedOnExec(file, OpenMode::read));
    EXPECT_TRUE(isClosedOnExec(folder / "new", OpenMode::writeNew));
    EXPECT_TRUE(isClosedOnExec(folder.path(), OpenMode::readDirectory));
}

TEST_F(SystemFiles, AnOpenFileIsNamedAsLongAsItsNameLeadsToIt) {
    write(file, "");
    write(folder / "other", "");
    std::filesystem::create_symlink(file, folder / "link");
    const auto descriptor = files.open(file, OpenMode::lock).value();
    EXPECT_TRUE(files.isNamed(descriptor, file).value());
    EXPECT_TRUE(files.isNamed(descriptor, folder / "link").value());
    EXPECT_FALSE(files.isNamed(descriptor, folder / "other").value());
    std::filesystem::remove(file);
    EXPECT_FALSE(files.isNamed(descriptor, file).value());
    write(file, "");
    EXPECT_FALSE(files.isNamed(descriptor, file).value());
    EXPECT_FALSE(files.isNamed(descriptor, folder / "other" / "below"));
    EXPECT_TRUE(files.close(descriptor));
}

TEST_F(SystemFiles, ANewFileNeedsAFreeName) {
    write(file, "");
    std::filesystem::create_symlink(folder / "nowhere", folder / "dangling");
    EXPECT_EQ(errorOfOpening(file, OpenMode::writeNew), EEXIST);
    EXPECT_EQ(errorOfOpening(folder / "dangling", OpenMode::writeNew), EEXIST);
    EXPECT_FALSE(std::filesystem::exists(folder / "nowhere"));
    EXPECT_EQ(errorOfOpening(folder / "new", OpenMode::writeNew), 0);
}

TEST_F(SystemFiles, OpeningAMissingFileOrTheWrongKindFails) {
    write(file, "");
    EXPECT_EQ(errorOfOpening(folder / "missing", OpenMode::read), ENOENT);
    EXPECT_EQ(errorOfOpening(folder / "missing" / "file", OpenMode::lock), ENOENT);
    EXPECT_EQ(errorOfOpening(folder.path(), OpenMode::lock), EISDIR);
    EXPECT_EQ(errorOfOpening(file, OpenMode::readDirectory), ENOTDIR);
}

TEST_F(SystemFiles, OpeningAFifoDoesNotWaitForItsOtherEnd) {
    ASSERT_EQ(::mkfifo(file.c_str(), 0600), 0);
    EXPECT_EQ(errorOfOpening(file, OpenMode::read), 0);
    EXPECT_EQ(errorOfOpening(file, OpenMode::lock), 0);
}

TEST_F(SystemFiles, StatusTellsTheKindTheModeAndTheSize) {
    write(file, "abc");
    std::filesystem::permissions(file, std::filesystem::perms(0640));
    ASSERT_EQ(::mkfifo((folder / "fifo").c_str(), 0600), 0);
    EXPECT_EQ(files.status(file).value(), (FileStatus{FileStatus::Kind::regular, 0640, 3}));
    EXPECT_EQ(files.status(folder.path()).value().kind, FileStatus::Kind::directory);
    EXPECT_EQ(files.status(folder / "fifo").value().kind, FileStatus::Kind::other);
    EXPECT_EQ(files.status("/dev/null").value().kind, FileStatus::Kind::other);
}

TEST_F(SystemFiles, StatusOfAnOpenFileIsTheFilesOwn) {
    write(file, "abc");
    const auto descriptor = files.open(file, OpenMode::read).value();
    EXPECT_EQ(files.status(descriptor).value(), files.status(file).value());
    EXPECT_TRUE(files.close(descriptor));
}

TEST_F(SystemFiles, StatusFollowsLinksAndAMissingFileIsNoEntry) {
    write(file, "abc");
    std::filesystem::create_symlink(file, folder / "link");
    std::filesystem::create_symlink(folder / "nowhere", folder / "dangling");
    EXPECT_EQ(files.status(folder / "link").value().size, 3U);
    EXPECT_EQ(numberOf(files.status(folder / "dangling")), ENOENT);
    EXPECT_EQ(numberOf(files.status(folder / "missing")), ENOENT);
}

TEST_F(SystemFiles, BytesArePutAndFoundWhereTheyWereAskedFor) {
    const auto descriptor = files.open(file, OpenMode::lock).value();
    EXPECT_EQ(files.write(descriptor, "abcdef"), 6U);
    EXPECT_TRUE(files.seek(descriptor, 2));
    std::string bytes(3, ' ');
    EXPECT_EQ(files.read(descriptor, bytes), 3U);
    EXPECT_EQ(bytes, "cde");
    EXPECT_EQ(files.readAt(descriptor, 5, bytes), 1U);
    EXPECT_EQ(files.seekToEnd(descriptor), 6U);
    EXPECT_TRUE(files.truncate(descriptor, 1));
    EXPECT_TRUE(files.sync(descriptor));
    EXPECT_TRUE(files.syncData(descriptor));
    EXPECT_TRUE(files.close(descriptor));
    EXPECT_EQ(readFile(file), "a");
}

TEST_F(SystemFiles, ChangingTheModeIgnoresTheUmask) {
    const ScopedUmask mask(0077);
    const auto descriptor = files.open(file, OpenMode::writeNew).value();
    EXPECT_TRUE(files.changeMode(descriptor, 0664));
    EXPECT_TRUE(files.close(descriptor));
    EXPECT_EQ(modeOf(file), 0664U);
}

TEST_F(SystemFiles, RenamingReplacesALinkAndNotWhatItLeadsTo) {
    write(file, "new");
    write(folder / "real", "real");
    std::filesystem::create_symlink(folder / "real", folder / "link");
    EXPECT_TRUE(files.rename(file, folder / "link"));
    EXPECT_EQ(readFile(folder / "link"), "new");
    EXPECT_EQ(readFile(folder / "real"), "real");
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(SystemFiles, RemovingTakesALinkAndNotWhatItLeadsTo) {
    write(file, "kept");
    std::filesystem::create_symlink(file, folder / "link");
    EXPECT_TRUE(files.remove(folder / "link"));
    EXPECT_EQ(readFile(file), "kept");
    EXPECT_TRUE(files.remove(file));
    EXPECT_EQ(numberOf(files.remove(file)), ENOENT);
    EXPECT_NE(numberOf(files.remove(folder.path())), 0);
}

TEST_F(SystemFiles, EveryCallOnAClosedDescriptorReportsItsErrorNumber) {
    std::string buffer(1, ' ');
    EXPECT_THAT((std::vector{numberOf(files.close(-1)), numberOf(files.lock(-1)), numberOf(files.unlock(-1)),
                             numberOf(files.status(-1)), numberOf(files.read(-1, buffer)),
                             numberOf(files.readAt(-1, 0, buffer)), numberOf(files.write(-1, "x")),
                             numberOf(files.seekToEnd(-1)), numberOf(files.seek(-1, 0)),
                             numberOf(files.truncate(-1, 0)), numberOf(files.sync(-1)),
                             numberOf(files.syncData(-1)), numberOf(files.changeMode(-1, 0600))}),
                ::testing::Each(EBADF));
}

TEST_F(SystemFiles, AFailureNamesTheCallAndThePath) {
    EXPECT_EQ(files.open(file, OpenMode::read).error(), Error(SystemError{"open", file, ENOENT}));
    EXPECT_EQ(files.rename(file, folder / "to").error(), Error(SystemError{"rename", folder / "to", ENOENT}));
    EXPECT_EQ(files.seekToEnd(-1).error(), Error(SystemError{"lseek", "descriptor -1", EBADF}));
}

TEST_F(SystemFiles, AFullDeviceIsNoSpace) {
    const auto descriptor = files.open("/dev/full", OpenMode::lock).value();
    EXPECT_EQ(numberOf(files.write(descriptor, "x")), ENOSPC);
    EXPECT_TRUE(files.close(descriptor));
}

TEST_F(SystemFiles, AnInterruptedWaitForALockIsReportedAndNotRetried) {
    const auto holder = files.open(file, OpenMode::lock).value();
    const auto waiter = files.open(file, OpenMode::lock).value();
    ASSERT_TRUE(files.lock(holder));
    {
        const ScopedInterruptions interruptions;
        EXPECT_EQ(numberOf(files.lock(waiter)), EINTR);
        const auto locked = LockedFile::acquire(file, files);
        ASSERT_FALSE(locked);
        EXPECT_EQ(locked.error(), fileWriteUnknown());
    }
    EXPECT_TRUE(files.unlock(holder));
    EXPECT_TRUE(files.lock(waiter));
    EXPECT_TRUE(files.close(holder));
    EXPECT_TRUE(files.close(waiter));
}

} // namespace
} // namespace vantel
