#include "host/app/Display.h"
#include "host/app/HostApplication.h"
#include "host/app/PictureTasks.h"
#include "platform/FormatLocale.h"
#include "platform/LocalizedFormats.h"
#include "platform/MessageCatalogue.h"
#include "widgets/VantelWidgetsBundle.h"

#include <QApplication>
#include <cstdio>
#include <cstdlib>
#include <exception>

namespace vantel {

namespace {

HostedWidgets hostedWidgets() {
    return {VantelWidgetsBundle::body(), [](const std::string& kind, Instant now) {
                return VantelWidgetsBundle::entry(kind, {now, nullptr});
            }};
}

int perform(const Options& options, const Formats& formats) {
    switch (options.task) {
    case Task::run:
        return HostApplication(hostedWidgets(), formats).run();
    case Task::showGallery:
        return HostApplication(hostedWidgets(), formats).runWithGallery();
    case Task::renderCard:
    case Task::renderGallery:
        return drawPicture(options, VantelWidgetsBundle::body(), SystemCalendar::current(), formats);
    }
    return EXIT_FAILURE;
}

int main(int count, char** words) {
    useMessageCatalogue();
    const auto options = parseOptions(count, words);
    if (!options) {
        std::fputs(options.error().text.c_str(), options.error().status == 0 ? stdout : stderr);
        return options.error().status;
    }
    if (const auto problem = chooseDisplay(options->task)) {
        std::fprintf(stderr, "vantel-widgets: %s\n", problem->c_str());
        return EXIT_FAILURE;
    }
    QApplication::setApplicationName(QStringLiteral("vantel-widgets"));
    QApplication::setDesktopFileName(QStringLiteral("org.vantel.Widgets"));
    const QApplication application(count, words);
    const LocalizedFormats formats(currentFormatLocale());
    return perform(*options, formats);
}

} // namespace

} // namespace vantel

int main(int count, char** words) {
    try {
        return vantel::main(count, words);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "vantel-widgets: fatal: %s\n", error.what());
        return EXIT_FAILURE;
    }
}
