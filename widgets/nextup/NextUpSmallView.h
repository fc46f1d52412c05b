#pragma once

#include "widgets/nextup/NextUpRules.h"

namespace vantel {

/// One of three states: the evening, the dark card of a meeting about to start, or the next meeting.
struct NextUpSmallView {
    Instant date;
    const WidgetSnapshot& snapshot;
    const EventList& today;
    bool isImminent;
};

Element element(const NextUpSmallView& view, const ViewContext& context);

} // namespace vantel
