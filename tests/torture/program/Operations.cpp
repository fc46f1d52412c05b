#include "tests/torture/program/Operations.h"

#include "core/RedoCopy.h"
#include "core/WidgetJournal.h"
#include "core/WidgetShared.h"
#include "platform/FatalError.h"
#include "tests/core/SampleJournal.h"
#include "tests/core/SampleSnapshot.h"
#include "tests/fakes/LockProbe.h"
#include "tests/fakes/ReadFile.h"

#include <algorithm>
#include <fstream>

namespace vantel::torture {

using testing::isFree;
using testing::noon;
using testing::sampleEntry;
using testing::sampleLine;
using testing::sampleSnapshot;
using testing::sampleUuid;

namespace {

template <typename Value>
Outcome outcome(const Result<Value>& result) {
    return result ? Outcome::happened : Outcome::failed;
}

Outcome outcome(const Result<bool>& result) {
    return result && *result ? Outcome::happened : Outcome::failed;
}

Outcome append() {
    return outcome(WidgetJournal::append(sampleEntry(9)));
}

Outcome removeSecond() {
    return outcome(WidgetJournal::remove({sampleUuid(2)}));
}

Outcome removeAllOfThem() {
    return outcome(WidgetJournal::remove({sampleUuid(1), sampleUuid(2), sampleUuid(3)}));
}

Outcome removeAll() {
    return outcome(WidgetJournal::removeAll());
}

/// The pending entries have to be these.
std::function<Outcome()> reading(std::vector<WidgetJournalEntry> expected) {
    return [expected = std::move(expected)] {
        const auto entries = WidgetJournal::pending();
        return entries && *entries != expected ? Outcome::wrong : outcome(entries);
    };
}

Outcome load() {
    const auto snapshot = WidgetSnapshot::load();
    if (!snapshot)
        return Outcome::failed;
    return *snapshot == sampleSnapshot() ? Outcome::happened : Outcome::wrong;
}

Outcome write() {
    return outcome(sampleSnapshot("new").write());
}

Outcome stamp() {
    return outcome(WidgetSnapshot::applyCompletion("a", noon, "account"));
}

Outcome removeSnapshot() {
    return outcome(WidgetSnapshot::remove());
}

Outcome removeMatchingSnapshot() {
    return outcome(WidgetSnapshot::remove("account", false));
}

/// A journal whose process was killed while it removed the second of three entries.
Contents unfinished(const std::string& journal) {
    const std::string head = R"({"removed":[{"id":")" + text(sampleUuid(2)) + "\"}]}\n";
    return {.journal = journal, .redoCopy = head + sampleLine(1) + sampleLine(3)};
}

void insertJournalOperations(std::vector<Operation>& operations) {
    const Contents three{.journal = sampleLine(1) + sampleLine(2) + sampleLine(3)};
    const Contents torn{.journal = sampleLine(1) + sampleLine(2).substr(0, 30)};
    const Contents cut = unfinished(sampleLine(1).substr(0, 20));
    const Contents cutAndAppended = unfinished(sampleLine(4));
    const auto all = {sampleEntry(1), sampleEntry(2), sampleEntry(3)};
    operations.insert(operations.end(), {{"append the first entry", {.hasContainer = false}, append},
                                         {"append", three, append},
                                         {"append to a torn journal", torn, append},
                                         {"append and finish", cut, append},
                                         {"append and finish beside another", cutAndAppended, append},
                                         {"read", three, reading(all)},
                                         {"read and finish", cut, reading({sampleEntry(1), sampleEntry(3)})},
                                         {"remove one", three, removeSecond, true},
                                         {"remove one and finish", cut, removeSecond, true},
                                         {"remove every one", three, removeAllOfThem},
                                         {"empty", three, removeAll},
                                         {"empty and finish", cutAndAppended, removeAll}});
}

void insertSnapshotOperations(std::vector<Operation>& operations) {
    const Contents stored{.snapshot = testing::documentOf(sampleSnapshot())};
    operations.insert(operations.end(), {{"write the first snapshot", {.hasContainer = false}, write},
                                         {"load", stored, load},
                                         {"write", stored, write},
                                         {"stamp", stored, stamp},
                                         {"remove the snapshot", stored, removeSnapshot},
                                         {"remove the account's snapshot", stored, removeMatchingSnapshot}});
}

void putFile(const FileURL& file, const std::optional<std::string>& contents) {
    if (contents)
        std::ofstream(file) << *contents;
}

} // namespace

std::vector<Operation> allOperations() {
    std::vector<Operation> operations;
    insertJournalOperations(operations);
    insertSnapshotOperations(operations);
    return operations;
}

Outcome runContained(const Operation& operation) {
    try {
        return operation.run();
    } catch (const FatalError&) {
        return Outcome::failed;
    }
}

void put(const Contents& contents) {
    const FileURL container = WidgetShared::containerURL().value();
    std::filesystem::remove_all(container.parent_path());
    if (!contents.hasContainer)
        return;
    std::filesystem::create_directories(container);
    putFile(WidgetShared::journalURL().value(), contents.journal);
    putFile(RedoCopy::copyURL(WidgetShared::journalURL().value()), contents.redoCopy);
    putFile(WidgetShared::snapshotURL().value(), contents.snapshot);
}

std::vector<std::string> fileNames() {
    std::vector<std::string> names;
    std::error_code missing;
    for (const auto& entry :
         std::filesystem::directory_iterator(WidgetShared::containerURL().value(), missing))
        names.push_back(entry.path().filename());
    return names;
}

View look() {
    View view;
    const auto entries = WidgetJournal::pending().value();
    for (const WidgetJournalEntry& entry : entries)
        view.entries.push_back(text(entry.id));
    if (WidgetSnapshot::load())
        view.snapshot = testing::readFile(WidgetShared::snapshotURL().value());
    return view;
}

bool areLocksFree() {
    std::filesystem::create_directories(WidgetShared::containerURL().value());
    return isFree(WidgetShared::journalURL().value()) && isFree(WidgetShared::snapshotLockURL().value());
}

std::vector<std::string> leftAfterUse() {
    for (const int number : {7, 8})
        if (!WidgetJournal::append(sampleEntry(number)))
            return {"(an append failed)"};
    if (!WidgetJournal::remove({sampleUuid(7)}) || !sampleSnapshot().write())
        return {"(a later operation failed)"};
    std::vector<std::string> left = fileNames();
    std::erase_if(left, [](const std::string& name) {
        return name == "widget-journal.ndjson" || name == "widget-snapshot.lock" ||
               name == "widget-snapshot.json";
    });
    return left;
}

} // namespace vantel::torture
