#pragma once

#include "core/WidgetTask.h"
#include "platform/Calendar.h"

#include <span>
#include <vector>

/// Which tasks count as open, overdue, due today and done today, and in which order they are shown.
///
/// "Today" is the calendar's day that contains `at`. Display order: tasks with a deadline first, earlier
/// deadlines before later ones; then the higher score; then the order in the input.
namespace vantel::WidgetBuckets {

using Tasks = std::vector<WidgetTask>;

/// The tasks that are not completed, in input order.
Tasks open(std::span<const WidgetTask> tasks);

/// The open tasks whose deadline lies before today, in display order. One that was due earlier today is not
/// overdue.
Tasks overdue(std::span<const WidgetTask> tasks, Instant at, const Calendar& calendar);

/// The open tasks whose deadline lies in today, in display order. Empty when the calendar cannot tell
/// tomorrow.
Tasks dueToday(std::span<const WidgetTask> tasks, Instant at, const Calendar& calendar);

/// How many are overdue or due today.
std::int64_t dueCount(std::span<const WidgetTask> tasks, Instant at, const Calendar& calendar);

/// The tasks completed since today began, in input order, those stamped in the future among them.
Tasks doneToday(std::span<const WidgetTask> tasks, Instant at, const Calendar& calendar);

/// The same tasks in display order.
Tasks displayOrder(std::span<const WidgetTask> tasks);

/// A bucket of which only the first tasks are shown.
struct Head {
    std::int64_t count = 0; ///< of all tasks in the bucket
    Tasks first;            ///< the first of them, in the bucket's order

    bool operator==(const Head&) const = default;
};

/// The buckets of one moment, as far as a view shows them.
struct Overview {
    Head overdue;
    Head dueToday;
    std::int64_t doneTodayCount = 0;
    std::optional<WidgetTask> nextDue; ///< the open task with the earliest deadline after today

    bool operator==(const Overview&) const = default;
};

/// All of the above at once, in one pass that neither sorts nor copies more than `rows` tasks a bucket: the
/// same answers as the single functions give, for any number of tasks.
Overview overview(std::span<const WidgetTask> tasks, Instant at, const Calendar& calendar, std::size_t rows);

/// The open task with the earliest deadline at or after the next midnight; of equal ones the first in the
/// input.
std::optional<WidgetTask> nextDue(std::span<const WidgetTask> tasks, Instant after, const Calendar& calendar);

/// When the day after the given instant's begins. Where the calendar cannot tell, a day's length after the
/// instant.
Instant nextMidnight(Instant after, const Calendar& calendar);

/// Whether the weekly recap is on: from Friday 15:00 until Sunday ends.
bool isRecapTime(Instant at, const Calendar& calendar);

} // namespace vantel::WidgetBuckets
