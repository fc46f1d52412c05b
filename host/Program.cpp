#include "host/starter/Program.h"

#include "core/WidgetShared.h"
#include "host/app/Display.h"
#include "host/app/HeadStart.h"
#include "host/app/HostApplication.h"
#include "host/app/ToolkitWords.h"
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
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <expected>
#include <optional>
#include <string>
#include <utility>

namespace vantel {

namespace {

HostedWidgets hostedWidgets() {
    return {
        VantelWidgetsBundle::body(),
        [](const std::string& kind, Instant now) { return VantelWidgetsBundle::entry(kind, {now, nullptr}); },
        WTokens::windowBg, std::string(WidgetShared::urlScheme)};
}

/// A provider that waits for a lock may still run in a thread of its own, or the fonts be read. They must not
/// meet what a program takes down as it ends; the kernel takes everything down at once.
[[noreturn]] void leave(int status) {
    std::fflush(nullptr);
    std::_Exit(status);
}

/// Before anything is written into the environment. Without end, as on a disk of the network that hangs: no
/// card could be drawn either.
void await(const EarlyFonts& fonts) {
    if (fonts.valid())
        fonts.wait();
}

/// What the toolkit calls what it shall draw on.
std::expected<std::string, BackEndProblem> preparedPlatform(const Options& options, const EarlyFonts& fonts) {
    if (options.task == Task::renderCard || options.task == Task::renderGallery)
        return prepareMemory();
    const auto choice = chooseBackEnd(displayFacts(options.backEnd));
    if (!choice)
        return std::unexpected(choice.error());
    if (choice->backEnd == BackEnd::wayland)
        await(fonts);
    return preparePlatform(choice->backEnd);
}

void complain(const char* sentenceKey) {
    const LocalizedFormats formats(currentFormatLocale());
    std::fprintf(stderr, "vantel-widgets: %s\n", formats.translated(sentenceKey).c_str());
}

/// Pictures need no bus.
BusKnock knockAtSessionBus(Task task) {
    return task == Task::run || task == Task::showGallery ? sessionBusAddress() : QString();
}

std::optional<HiddenBus> hideIfSilent(BusKnock& sessionBus, const EarlyFonts& fonts) {
    if (sessionBus.answer() != BusKnock::Answer::silence)
        return std::nullopt;
    await(fonts);
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

int main(int count, char** words, const EarlyFonts& fonts) {
    useMessageCatalogue();
    const auto options = parseOptions(count, words);
    if (!options) {
        std::fputs(options.error().text.c_str(), options.error().status == 0 ? stdout : stderr);
        return options.error().status;
    }
    if (options->task == Task::examine)
        leave(examine(LocalizedFormats(currentFormatLocale())));
    BusKnock sessionBus = knockAtSessionBus(options->task);
    const auto platform = preparedPlatform(*options, fonts);
    if (!platform) {
        complain(sentenceKey(platform.error()));
        leave(EXIT_FAILURE);
    }
    introduceProgram();
    auto hiddenBus = hideIfSilent(sessionBus, fonts);
    ToolkitWords toolkitWords(words[0], *platform);
    Worker worker;
    const QApplication application(toolkitWords.count(), toolkitWords.words());
    await(fonts); // What follows may write the environment at any time.
    hiddenBus.reset();
    releaseDisplay();
    const std::string locale = currentFormatLocale();
    QApplication::setLayoutDirection(QLocale(QString::fromStdString(locale)).textDirection());
    const LocalizedFormats formats(locale);
    return perform(*options, formats, std::move(sessionBus), worker);
}

} // namespace

} // namespace vantel

extern "C" int vantelWidgets(int count, char** words, const vantel::EarlyFonts& fonts) {
    try {
        return vantel::main(count, words, fonts);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "vantel-widgets: fatal: %s\n", error.what());
        vantel::leave(EXIT_FAILURE);
    }
}
