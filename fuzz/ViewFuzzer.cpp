#include "core/SnapshotDocument.h"
#include "fuzz/AnySnapshot.h"
#include "fuzz/Promise.h"
#include "hosting/Reading.h"
#include "hosting/ViewJson.h"
#include "hosting/ViewText.h"
#include "platform/FatalError.h"
#include "platform/LocalizedFormats.h"
#include "platform/SystemCalendar.h"
#include "platform/Utf8.h"
#include "platform/VisibleText.h"
#include "widgets/SnapshotProvider.h"
#include "widgets/VantelWidgetsBundle.h"

#include <algorithm>
#include <array>

namespace vantel {
namespace {

/// Zones in which a day begins late, twice, or not at all, beside ordinary ones.
const SystemCalendar& anyCalendar(FuzzedDataProvider& input) {
    static const std::vector<SystemCalendar> calendars = [] {
        std::vector<SystemCalendar> all;
        for (const char* zone : {"UTC", "Europe/Berlin", "America/Los_Angeles", "Asia/Beirut", "Africa/Cairo",
                                 "America/St_Johns", "America/Havana", "America/Santiago", "Pacific/Apia",
                                 "Pacific/Kiritimati", "Australia/Lord_Howe", "Antarctica/Troll",
                                 "Asia/Kathmandu", "Africa/Casablanca", "Europe/Dublin", "Etc/GMT+12"})
            all.push_back(SystemCalendar::named(zone).value_or(SystemCalendar(cctz::utc_time_zone())));
        return all;
    }();
    return calendars[input.ConsumeIntegralInRange<std::size_t>(0, calendars.size() - 1)];
}

const Formats& anyFormats(FuzzedDataProvider& input) {
    static const LocalizedFormats english("en_GB");
    static const LocalizedFormats german("de_DE");
    static const LocalizedFormats hebrew("he_IL");
    const std::array<const Formats*, 3> formats = {&english, &german, &hebrew};
    return *input.PickValueInArray(formats);
}

void judgeCharacters(std::string_view text) {
    while (!text.empty()) {
        const auto [c, length] = firstCodePoint(text);
        promise(!mayBeObeyed(c) || c == '\n', "a terminal gets nothing that it obeys");
        text.remove_prefix(length);
    }
}

void judgeUrl(const Url& url) {
    promise(url.text.starts_with("vantel://") && parseUrl(url.text) == url, "only the companion is opened");
}

void judgeActions(const Element& element, const WidgetBundle& bundle) {
    if (const auto* link = std::get_if<Link>(&element.kind))
        judgeUrl(link->url);
    if (const auto* button = std::get_if<Button>(&element.kind))
        promise(bundle.intent(button->intent.name) != nullptr, "every button does something");
    for (const Element* child : children(element))
        judgeActions(*child, bundle);
}

void judgeView(const WidgetView& view, const WidgetBundle& bundle, const Formats& formats) {
    judgeCharacters(viewText(view, {.title = view.kind, .formats = formats}));
    promise(viewJson(view).has_value(), "a view has a JSON form");
    std::ignore = readingText(view.content.content, formats, view.date);
    judgeActions(view.content.content, bundle);
    if (view.content.widgetURL)
        judgeUrl(*view.content.widgetURL);
}

void judgeTimeline(const Timeline<SnapshotEntry>& timeline, Instant now) {
    promise(!timeline.entries.empty() && timeline.entries.front().date == now, "a timeline begins now");
    promise(std::ranges::is_sorted(timeline.entries, {}, &SnapshotEntry::date), "a timeline ascends");
    promise(timeline.policy.after >= timeline.entries.back().date, "a timeline ends before the next");
}

/// None where a number of the snapshot is beyond what can be planned with, which the host contains.
std::optional<Timeline<SnapshotEntry>> timelineIfAny(const std::shared_ptr<const WidgetSnapshot>& snapshot,
                                                     Instant now, const Calendar& calendar) {
    try {
        return plannedTimeline(snapshot, now, calendar);
    } catch (const FatalError&) {
        return std::nullopt;
    }
}

struct Kind {
    const StaticConfiguration* widget;
    WidgetFamily family;
};

const WidgetBundle& bundle() {
    static const WidgetBundle all = VantelWidgetsBundle::body();
    return all;
}

Kind anyKind(FuzzedDataProvider& input) {
    static const std::vector<Kind> kinds = [] {
        std::vector<Kind> all;
        for (const StaticConfiguration& widget : bundle().widgets)
            for (const WidgetFamily family : widget.supportedFamilies)
                all.push_back({&widget, family});
        return all;
    }();
    return kinds[input.ConsumeIntegralInRange<std::size_t>(0, kinds.size() - 1)];
}

void judgeWidget(const Kind& kind, const SnapshotEntry& entry, const Calendar& calendar,
                 const Formats& formats) {
    const auto erased = VantelWidgetsBundle::entry(kind.widget->kind, entry);
    if (const auto view = renderedView(*kind.widget, erased, {kind.family, calendar, formats}))
        judgeView(*view, bundle(), formats);
}

} // namespace
} // namespace vantel

/// Any snapshot that a document can hold is drawn at any instant, in any zone.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vantel;
    FuzzedDataProvider input(data, size);
    const SystemCalendar& calendar = anyCalendar(input);
    const Formats& formats = anyFormats(input);
    const Kind kind = anyKind(input);
    const Instant now = anyInstant(input);
    const auto snapshot = anySnapshot(input, now);
    if (!snapshot)
        return 0;
    const auto shared = std::make_shared<const WidgetSnapshot>(*snapshot);
    if (const auto timeline = timelineIfAny(shared, now, calendar)) {
        judgeTimeline(*timeline, now);
        judgeWidget(kind, timeline->entries.back(), calendar, formats);
    }
    judgeWidget(kind, {now, shared}, calendar, formats);
    return 0;
}
