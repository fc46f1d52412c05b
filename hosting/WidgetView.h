#pragma once

#include "hosting/Element.h"
#include "hosting/WidgetFamily.h"
#include "platform/Calendar.h"
#include "platform/Formats.h"

namespace vantel {

/// What a view is drawn for: the size, the user's calendar, and the user's language.
struct ViewContext {
    WidgetFamily family;
    const Calendar& calendar;
    const Formats& formats;
};

/// What a widget shows, apart from which widget and when.
struct WidgetContent {
    Element content;
    TokenColor background;
    std::optional<Url> widgetURL = std::nullopt; ///< opened by a click that meets no link or button

    bool operator==(const WidgetContent&) const = default;
};

/// One view of one widget at one moment: plain values, the same for every host, printer and screen reader.
struct WidgetView {
    std::string kind;
    WidgetFamily family;
    Instant date;
    WidgetContent content;

    bool operator==(const WidgetView&) const = default;
};

} // namespace vantel
