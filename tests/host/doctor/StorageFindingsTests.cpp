#include "host/doctor/ContainerFindings.h"
#include "tests/core/SampleSnapshot.h"
#include "tests/fakes/FakeFormats.h"

#include <cerrno>

#include <gtest/gtest.h>

namespace vantel {
namespace {

using testing::noon;

FileFacts file(const char* name) {
    return {.path = FileURL("/data/shared") / name, .kind = FileFacts::Kind::regular, .mode = 0644};
}

SnapshotHead writtenBefore(double seconds) {
    return {.version = 1, .generatedAt = noon - Seconds(seconds)};
}

/// All files are there, and nobody holds a lock.
StorageFacts healthy() {
    const LockFacts free{.kind = LockFacts::Kind::free};
    const ContainerFacts container{
        .folder = {.path = "/data/shared", .kind = FileFacts::Kind::directory, .mode = 0700},
        .snapshot = file("widget-snapshot.json"),
        .snapshotLock = file("widget-snapshot.lock"),
        .journal = file("widget-journal.ndjson"),
        .head = writtenBefore(720),
        .snapshotLockState = free,
        .journalLockState = free};
    return {.now = noon,
            .container = container,
            .placements = PlacementsFacts{.file = "/state/placements.json", .count = 4}};
}

std::string printedFor(const StorageFacts& facts) {
    return printed(storageFindings(facts, testing::PlainFormats()));
}

std::string old(double seconds) {
    return testing::PlainFormats().timeLeft(Seconds(seconds));
}

TEST(StorageFindings, AHealthyFolderHasNothingToComplainOf) {
    EXPECT_EQ(printedFor(healthy()), "ok    The shared folder /data/shared is private to you.\n"
                                     "ok    The snapshot can be read and is " +
                                         old(720) +
                                         " old.\n"
                                         "ok    Nobody holds the lock of widget-snapshot.lock.\n"
                                         "ok    Nobody holds the lock of widget-journal.ndjson.\n"
                                         "ok    The places of the widgets are kept in "
                                         "/state/placements.json (4).\n");
}

struct Case {
    void (*change)(StorageFacts&);
    std::string line;
};

LockFacts heldBy(ProcessFacts holder) {
    return {.kind = LockFacts::Kind::held, .holder = std::move(holder)};
}

const Case cases[] = {
    {[](StorageFacts& facts) { facts.container.reset(); },
     "fail  There is no shared folder: neither XDG_DATA_HOME nor HOME is an absolute path.\n"},
    {[](StorageFacts& facts) { facts.container->folder.kind = FileFacts::Kind::missing; },
     "warn  The shared folder /data/shared is not there yet: the companion application makes it.\n"},
    {[](StorageFacts& facts) { facts.container->folder.kind = FileFacts::Kind::regular; },
     "fail  /data/shared is no folder.\n"},
    {[](StorageFacts& facts) { facts.container->folder.kind = FileFacts::Kind::unknown; },
     "fail  /data/shared cannot be read.\n"},
    {[](StorageFacts& facts) { facts.container->folder.isWritable = false; },
     "fail  /data/shared cannot be written.\n"},
    {[](StorageFacts& facts) {
         facts.container->folder.isMine = false;
         facts.container->folder.owner = 1001;
     },
     "fail  /data/shared belongs to another user (1001).\n"},
    {[](StorageFacts& facts) {
         facts.container->folder.mode = 0755;
         facts.container->isReachable = true;
     },
     "warn  Others can reach the shared folder /data/shared (its mode is 0755; 0700 is private).\n"},
    {[](StorageFacts& facts) { facts.container->folder.mode = 0755; },
     "ok    The shared folder /data/shared is private to you.\n"},
    {[](StorageFacts& facts) { facts.container->snapshot.kind = FileFacts::Kind::missing; },
     "warn  There is no snapshot yet: the widgets say how to set up.\n"},
    {[](StorageFacts& facts) { facts.container->snapshot.kind = FileFacts::Kind::directory; },
     "fail  /data/shared/widget-snapshot.json is no ordinary file.\n"},
    {[](StorageFacts& facts) { facts.container->snapshot.isReadable = false; },
     "fail  /data/shared/widget-snapshot.json cannot be read.\n"},
    {[](StorageFacts& facts) { facts.container->snapshot.isWritable = false; },
     "ok    The snapshot can be read and is " + old(720) + " old.\n"},
    {[](StorageFacts& facts) {
         facts.container->head = std::unexpected(DecodingError{"tasks[3].title\x1b", "missing"});
     },
     "fail  The snapshot cannot be read (tasks[3].title␛: missing).\n"},
    {[](StorageFacts& facts) { facts.container->head->value().version = 2; },
     "fail  The snapshot has version 2; the widgets read version 1.\n"},
    {[](StorageFacts& facts) { facts.container->head = writtenBefore(48 * 3600 - 1); },
     "ok    The snapshot can be read and is " + old(48 * 3600 - 1) + " old.\n"},
    {[](StorageFacts& facts) { facts.container->head = writtenBefore(48 * 3600); },
     "warn  The snapshot is " + old(48 * 3600) +
         " old: the companion application has not written for long.\n"},
    {[](StorageFacts& facts) { facts.container->head = writtenBefore(-300); },
     "ok    The snapshot can be read and is " + old(-300) + " old.\n"},
    {[](StorageFacts& facts) { facts.container->head = writtenBefore(-301); },
     "warn  The snapshot is from the future (" + old(301) + " ahead): a clock is wrong.\n"},
    {[](StorageFacts& facts) {
         facts.container->snapshotLockState = heldBy({.number = 7, .name = "companion"});
     },
     "warn  Process 7 (companion) holds the lock of widget-snapshot.lock.\n"},
    {[](StorageFacts& facts) {
         facts.container->journalLockState = heldBy({.number = 7, .name = "companion", .isStopped = true});
     },
     "fail  Process 7 (companion) holds the lock of widget-journal.ndjson and is stopped: whoever needs it "
     "waits.\n"},
    {[](StorageFacts& facts) { facts.container->journalLockState = {.kind = LockFacts::Kind::held}; },
     "warn  A process that cannot be seen holds the lock of widget-journal.ndjson.\n"},
    {[](StorageFacts& facts) { facts.container->journalLockState = heldBy({.number = 7}); },
     "warn  A process that cannot be seen holds the lock of widget-journal.ndjson.\n"},
    {[](StorageFacts& facts) { facts.container->journalLockState = {}; },
     "warn  Who holds the lock of widget-journal.ndjson cannot be told.\n"},
    {[](StorageFacts& facts) { facts.container->journal.kind = FileFacts::Kind::missing; },
     "ok    widget-journal.ndjson is not there yet; it is made when it is needed.\n"},
    {[](StorageFacts& facts) { facts.container->journal.isWritable = false; },
     "fail  /data/shared/widget-journal.ndjson cannot be written.\n"},
    {[](StorageFacts& facts) { facts.placements->count.reset(); },
     "ok    No place of a widget was saved yet.\n"},
    {[](StorageFacts& facts) { facts.placements->count = std::unexpected(DecodingError{"", "not JSON"}); },
     "warn  The places of the widgets cannot be read from /state/placements.json (not JSON).\n"},
    {[](StorageFacts& facts) { facts.placements.reset(); },
     "fail  There is no folder for the places of the widgets: neither XDG_STATE_HOME nor HOME is an absolute "
     "path.\n"},
};

TEST(StorageFindings, SayWhatIsWrongAndWhatThatMeans) {
    for (const auto& [change, line] : cases) {
        StorageFacts facts = healthy();
        change(facts);
        EXPECT_NE(printedFor(facts).find(line), std::string::npos) << line << printedFor(facts);
    }
}

TEST(StorageFindings, NothingIsSaidOfTheFilesInAFolderThatCannotBeUsed) {
    StorageFacts facts = healthy();
    facts.container->folder.isReadable = false;
    EXPECT_EQ(storageFindings(facts, testing::PlainFormats()).size(), 2U);
}

} // namespace
} // namespace vantel
