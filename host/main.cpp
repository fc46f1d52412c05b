#include "host/app/Display.h"
#include "host/app/HeadStart.h"
#include "host/app/HostApplication.h"
#include "host/app/PictureTasks.h"
#include "host/doctor/Doctor.h"
#include "platform/FormatLocale.h"
#include "platform/LocalizedFormats.h"
#include "platform/MessageCatalogue.h"
#include "widgets/VantelWidgetsBundle.h"

#include <QApplication>
#include <QLocale>
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

/// A provider that waits for a lock may still run in a thread of its own. It must not meet what a program
/// takes down as it ends; the kernel takes everything down at once.
[[noreturn]] void leave(int status) {
    std::fflush(nullptr);
    std::_Exit(status);
}

int perform(const Options& options, const Formats& formats) {
    Worker worker;
    switch (options.task) {
    case Task::run:
        beginFirstPicture(worker, formats);
        leave(HostApplication(hostedWidgets(), formats).run());
    case Task::showGallery:
        beginFirstPicture(worker, formats);
        leave(HostApplication(hostedWidgets(), formats).runWithGallery());
    case Task::renderCard:
    case Task::renderGallery:
        return drawPicture(options, VantelWidgetsBundle::body(), SystemCalendar::current(), formats);
    case Task::examine: // needs no display, and was done
        break;
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
    if (options->task == Task::examine)
        leave(examine(LocalizedFormats(currentFormatLocale())));
    const bool isPlatformChosen = std::getenv(platformVariable) != nullptr;
    if (const auto problem = chooseDisplay(options->task)) {
        std::fprintf(stderr, "vantel-widgets: %s\n", problem->c_str());
        return EXIT_FAILURE;
    }
    QApplication::setApplicationName(QStringLiteral("vantel-widgets"));
    QApplication::setDesktopFileName(QStringLiteral("org.vantel.Widgets"));
    const QApplication application(count, words);
    if (!isPlatformChosen) // programs that are started from here choose for themselves
        ::unsetenv(platformVariable);
    const std::string locale = currentFormatLocale();
    QApplication::setLayoutDirection(QLocale(QString::fromStdString(locale)).textDirection());
    const LocalizedFormats formats(locale);
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
