#include "bench/SampleDocuments.h"

#include "core/SnapshotDocument.h"

#include <array>

namespace vantel::bench {

namespace {

constexpr Seconds hour(3600);
constexpr std::size_t eventCount = 20;
constexpr std::size_t horizonCount = 12;

/// A sequence that looks random and is the same everywhere.
class Dice {
public:
    std::uint32_t below(std::uint32_t bound) {
        m_state = m_state * 6364136223846793005U + 1442695040888963407U;
        return static_cast<std::uint32_t>(m_state >> 33U) % bound;
    }

private:
    std::uint64_t m_state = 2001;
};

std::string title(Dice& dice) {
    constexpr std::array<const char*, 6> titles = {
        "Sign off the ethics amendment for cohort B",          "Answer reviewer 2 (revision due)",
        "Countersign the travel request – Hàn, Lausanne",      "Write a recommendation for Y. Öztürk",
        "Slides: progress report to the \"north\" consortium", "Book a room"};
    return titles.at(dice.below(titles.size()));
}

WidgetTask task(std::size_t number, Dice& dice) {
    WidgetTask task{.id = "task-" + std::to_string(100'000 + number),
                    .summary = title(dice),
                    .priorityRank = dice.below(4),
                    .priorityScore = dice.below(1000) / 1000.0};
    if (dice.below(10) < 8)
        task.deadline = now() + hour * (static_cast<double>(dice.below(2000)) - 400);
    if (dice.below(10) == 0)
        task.deadlineImplied = true;
    if (dice.below(10) < 3)
        task.completedAt = now() - hour * dice.below(500);
    return task;
}

WidgetEvent event(std::size_t number) {
    const Instant start = now() + hour * (static_cast<double>(number) - 4);
    return {.id = "event-" + std::to_string(number),
            .title = "Group meeting: pipeline, next steps and who writes what",
            .start = start,
            .end = start + hour,
            .location = "Seminar room D0.11",
            .joinURL = parseUrl("https://meet.example.net/j/98765432101?pwd=Q2hhbmdlTWU.1"),
            .joinProvider = "Jitsi Meet",
            .linkedOpenTaskCount = static_cast<std::int64_t>(number % 3)};
}

WidgetHorizonItem horizonItem(std::size_t number) {
    return {.id = "horizon-" + std::to_string(number),
            .day = now() + hour * (24.0 * static_cast<double>(number)),
            .label = "Birthday",
            .subject = "Ingrid Sørensen",
            .kind = WidgetHorizonItem::Kind::personDate};
}

} // namespace

const SystemCalendar& calendar() {
    static const SystemCalendar berlin = SystemCalendar::named("Europe/Berlin").value();
    return berlin;
}

Instant now() {
    return calendar().date(2026, 11, 17, 9).value();
}

WidgetSnapshot snapshotWith(std::size_t tasks) {
    WidgetSnapshot snapshot{.version = WidgetSnapshot::currentVersion,
                            .accountID = "acct-7f3a",
                            .generatedAt = now(),
                            .lastSyncAt = now(),
                            .tasks = {},
                            .triageCount = 23,
                            .snoozedCount = 4,
                            .events = {},
                            .allDayChips = {{"Thesis day"}, {"Ada away"}},
                            .horizon = {},
                            .recap = WidgetRecap{214, 180, 32, 41, 18, 165}};
    Dice dice;
    for (std::size_t i = 0; i < tasks; ++i)
        snapshot.tasks.push_back(task(i, dice));
    for (std::size_t i = 0; i < eventCount; ++i)
        snapshot.events.push_back(event(i));
    for (std::size_t i = 0; i < horizonCount; ++i)
        snapshot.horizon.push_back(horizonItem(i));
    return snapshot;
}

std::string documentWith(std::size_t tasks) {
    return encodeSnapshot(snapshotWith(tasks)).value();
}

} // namespace vantel::bench
