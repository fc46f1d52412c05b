#include "host/doctor/LockHolder.h"
#include "platform/LockedFile.h"
#include "tests/fakes/ScratchFolder.h"

#include <gtest/gtest.h>
#include <sys/sysmacros.h>
#include <unistd.h>

namespace vantel {
namespace {

using namespace testing;

const std::uint64_t device = makedev(0xfe, 1);

struct ListCase {
    const char* list;
    std::optional<std::int64_t> holder;
};

const ListCase listCases[] = {
    {"", std::nullopt},
    {"1: FLOCK  ADVISORY  WRITE 708 fe:01:99 0 EOF\n", 708},
    {"1: FLOCK  ADVISORY  WRITE 708 fe:01:99 0 EOF", 708},
    {"1: POSIX  ADVISORY  WRITE 708 fe:01:99 0 EOF\n", std::nullopt},
    {"1: FLOCK  ADVISORY  WRITE 708 fe:01:990 0 EOF\n", std::nullopt},
    {"1: FLOCK  ADVISORY  WRITE 708 FE:01:99 0 EOF\n", 708},
    {"1: FLOCK  ADVISORY  WRITE 0 fe:01:99 0 EOF\n", std::nullopt},
    {"1: -> FLOCK  ADVISORY  WRITE 708 fe:01:99 0 EOF\n", std::nullopt},
    {"1: FLOCK  ADVISORY  WRITE 1 fe:01:98 0 EOF\n2: FLOCK  ADVISORY  WRITE 2 fe:01:99 0 EOF\n"
     "2: -> FLOCK  ADVISORY  WRITE 3 fe:01:99 0 EOF\n",
     2},
    {"1: FLOCK  ADVISORY  WRITE 5 00:2a:99 0 EOF\n", 5},
    {"1: FLOCK  ADVISORY  WRITE 5 00:2a:99 0 EOF\n2: FLOCK  ADVISORY  WRITE 6 fe:01:99 0 EOF\n", 6},
    {"1: FLOCK\nnonsense\n: : : : : :\n1: FLOCK ADVISORY WRITE x fe:01:99 0 EOF\n", std::nullopt},
};

TEST(LockHolder, IsTheOneThatHoldsTheFileAndNotOneThatWaits) {
    for (const auto& [list, holder] : listCases)
        EXPECT_EQ(lockHolder(list, device, 99), holder) << list;
}

struct ProcessCase {
    const char* stat;
    ProcessFacts expected;
};

const ProcessCase processCases[] = {
    {"7 (sleep) S 1 7", {.number = 7, .name = "sleep"}},
    {"7 (a) T) (b) T 1 7", {.number = 7, .name = "a) T) (b", .isStopped = true}},
    {"7 (gdb child) t 1", {.number = 7, .name = "gdb child", .isStopped = true}},
    {"7 (T) R 1", {.number = 7, .name = "T"}},
    {"", {.number = 7}},
    {"7 (cut)", {.number = 7}},
};

TEST(LockHolder, AProcessIsReadFromWhatTheSystemShowsOfIt) {
    for (const auto& [stat, expected] : processCases)
        EXPECT_EQ(parseProcess(7, stat), expected) << stat;
}

TEST(LockHolder, IsNobodyWhenTheFileIsNotLocked) {
    const ScratchFolder folder;
    ASSERT_TRUE(LockedFile::acquire(folder / "lock", systemFileSystem()));
    EXPECT_EQ(lockFacts(folder / "lock").kind, LockFacts::Kind::free);
}

TEST(LockHolder, IsThisProcessWhenItHoldsTheLock) {
    const ScratchFolder folder;
    const auto locked = LockedFile::acquire(folder / "lock", systemFileSystem());
    ASSERT_TRUE(locked);
    const LockFacts facts = lockFacts(folder / "lock");
    EXPECT_EQ(facts.kind, LockFacts::Kind::held);
    ASSERT_TRUE(facts.holder);
    EXPECT_EQ(facts.holder->number, ::getpid());
    EXPECT_FALSE(facts.holder->name.empty());
    EXPECT_FALSE(facts.holder->isStopped);
}

TEST(LockHolder, OfAMissingFileCannotBeTold) {
    const ScratchFolder folder;
    EXPECT_EQ(lockFacts(folder / "lock").kind, LockFacts::Kind::unknown);
}

} // namespace
} // namespace vantel
