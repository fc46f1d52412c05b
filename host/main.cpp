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

bool isPicture(const Options& options) {
    return options.task == Task::renderCard || options.task == Task::renderGallery;
}

int main(int count, char** words) {
    useMessageCatalogue();
    const auto options = parseOptions(count, words);
    if (!options) {
        std::fputs(options.error().text.c_str(), options.error().status == 0 ? stdout : stderr);
        return options.error().status;
    }
    if (isPicture(*options))
        ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    const QApplication application(count, words);
    const LocalizedFormats formats(currentFormatLocale());
    const WidgetBundle bundle = VantelWidgetsBundle::body();
    return drawPicture(*options, bundle, SystemCalendar::current(), formats);
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
