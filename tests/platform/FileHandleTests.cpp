#include "platform/FileHandle.h"
#include "tests/fakes/MemoryFileSystem.h"

#include <cerrno>

#include <gmock/gmock.h>

namespace vantel {
namespace {

using ::testing::ElementsAre;
using testing::FileOperation;
using testing::Lasting;

const FileURL file = "/data/file";

struct FileHandles : ::testing::Test {
    testing::MemoryFileSystem files;

    FileHandle open(const std::string& contents) {
        files.disk().plant(file, contents);
        return {files, files.open(file, OpenMode::lock).value()};
    }

    std::string contents() const { return files.disk().contents(file).value(); }
};

TEST_F(FileHandles, ReadingGivesEveryByteWhateverTheLength) {
    for (const std::size_t length : {0, 1, 4095, 4096, 4097, 8192, 100'000}) {
        const std::string bytes(length, 'x');
        EXPECT_EQ(open(bytes).readToEnd(), bytes) << length;
    }
}

TEST_F(FileHandles, ReadingStartsAtThePosition) {
    FileHandle handle = open("abcdef");
    ASSERT_TRUE(handle.seek(4));
    EXPECT_EQ(handle.readToEnd(), "ef");
    EXPECT_EQ(handle.readToEnd(), "");
}

TEST_F(FileHandles, ReadingGoesOnAfterShortReads) {
    FileHandle handle = open("abcdef");
    files.faults().shorten(FileOperation::read, 1, 1, Lasting::fromThenOn);
    EXPECT_EQ(handle.readToEnd(), "abcdef");
}

TEST_F(FileHandles, ReadingGoesOnAfterAnInterruption) {
    FileHandle handle = open("abcdef");
    files.faults().shorten(FileOperation::read, 1, 3, Lasting::once);
    files.faults().fail(FileOperation::read, 2, EINTR, Lasting::once);
    EXPECT_EQ(handle.readToEnd(), "abcdef");
}

TEST_F(FileHandles, AFailedReadPassesTheSystemsErrorOn) {
    FileHandle handle = open("abcdef");
    files.faults().fail(FileOperation::read, 2, EIO, Lasting::once);
    EXPECT_EQ(handle.readToEnd().error(), Error(SystemError{"read", file, EIO}));
}

TEST_F(FileHandles, ReadingWhatIsNotARegularFileFailsWithoutTrying) {
    files.disk().makeFolders("/data");
    FileHandle handle(files, files.open("/data", OpenMode::readDirectory).value());
    EXPECT_EQ(std::get<SystemError>(handle.readToEnd().error()).number, EINVAL);
    EXPECT_THAT(files.faults().calls(), ElementsAre(FileOperation::open, FileOperation::status));
}

TEST_F(FileHandles, WritingGoesOnAfterShortWrites) {
    FileHandle handle = open("");
    files.faults().shorten(FileOperation::write, 1, 1, Lasting::fromThenOn);
    EXPECT_TRUE(handle.write("abcdef"));
    EXPECT_EQ(contents(), "abcdef");
}

TEST_F(FileHandles, WritingGoesOnAfterAnInterruption) {
    FileHandle handle = open("");
    files.faults().shorten(FileOperation::write, 1, 3, Lasting::once);
    files.faults().fail(FileOperation::write, 2, EINTR, Lasting::once);
    EXPECT_TRUE(handle.write("abcdef"));
    EXPECT_EQ(contents(), "abcdef");
}

TEST_F(FileHandles, AFailedWritePassesTheSystemsErrorOnAndMayLeaveAPart) {
    FileHandle handle = open("");
    files.faults().shorten(FileOperation::write, 1, 3, Lasting::once);
    files.faults().fail(FileOperation::write, 2, ENOSPC, Lasting::once);
    EXPECT_EQ(handle.write("abcdef").error(), Error(SystemError{"write", file, ENOSPC}));
    EXPECT_EQ(contents(), "abc");
}

TEST_F(FileHandles, WritingNothingCallsNothing) {
    FileHandle handle = open("");
    files.faults().fail(1, EIO, Lasting::fromThenOn);
    EXPECT_TRUE(handle.write(""));
}

TEST_F(FileHandles, AByteIsReadWithoutMovingThePosition) {
    FileHandle handle = open("abc");
    ASSERT_TRUE(handle.seek(1));
    EXPECT_EQ(handle.byteAt(2), 'c');
    EXPECT_EQ(handle.byteAt(0), 'a');
    EXPECT_EQ(handle.readToEnd(), "bc");
}

TEST_F(FileHandles, TheBytePastTheEndIsZero) {
    EXPECT_EQ(open("abc").byteAt(3), '\0');
}

TEST_F(FileHandles, AFailedReadOfAByteIsAFailure) {
    FileHandle handle = open("abc");
    files.faults().fail(FileOperation::readAt, 1, EIO, Lasting::once);
    EXPECT_EQ(handle.byteAt(0).error(), Error(SystemError{"readAt", file, EIO}));
}

TEST_F(FileHandles, TheEndIsTheLengthAndWhereWritingGoesOn) {
    FileHandle handle = open("abc");
    EXPECT_EQ(handle.seekToEnd(), 3U);
    ASSERT_TRUE(handle.write("d"));
    EXPECT_EQ(contents(), "abcd");
}

TEST_F(FileHandles, TruncatingLeavesThePosition) {
    FileHandle handle = open("abc");
    ASSERT_TRUE(handle.seek(2));
    ASSERT_TRUE(handle.truncate(0));
    EXPECT_EQ(contents(), "");
    ASSERT_TRUE(handle.write("x"));
    EXPECT_EQ(contents(), std::string("\0\0x", 3));
}

TEST_F(FileHandles, TheTwoSynchronizationsAreTheSystemsTwo) {
    FileHandle handle = open("");
    ASSERT_TRUE(handle.synchronizeData());
    ASSERT_TRUE(handle.synchronize());
    EXPECT_THAT(files.faults().calls(),
                ElementsAre(FileOperation::open, FileOperation::syncData, FileOperation::sync));
}

TEST_F(FileHandles, TheModeIsTheFilesFromThenOn) {
    FileHandle handle = open("");
    ASSERT_TRUE(handle.changeMode(0600));
    EXPECT_EQ(files.disk().mode(file), 0600U);
}

TEST_F(FileHandles, AHandleNeverClosesItsDescriptor) {
    EXPECT_TRUE(open("").synchronize());
    EXPECT_TRUE(files.isAnyDescriptorOpen());
}

} // namespace
} // namespace vantel
