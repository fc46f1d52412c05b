#include "core/WidgetSnapshot.h"

#include <cmath>
#include <functional>
#include <limits>

#include <gtest/gtest.h>

namespace vantel {
namespace {

/// Every change of one field makes a record another one.
template <typename Record>
void expectEveryChangeTells(const Record& record, const std::vector<std::function<void(Record&)>>& changes) {
    EXPECT_EQ(record, Record(record));
    for (std::size_t i = 0; i < changes.size(); ++i) {
        Record changed = record;
        changes[i](changed);
        EXPECT_NE(record, changed) << "change " << i;
    }
}

const Instant someTime = instantFromReference(1);
const Instant otherTime = instantFromReference(1.0000001);

const WidgetTask task{.id = "t",
                      .summary = "s",
                      .deadline = someTime,
                      .deadlineImplied = true,
                      .priorityRank = 1,
                      .priorityScore = 0.5,
                      .completedAt = someTime};

TEST(RecordEquality, TwoChipsWithTheSameTextAreEqual) {
    EXPECT_EQ((WidgetChip{"Urlaub"}), (WidgetChip{"Urlaub"}));
    EXPECT_NE((WidgetChip{"Urlaub"}), (WidgetChip{"urlaub"}));
}

TEST(RecordEquality, TwoTasksThatDifferOnlyInTheirScoreAreNotEqual) {
    WidgetTask other = task;
    other.priorityScore = std::nextafter(0.5, 1.0);
    EXPECT_NE(task, other);
}

TEST(RecordEquality, EveryFieldOfATaskCounts) {
    expectEveryChangeTells<WidgetTask>(
        task, {[](auto& t) { t.id = "u"; }, [](auto& t) { t.summary = "S"; },
               [](auto& t) { t.deadline = otherTime; }, [](auto& t) { t.deadline = std::nullopt; },
               [](auto& t) { t.deadlineImplied = false; }, [](auto& t) { t.deadlineImplied = std::nullopt; },
               [](auto& t) { t.priorityRank = 2; }, [](auto& t) { t.priorityScore = 0.6; },
               [](auto& t) { t.completedAt = std::nullopt; }});
}

TEST(RecordEquality, EveryFieldOfAnEventCounts) {
    const WidgetEvent event{.id = "e",
                            .title = "t",
                            .start = someTime,
                            .end = someTime,
                            .location = "l",
                            .joinURL = parseUrl("a:b"),
                            .joinProvider = "p",
                            .linkedOpenTaskCount = 1};
    expectEveryChangeTells<WidgetEvent>(
        event,
        {[](auto& e) { e.id = "f"; }, [](auto& e) { e.title = "T"; }, [](auto& e) { e.start = otherTime; },
         [](auto& e) { e.end = otherTime; }, [](auto& e) { e.location = ""; },
         [](auto& e) { e.location = std::nullopt; }, [](auto& e) { e.joinURL = parseUrl("a:c"); },
         [](auto& e) { e.joinProvider = std::nullopt; }, [](auto& e) { e.linkedOpenTaskCount = 0; }});
}

TEST(RecordEquality, EveryFieldOfAHorizonItemCounts) {
    const WidgetHorizonItem item{.id = "h",
                                 .day = someTime,
                                 .label = "l",
                                 .subject = "s",
                                 .kind = WidgetHorizonItem::Kind::absence,
                                 .endDay = someTime};
    expectEveryChangeTells<WidgetHorizonItem>(
        item,
        {[](auto& h) { h.id = "i"; }, [](auto& h) { h.day = otherTime; }, [](auto& h) { h.label = "L"; },
         [](auto& h) { h.subject = "S"; }, [](auto& h) { h.kind = WidgetHorizonItem::Kind::personDate; },
         [](auto& h) { h.endDay = std::nullopt; }});
}

TEST(RecordEquality, EveryFieldOfARecapCounts) {
    expectEveryChangeTells<WidgetRecap>(
        {1, 2, 3, 4, 5, 6},
        {[](auto& r) { r.received = 0; }, [](auto& r) { r.processed = 0; },
         [](auto& r) { r.actionItems = 0; }, [](auto& r) { r.spamFiltered = 0; },
         [](auto& r) { r.tasksCompleted = 0; }, [](auto& r) { r.previousProcessed = 0; }});
}

TEST(RecordEquality, EveryFieldOfASnapshotCounts) {
    const WidgetSnapshot snapshot{.version = 1,
                                  .accountID = "a",
                                  .generatedAt = someTime,
                                  .lastSyncAt = someTime,
                                  .tasks = {task},
                                  .triageCount = 1,
                                  .snoozedCount = 1,
                                  .events = {},
                                  .allDayChips = {{"a"}, {"b"}},
                                  .horizon = {},
                                  .recap = WidgetRecap{1, 2, 3, 4, 5, 6}};
    expectEveryChangeTells<WidgetSnapshot>(
        snapshot,
        {[](auto& s) { s.version = 2; }, [](auto& s) { s.accountID = "A"; },
         [](auto& s) { s.generatedAt = otherTime; }, [](auto& s) { s.lastSyncAt = std::nullopt; },
         [](auto& s) { s.tasks.push_back(task); }, [](auto& s) { s.tasks.at(0).id = "u"; },
         [](auto& s) { s.triageCount = 0; }, [](auto& s) { s.snoozedCount = 0; },
         [](auto& s) {
             s.events.push_back({.id = "", .title = "", .start = someTime, .linkedOpenTaskCount = 0});
         },
         [](auto& s) { std::swap(s.allDayChips.at(0), s.allDayChips.at(1)); },
         [](auto& s) {
             s.horizon.push_back({.id = "",
                                  .day = someTime,
                                  .label = "",
                                  .subject = "",
                                  .kind = WidgetHorizonItem::Kind::absence});
         },
         [](auto& s) { s.recap = std::nullopt; }});
}

TEST(RecordEquality, DoublesAreComparedAsNumbers) {
    WidgetTask zero = task;
    zero.priorityScore = 0.0;
    WidgetTask negativeZero = task;
    negativeZero.priorityScore = -0.0;
    EXPECT_EQ(zero, negativeZero);
    WidgetTask notANumber = task;
    notANumber.priorityScore = std::numeric_limits<double>::quiet_NaN();
    EXPECT_NE(notANumber, WidgetTask(notANumber));
}

} // namespace
} // namespace vantel
