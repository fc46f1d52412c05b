#pragma once

#include "core/WidgetSnapshot.h"
#include "platform/Formats.h"

#include <optional>
#include <string>
#include <vector>

namespace vantel {

/// One line of the group widget.
struct GroupRow {
    std::string id; ///< of the horizon item; unique in a list
    std::string_view glyph;
    std::string text;
    std::optional<std::string> chip; ///< a short day text at the line's end
    bool isFlagged;                  ///< a contract that needs attention

    bool operator==(const GroupRow&) const = default;
};

/// The lines of a moment, three at most: contracts at any distance, then who is away today, then the dates
/// and deadlines of the next seven days. Items whose last day lies before today give none; an item gives one
/// line. A contract is told by the text "contract" in its label, in lower case.
std::vector<GroupRow> buildRows(const WidgetSnapshot& snapshot, Instant now, const Calendar& calendar,
                                const Formats& formats);

/// "7 dates in 30 days", of all items whatever their day: the companion sends those of thirty days.
std::string groupFooterText(const WidgetSnapshot& snapshot, const Formats& formats);

} // namespace vantel
