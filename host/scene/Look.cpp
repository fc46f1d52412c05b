#include "host/scene/Look.h"

namespace vantel {

namespace {

QSizeF points(WidgetFamily family) {
    switch (family) {
    case WidgetFamily::systemSmall:
        return {170, 170};
    case WidgetFamily::systemMedium:
        return {364, 170};
    case WidgetFamily::systemLarge:
        return {364, 382};
    }
    return {};
}

} // namespace

QSizeF cardSize(WidgetFamily family, double scale) {
    return points(family) * scale;
}

} // namespace vantel
