#include "host/app/HeadStart.h"

#include <QFontDatabase>
#include <QStringList>

namespace vantel {

void beginFirstPicture(Worker& worker, const Formats& formats) {
    worker.run([&formats] {
        QFontDatabase::families();
        formats.date({}, DateFields::hourMinute);
        formats.timeLeft(Seconds(60));
    });
}

} // namespace vantel
