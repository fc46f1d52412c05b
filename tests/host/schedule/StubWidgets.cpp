#include "tests/host/schedule/StubWidgets.h"

#include "platform/SystemCalendar.h"

#include <stdexcept>

namespace vantel::testing {

namespace {

constexpr TokenColor background{"windowBg", DynamicColor{0xFFFFFF, 0x000000}};

WidgetContent stubContent(const std::string& text, const ViewContext& context) {
    if (text == "fatal")
        fatalError("The text cannot be drawn.");
    if (text == "bug")
        throw std::out_of_range("no such row");
    const auto& calendar = dynamic_cast<const SystemCalendar&>(context.calendar);
    const std::string shown = text + " " + std::string(shortName(context.family)) + " " + calendar.zoneName();
    return {{Text{shown, {.font = {11}}}}, background};
}

Timeline<TimelineEntry> answered(const std::shared_ptr<StubPlan>& plan) {
    const std::scoped_lock lock(plan->mutex);
    if (!plan->failure.empty())
        fatalError(plan->failure);
    Timeline<TimelineEntry> result{{}, {instantFromReference(plan->reloadDate)}};
    for (const StubPlan::Moment& moment : plan->moments)
        result.entries.push_back(stubEntry(instantFromReference(moment.seconds), moment.text, plan));
    return result;
}

std::optional<Gate> gateOf(const std::shared_ptr<StubPlan>& plan) {
    const std::scoped_lock lock(plan->mutex);
    return plan->gate;
}

} // namespace

std::string textOf(const WidgetView& view) {
    return std::get<Text>(view.content.content.kind).text;
}

TimelineEntry stubEntry(Instant date, const std::string& text, const std::shared_ptr<StubPlan>& plan) {
    return {date, [text, plan](const ViewContext& context) {
                ++plan->views;
                return stubContent(text, context);
            }};
}

StaticConfiguration stubWidget(const std::string& kind, const std::shared_ptr<StubPlan>& plan) {
    StaticConfiguration configuration;
    configuration.kind = kind;
    configuration.supportedFamilies = {WidgetFamily::systemSmall, WidgetFamily::systemMedium};
    configuration.getTimeline = [plan](const TimelineProviderContext&) {
        plan->mostAtOnce = std::max(plan->mostAtOnce.load(), ++plan->atOnce);
        ++plan->requests;
        if (const auto gate = gateOf(plan))
            gate->wait();
        --plan->atOnce;
        return answered(plan);
    };
    return configuration;
}

} // namespace vantel::testing
