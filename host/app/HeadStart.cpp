#include "host/app/HeadStart.h"

#include <QFontDatabase>
#include <QStringList>
#include <tuple>

namespace vantel {

void beginFirstPicture(Worker& worker, const Formats& formats) {
    // Where there is no thread for it, it is done when it is needed.
    std::ignore = worker.run([&formats] {
        QFontDatabase::families();
        formats.date({}, DateFields::hourMinute);
    });
}

} // namespace vantel
