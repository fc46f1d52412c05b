#pragma once

#include "widgets/nextup/NextUpRules.h"

namespace vantel {

/// The rest of the day as an agenda of up to three rows.
struct NextUpMediumView {
    Instant date;
    const WidgetSnapshot& snapshot;
    const EventList& today;
};

Element element(const NextUpMediumView& view, const ViewContext& context);

} // namespace vantel
