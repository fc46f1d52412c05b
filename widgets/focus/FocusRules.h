#pragma once

#include "core/WidgetBuckets.h"
#include "core/WidgetSnapshot.h"
#include "hosting/WidgetView.h"
#include "widgets/SnapshotEntry.h"

#include <optional>
#include <string>

namespace vantel {

/// What both sizes of the focus widget are drawn from: the entry, its snapshot, and the task buckets at its
/// date. The buckets hold as many tasks as the larger size has rows.
struct FocusInput {
    const SnapshotEntry& entry;
    const WidgetSnapshot& snapshot;
    WidgetBuckets::Overview tasks;

    FocusInput(const SnapshotEntry& source, const Calendar& calendar);

    bool isAllClear() const { return tasks.overdue.count == 0 && tasks.dueToday.count == 0; }

    /// Overdue and due today together. An overflow is a fatal error.
    std::int64_t dueCount() const;
};

/// How many rows the task column has in all, and how many of them overdue tasks may take.
inline constexpr std::size_t taskRowLimit = 4;
inline constexpr std::size_t overdueRowLimit = 2;

/// "3 to triage · 2 done"; a count below one adds nothing, and without any there is no footer.
std::optional<std::string> focusFooterText(std::int64_t triage, std::int64_t done, const Formats& formats);

/// The open task that is due first after the day of `after`; of equal ones the first in the snapshot.
std::optional<WidgetTask> nextDue(const WidgetSnapshot& in, Instant after, const Calendar& calendar);

/// The sizes of a count and the word beside it.
struct CountSizes {
    double number;
    double tracking;
    double word;
    double gap;
};

Element countRow(std::int64_t count, const CountSizes& sizes, Color numberColor, Color wordColor,
                 const std::string& word);
Element dueRow(std::int64_t count, const CountSizes& sizes, const Formats& formats);
Element overdueRow(std::int64_t count, const CountSizes& sizes, const Formats& formats);

/// "All clear", and what is due next.
std::vector<Element> allClearTexts(const FocusInput& input, const ViewContext& context);

} // namespace vantel
