#include "host/desk/PlacementSaver.h"
#include "tests/fakes/MemoryFileSystem.h"
#include "tests/host/schedule/Gate.h"
#include "tests/host/schedule/NoThreads.h"
#include "tests/host/schedule/WindowThread.h"

#include <cerrno>
#include <thread>

#include <gmock/gmock.h>

namespace vantel::testing {

namespace {

using namespace std::chrono_literals;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr auto patience = 10s;
const FileURL folder = "/state/vantel-widgets";
const FileURL file = folder / "placements.json";

/// A disk that takes its time: each file that is begun waits at a gate.
class SlowFileSystem final : public FileSystem {
public:
    explicit SlowFileSystem(FileSystem& files)
        : m_files(files) {}

    Gate gate;
    std::atomic<int> begun = 0; ///< how many files were begun
    std::thread::id writer;

    Result<void> createDirectories(const FileURL& directory) override {
        return m_files.createDirectories(directory);
    }
    Result<std::vector<std::string>> names(const FileURL& directory) override {
        return m_files.names(directory);
    }
    Result<Descriptor> open(const FileURL& path, OpenMode mode) override {
        if (mode == OpenMode::writeNew) {
            writer = std::this_thread::get_id();
            ++begun;
            gate.wait();
        }
        return m_files.open(path, mode);
    }
    Result<void> close(Descriptor one) override { return m_files.close(one); }
    Result<void> lock(Descriptor one) override { return m_files.lock(one); }
    Result<void> unlock(Descriptor one) override { return m_files.unlock(one); }
    Result<FileStatus> status(const FileURL& path) override { return m_files.status(path); }
    Result<FileStatus> status(Descriptor one) override { return m_files.status(one); }
    Result<bool> isNamed(Descriptor one, const FileURL& path) override { return m_files.isNamed(one, path); }
    Result<std::size_t> read(Descriptor one, std::span<char> buffer) override {
        return m_files.read(one, buffer);
    }
    Result<std::size_t> readAt(Descriptor one, std::uint64_t offset, std::span<char> buffer) override {
        return m_files.readAt(one, offset, buffer);
    }
    Result<std::size_t> write(Descriptor one, std::string_view bytes) override {
        return m_files.write(one, bytes);
    }
    Result<std::uint64_t> seekToEnd(Descriptor one) override { return m_files.seekToEnd(one); }
    Result<void> seek(Descriptor one, std::uint64_t offset) override { return m_files.seek(one, offset); }
    Result<void> truncate(Descriptor one, std::uint64_t length) override {
        return m_files.truncate(one, length);
    }
    Result<void> sync(Descriptor one) override { return m_files.sync(one); }
    Result<void> syncData(Descriptor one) override { return m_files.syncData(one); }
    Result<void> changeMode(Descriptor one, unsigned mode) override { return m_files.changeMode(one, mode); }
    Result<void> rename(const FileURL& from, const FileURL& to) override { return m_files.rename(from, to); }
    Result<void> remove(const FileURL& path) override { return m_files.remove(path); }
    Result<FileURL> linkTarget(const FileURL& link) override { return m_files.linkTarget(link); }

private:
    FileSystem& m_files;
};

struct PlacementSaverTest : ::testing::Test {
    MemoryFileSystem disk;
    SlowFileSystem files{disk};
    std::vector<std::string> reports;
    PlacementSaver saver{folder, files, [this](const std::string& text) { reports.push_back(text); }};

    static Placements widget(const std::string& kind) { return {Placement{.kind = kind}}; }

    Placements onDisk() const {
        return parsePlacements(disk.disk().contents(file).value()).value_or(Placements());
    }
};

TEST_F(PlacementSaverTest, ASaveReturnsAtOnceAndIsWrittenOnAnotherThread) {
    saver.save(widget("A"));
    ASSERT_TRUE(waitUntil([this] { return files.begun == 1; }));
    files.gate.open();
    ASSERT_TRUE(saver.drain(patience));
    EXPECT_EQ(onDisk(), widget("A"));
    EXPECT_NE(files.writer, std::this_thread::get_id());
    EXPECT_THAT(reports, IsEmpty());
}

TEST_F(PlacementSaverTest, OfThoseThatComeDuringAWriteTheLastIsWritten) {
    saver.save(widget("A"));
    ASSERT_TRUE(waitUntil([this] { return files.begun == 1; }));
    for (const char* kind : {"B", "C", "D"})
        saver.save(widget(kind));
    files.gate.open();
    ASSERT_TRUE(saver.drain(patience));
    EXPECT_EQ(onDisk(), widget("D"));
    EXPECT_EQ(files.begun, 2);
}

TEST_F(PlacementSaverTest, ADiskThatDoesNotAnswerEndsTheWaitAndWhatWasBegunIsWritten) {
    saver.save(widget("A"));
    ASSERT_TRUE(waitUntil([this] { return files.begun == 1; }));
    saver.save(widget("B"));
    EXPECT_FALSE(saver.drain(1ms));
    files.gate.open();
    ASSERT_TRUE(saver.drain(patience));
    EXPECT_EQ(onDisk(), widget("A"));
}

TEST_F(PlacementSaverTest, AFailureIsReportedOnTheWindowThreadAndDrainingHandsItOut) {
    files.gate.open();
    disk.faults().fail(FileOperation::write, 1, ENOSPC, Lasting::once);
    saver.save(widget("A"));
    EXPECT_THAT(reports, IsEmpty());
    ASSERT_TRUE(saver.drain(patience));
    EXPECT_THAT(reports, ::testing::ElementsAre(HasSubstr("cannot be saved")));
    saver.save(widget("B"));
    ASSERT_TRUE(saver.drain(patience));
    EXPECT_EQ(onDisk(), widget("B"));
}

TEST_F(PlacementSaverTest, WithoutAThreadItIsWrittenHere) {
    files.gate.open();
    const NoThreads none;
    saver.save(widget("A"));
    EXPECT_EQ(onDisk(), widget("A"));
}

TEST_F(PlacementSaverTest, WhatAnEarlierRunLeftIsLoaded) {
    disk.disk().plant(file, writePlacements(widget("A")).value());
    EXPECT_EQ(saver.load(), widget("A"));
}

} // namespace

} // namespace vantel::testing
