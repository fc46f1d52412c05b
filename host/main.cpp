#include "core/WidgetShared.h"
#include "host/app/Display.h"
#include "host/app/HeadStart.h"
#include "host/app/HostApplication.h"
#include "host/bus/BusKnock.h"
#include "host/bus/HiddenBus.h"
#include "host/doctor/Doctor.h"
#include "host/tasks/PictureTasks.h"
#include "platform/FormatLocale.h"
#include "platform/LocalizedFormats.h"
#include "platform/MessageCatalogue.h"
#include "platform/TextKey.h"
#include "widgets/VantelWidgetsBundle.h"
#include "widgets/WTokens.h"

#include <QApplication>
#include <QLocale>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <utility>

#include <malloc.h>

namespace vantel {

namespace {

/// They may lie on a disk of the network; no card is drawn without them.
constexpr std::chrono::minutes patienceForFonts{1};

HostedWidgets hostedWidgets() {
    return {
        VantelWidgetsBundle::body(),
        [](const std::string& kind, Instant now) { return VantelWidgetsBundle::entry(kind, {now, nullptr}); },
        WTokens::windowBg, std::string(WidgetShared::urlScheme)};
}

/// A provider that waits for a lock may still run in a thread of its own. It must not meet what a program
/// takes down as it ends; the kernel takes everything down at once.
[[noreturn]] void leave(int status) {
    std::fflush(nullptr);
    std::_Exit(status);
}

std::optional<BackEndProblem> prepareDisplay(const Options& options) {
    if (options.task == Task::renderCard || options.task == Task::renderGallery) {
        useMemory();
        return std::nullopt;
    }
    const auto choice = chooseBackEnd(displayFacts(options.backEnd));
    if (!choice)
        return choice.error();
    useBackEnd(choice->backEnd);
    return std::nullopt;
}

void complain(const char* sentenceKey) {
    const LocalizedFormats formats(currentFormatLocale());
    std::fprintf(stderr, "vantel-widgets: %s\n", formats.translated(sentenceKey).c_str());
}

/// Pictures need no bus.
BusKnock knockAtSessionBus(Task task) {
    return task == Task::run || task == Task::showGallery ? sessionBusAddress() : QString();
}

std::optional<HiddenBus> hideIfSilent(BusKnock& sessionBus) {
    if (sessionBus.answer() != BusKnock::Answer::silence)
        return std::nullopt;
    complain(
        textKey("the session bus does not answer; screen readers hear the widgets after their next start"));
    return std::make_optional<HiddenBus>();
}

void introduceProgram() {
    QApplication::setApplicationName(QStringLiteral("vantel-widgets"));
    QApplication::setDesktopFileName(QStringLiteral("org.vantel.Widgets"));
    // A menu that becomes a window of its own must not make one of the card it belongs to.
    QCoreApplication::setAttribute(Qt::AA_DontCreateNativeWidgetSiblings);
}

int perform(const Options& options, const Formats& formats, BusKnock sessionBus, Worker& worker) {
    switch (options.task) {
    case Task::run:
        beginFirstPicture(worker, formats);
        leave(HostApplication(hostedWidgets(), formats, std::move(sessionBus)).run());
    case Task::showGallery:
        beginFirstPicture(worker, formats);
        leave(HostApplication(hostedWidgets(), formats, std::move(sessionBus)).runWithGallery());
    case Task::renderCard:
    case Task::renderGallery:
        return drawPicture(options, VantelWidgetsBundle::body(), SystemCalendar::current(), formats);
    case Task::examine: // needs no display, and was done
        break;
    }
    return EXIT_FAILURE;
}

int main(int count, char** words) {
    ::mallopt(M_ARENA_MAX, 1);     // A heap for each short-lived worker would grow for years.
    std::signal(SIGXFSZ, SIG_IGN); // A file that may not grow is an error to report, not the end.
    useMessageCatalogue();
    const auto options = parseOptions(count, words);
    if (!options) {
        std::fputs(options.error().text.c_str(), options.error().status == 0 ? stdout : stderr);
        return options.error().status;
    }
    if (options->task == Task::examine)
        leave(examine(LocalizedFormats(currentFormatLocale())));
    BusKnock sessionBus = knockAtSessionBus(options->task);
    if (const auto problem = prepareDisplay(*options)) {
        complain(sentenceKey(*problem));
        return EXIT_FAILURE;
    }
    introduceProgram();
    auto hiddenBus = hideIfSilent(sessionBus);
    Worker worker;
    beginFonts(worker);
    const QApplication application(count, words);
    worker.drain(patienceForFonts); // What follows writes the environment.
    hiddenBus.reset();
    releasePlatform();
    const std::string locale = currentFormatLocale();
    QApplication::setLayoutDirection(QLocale(QString::fromStdString(locale)).textDirection());
    const LocalizedFormats formats(locale);
    return perform(*options, formats, std::move(sessionBus), worker);
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
