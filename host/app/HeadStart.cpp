#include "host/app/HeadStart.h"

#include <QFontDatabase>
#include <QStringList>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <tuple>

#include <fontconfig/fontconfig.h>

namespace vantel {

namespace {

constexpr std::array launchVariables{"DESKTOP_STARTUP_ID", "XDG_ACTIVATION_TOKEN"};

bool isWrittenByToolkit(const char* variable) {
    return std::getenv(variable) != nullptr;
}

} // namespace

void beginFonts(Worker& worker) {
    if (!std::ranges::any_of(launchVariables, isWrittenByToolkit))
        std::ignore = worker.run([] { FcInit(); });
}

void beginFirstPicture(Worker& worker, const Formats& formats) {
    // Where there is no thread for it, it is done when it is needed.
    std::ignore = worker.run([&formats] {
        QFontDatabase::families();
        formats.date({}, DateFields::hourMinute);
    });
}

} // namespace vantel
