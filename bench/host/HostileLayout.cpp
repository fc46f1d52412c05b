#include "core/WidgetSnapshot.h"
#include "host/scene/Scene.h"
#include "platform/LocalizedFormats.h"
#include "platform/SystemCalendar.h"
#include "tests/fakes/HostileTexts.h"
#include "widgets/VantelWidgetsBundle.h"

#include <QGuiApplication>
#include <cstdio>
#include <ctime>

/// Lays out every widget with every hostile text in every place of it, and prints the slowest, beside the
/// frame that a screen of 60 Hz gives.
namespace vantel {
namespace {

const SystemCalendar utc(cctz::utc_time_zone());
const Instant morning = *utc.date(2026, 11, 17, 9);

WidgetSnapshot dayOf(const std::string& text) {
    WidgetSnapshot day = WidgetSnapshot::placeholder(morning, utc);
    for (WidgetTask& task : day.tasks)
        task.summary = text;
    for (WidgetEvent& event : day.events) {
        event.title = text;
        event.location = text;
        event.joinProvider = text;
    }
    for (WidgetChip& chip : day.allDayChips)
        chip.text = text;
    for (WidgetHorizonItem& item : day.horizon)
        item.label = item.subject = text;
    return day;
}

constexpr double frame = 1000.0 / 60;

struct Slowest {
    double milliseconds = 0; ///< of processor time
    std::string what = {};
    int layouts = 0;
    int withinAFrame = 0;
};

void layOut(const std::string& text, const std::string& attempt, const Formats& formats, Slowest& slowest) {
    const auto day = std::make_shared<const WidgetSnapshot>(dayOf(text));
    const Look look;
    for (const StaticConfiguration& widget : VantelWidgetsBundle::body().widgets)
        for (const WidgetFamily family : widget.supportedFamilies) {
            const auto entry = VantelWidgetsBundle::entry(widget.kind, {morning, day});
            const auto view = renderedView(widget, entry, {family, utc, formats});
            const std::clock_t begin = std::clock();
            std::ignore = scene::laidOut(*view, {look, formats, morning, Qt::LeftToRight});
            const double took = 1000.0 * static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
            ++slowest.layouts;
            slowest.withinAFrame += took < frame ? 1 : 0;
            if (took >= frame)
                std::printf("%15.1f ms: %s, %s\n", took, attempt.c_str(), widget.kind.c_str());
            if (took > slowest.milliseconds) {
                slowest.milliseconds = took;
                slowest.what = attempt + ", " + widget.kind;
            }
        }
}

Slowest slowestOf(const std::vector<testing::HostileText>& texts, const Formats& formats) {
    Slowest slowest;
    for (const testing::HostileText& hostile : texts)
        layOut(hostile.text, hostile.attempt, formats, slowest);
    return slowest;
}

/// Whether none of them takes a frame or more.
bool print(const char* what, const Slowest& slowest) {
    std::printf("%-15s %d of %d layouts within a frame, the slowest %.1f ms (%s)\n", what,
                slowest.withinAFrame, slowest.layouts, slowest.milliseconds, slowest.what.c_str());
    std::fflush(stdout);
    return slowest.withinAFrame == slowest.layouts;
}

bool isWithinAFrame(const char* when, const Formats& formats) {
    std::printf("%s\n", when);
    const bool areTexts = print("hostile texts", slowestOf(testing::hostileTexts(), formats));
    return print("four megabytes", slowestOf(testing::hugeTexts(), formats)) && areTexts;
}

int main(int count, char** arguments) {
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    const QGuiApplication application(count, arguments);
    const LocalizedFormats formats("en_GB");
    isWithinAFrame("at first, when fonts are loaded", formats);
    return isWithinAFrame("again", formats) ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace
} // namespace vantel

int main(int count, char** arguments) {
    return vantel::main(count, arguments);
}
