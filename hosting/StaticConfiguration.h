#pragma once

#include "hosting/TimelineProvider.h"
#include "hosting/WidgetView.h"
#include "platform/Error.h"

#include <functional>
#include <memory>
#include <string>

namespace vantel {

/// An entry whose type is the widget's own business: a moment, and how to draw it.
struct TimelineEntry {
    Instant date;
    std::function<WidgetContent(const ViewContext&)> content;
};

/// One kind of widget as its bundle declares it. Names and descriptions are text keys.
struct StaticConfiguration {
    std::string kind;
    std::string displayName;
    std::string description;
    std::vector<WidgetFamily> supportedFamilies;

    std::function<TimelineEntry(const TimelineProviderContext&)> placeholder;
    std::function<TimelineEntry(const TimelineProviderContext&)> getSnapshot;
    std::function<Timeline<TimelineEntry>(const TimelineProviderContext&)> getTimeline;

    bool supports(WidgetFamily family) const;
};

/// Draws an entry. A fatal error inside the view is contained here and comes back as a sentence, so that one
/// broken widget takes nothing else down.
std::expected<WidgetView, std::string> renderedView(const StaticConfiguration& configuration,
                                                    const TimelineEntry& entry, const ViewContext& context);

/// An entry of any type together with the function that draws it.
template <typename Entry, typename Content>
TimelineEntry erasedEntry(Entry entry, Content content) {
    const Instant date = entry.date;
    return {date, [entry = std::move(entry), content](const ViewContext& context) {
                return content(entry, context);
            }};
}

template <typename Entry, typename Content>
Timeline<TimelineEntry> erasedTimeline(Timeline<Entry> timeline, Content content) {
    Timeline<TimelineEntry> result{{}, timeline.policy};
    result.entries.reserve(timeline.entries.size());
    for (Entry& entry : timeline.entries)
        result.entries.push_back(erasedEntry(std::move(entry), content));
    return result;
}

/// Binds a kind to its provider and to the pure function that draws its entries
/// (`WidgetContent(const Entry&, const ViewContext&)`).
template <typename Entry, typename Content>
StaticConfiguration makeStaticConfiguration(std::string kind,
                                            const std::shared_ptr<const TimelineProvider<Entry>>& provider,
                                            Content content) {
    using Context = TimelineProviderContext;
    StaticConfiguration configuration;
    configuration.kind = std::move(kind);
    configuration.placeholder = [=](const Context& c) {
        return erasedEntry(provider->placeholder(c), content);
    };
    configuration.getSnapshot = [=](const Context& c) {
        return erasedEntry(provider->getSnapshot(c), content);
    };
    configuration.getTimeline = [=](const Context& c) {
        return erasedTimeline(provider->getTimeline(c), content);
    };
    return configuration;
}

} // namespace vantel
