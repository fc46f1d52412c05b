#pragma once

#include "core/WidgetSnapshot.h"
#include "platform/SystemCalendar.h"

namespace vantel::bench {

/// Where the samples take place, and when: a Tuesday morning.
const SystemCalendar& calendar();
Instant now();

/// An invented day with this many tasks, the same on every call: done, overdue, due and far ones mixed,
/// titles in ASCII and beyond, some keys left out.
WidgetSnapshot snapshotWith(std::size_t tasks);

/// The same as a document: about 140 bytes for each task.
std::string documentWith(std::size_t tasks);

/// Task counts whose documents have about the sizes that budgets are given for.
inline constexpr std::size_t tasksOfTypicalDocument = 70;   // 14 kB
inline constexpr std::size_t tasksOfStampedDocument = 115;  // 20 kB
inline constexpr std::size_t tasksOfHugeDocument = 125'000; // 19 MB

} // namespace vantel::bench
