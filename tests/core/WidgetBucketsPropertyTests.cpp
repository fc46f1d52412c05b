#include "core/WidgetBuckets.h"
#include "platform/SystemCalendar.h"
#include "tests/fakes/FakeCalendar.h"

#include <algorithm>
#include <limits>
#include <random>

#include <gtest/gtest.h>

namespace vantel {
namespace {

using WidgetBuckets::Tasks;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/// Lists of tasks whose deadlines crowd around the bounds of a day and whose scores are often equal.
class RandomTasks {
public:
    RandomTasks(std::uint64_t seed, Instant around)
        : m_random(seed)
        , m_around(around) {}

    Tasks list() {
        Tasks tasks(m_random() % 30,
                    WidgetTask{.id = "", .summary = "", .priorityRank = 0, .priorityScore = 0});
        for (std::size_t i = 0; i < tasks.size(); ++i) {
            tasks[i].id = std::to_string(i);
            tasks[i].deadline = instant();
            tasks[i].priorityScore = static_cast<double>(m_random() % 3);
            tasks[i].completedAt = m_random() % 3 == 0 ? instant() : std::nullopt;
        }
        return tasks;
    }

    Instant moment() { return m_around + Seconds(static_cast<double>(m_random() % 172'800) - 86'400); }

private:
    std::optional<Instant> instant() {
        constexpr double quarterDay = 21'600;
        const double quarters = static_cast<double>(m_random() % 24) - 12;
        const double nudge = static_cast<double>(m_random() % 3) - 1;
        return m_random() % 5 == 0 ? std::nullopt
                                   : std::optional(m_around + Seconds(quarters * quarterDay + nudge));
    }

    std::mt19937_64 m_random;
    Instant m_around;
};

WidgetBuckets::Head headOf(const Tasks& tasks, std::size_t rows) {
    const auto shown = static_cast<std::ptrdiff_t>(std::min(rows, tasks.size()));
    return {.count = std::ssize(tasks), .first = Tasks(tasks.begin(), tasks.begin() + shown)};
}

/// The overview as the single functions add up to it.
WidgetBuckets::Overview composed(const Tasks& tasks, Instant at, const Calendar& calendar, std::size_t rows) {
    return {.overdue = headOf(WidgetBuckets::overdue(tasks, at, calendar), rows),
            .dueToday = headOf(WidgetBuckets::dueToday(tasks, at, calendar), rows),
            .doneTodayCount = std::ssize(WidgetBuckets::doneToday(tasks, at, calendar)),
            .nextDue = WidgetBuckets::nextDue(tasks, at, calendar)};
}

void expectOverviewAddsUp(const Calendar& calendar, Instant around, std::uint64_t seed) {
    RandomTasks random(seed, around);
    for (int i = 0; i < 2000; ++i) {
        const Tasks tasks = random.list();
        const Instant at = random.moment();
        const auto rows = static_cast<std::size_t>(i % 6);
        const auto overview = WidgetBuckets::overview(tasks, at, calendar, rows);
        EXPECT_EQ(overview, composed(tasks, at, calendar, rows));
        EXPECT_EQ(overview.overdue.count + overview.dueToday.count,
                  WidgetBuckets::dueCount(tasks, at, calendar));
    }
}

TEST(WidgetBucketsProperty, TheOverviewEqualsTheSingleFunctions) {
    const auto berlin = SystemCalendar::named("Europe/Berlin").value();
    expectOverviewAddsUp(berlin, *berlin.date(2026, 11, 17, 0), 1);
    expectOverviewAddsUp(berlin, *berlin.date(2024, 3, 31, 0), 2);
    expectOverviewAddsUp(berlin, *berlin.date(2024, 10, 27, 0), 3);
    const auto saintJohns = SystemCalendar::named("America/St_Johns").value();
    expectOverviewAddsUp(saintJohns, *saintJohns.date(2010, 11, 7, 0), 4);
}

TEST(WidgetBucketsProperty, TheOverviewEqualsTheSingleFunctionsWithoutCalendarArithmetic) {
    expectOverviewAddsUp(testing::CalendarWithoutArithmetic(), instantFromReference(788918400), 5);
}

TEST(WidgetBucketsProperty, EveryOpenDatedTaskIsOverdueDueOrAhead) {
    const auto berlin = SystemCalendar::named("Europe/Berlin").value();
    RandomTasks random(6, *berlin.date(2026, 11, 17, 0));
    for (int i = 0; i < 1000; ++i) {
        const Tasks tasks = random.list();
        const Instant at = random.moment();
        const Instant midnight = WidgetBuckets::nextMidnight(at, berlin);
        const auto isDatedAndOpen = [](const WidgetTask& task) { return task.deadline && !task.completedAt; };
        const auto isAhead = [&](const WidgetTask& task) {
            return isDatedAndOpen(task) && *task.deadline >= midnight;
        };
        EXPECT_EQ(std::ranges::count_if(tasks, isDatedAndOpen),
                  WidgetBuckets::dueCount(tasks, at, berlin) + std::ranges::count_if(tasks, isAhead));
    }
}

TEST(WidgetBucketsProperty, DisplayOrderIsAStableSort) {
    RandomTasks random(7, instantFromReference(0));
    for (int i = 0; i < 1000; ++i) {
        const Tasks tasks = random.list();
        const Tasks sorted = WidgetBuckets::displayOrder(tasks);
        const auto key = [](const WidgetTask& task) {
            const double deadline = task.deadline ? secondsSinceReference(*task.deadline) : infinity;
            return std::tuple(deadline, -task.priorityScore, std::stoi(task.id));
        };
        EXPECT_TRUE(std::ranges::is_permutation(sorted, tasks));
        EXPECT_TRUE(std::ranges::is_sorted(sorted, {}, key));
    }
}

TEST(WidgetBucketsProperty, InstantsOfAnyValueAreAnswered) {
    const std::vector<double> values = {
        0,    -0.0,  1e300,  -1e300,   1e22,      -1e22,      9.3e18,
        1e13, -1e13, 5e-324, infinity, -infinity, notANumber, 1.7976931348623157e308};
    const auto berlin = SystemCalendar::named("Europe/Berlin").value();
    const testing::CalendarWithoutArithmetic withoutArithmetic;
    Tasks tasks;
    for (const double deadline : values)
        for (const double score : values)
            tasks.push_back({.id = "",
                             .summary = "",
                             .deadline = instantFromReference(deadline),
                             .priorityRank = 0,
                             .priorityScore = score});
    for (const double completedAt : values)
        tasks.push_back({.id = "",
                         .summary = "",
                         .priorityRank = 0,
                         .priorityScore = 0,
                         .completedAt = instantFromReference(completedAt)});
    EXPECT_EQ(WidgetBuckets::displayOrder(tasks).size(), tasks.size());
    for (const double value : values)
        for (const Calendar* calendar : std::initializer_list<const Calendar*>{&berlin, &withoutArithmetic}) {
            const Instant at = instantFromReference(value);
            const auto overview = WidgetBuckets::overview(tasks, at, *calendar, 3);
            EXPECT_EQ(overview.overdue.count, std::ssize(WidgetBuckets::overdue(tasks, at, *calendar)));
            EXPECT_EQ(overview.dueToday.count, std::ssize(WidgetBuckets::dueToday(tasks, at, *calendar)));
            EXPECT_EQ(overview.doneTodayCount, std::ssize(WidgetBuckets::doneToday(tasks, at, *calendar)));
            EXPECT_FALSE(WidgetBuckets::nextMidnight(at, *calendar) < at);
            WidgetBuckets::isRecapTime(at, *calendar);
        }
}

} // namespace
} // namespace vantel
