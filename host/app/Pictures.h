#pragma once

#include "host/scene/Look.h"
#include "hosting/WidgetBundle.h"

#include <QImage>

namespace vantel {

/// What pictures are drawn with. Calls need the application object, but no display.
struct PictureContext {
    const Formats& formats;
    const Calendar& calendar;
    Instant now;
    double scale; ///< pixels for a point
};

/// Makes the fonts for pictures known to the application, and gives a look with them; they lie beside the
/// program or where it is installed. Without them the desktop's fonts stand in.
Look pictureLook(const Appearance& appearance);

/// One card, transparent outside its round corners.
QImage cardPicture(const WidgetView& view, const Look& look, const PictureContext& context);

/// All widgets in all sizes with their sample data, on a light desk and on a dark one.
QImage galleryPicture(const WidgetBundle& bundle, const PictureContext& context);

} // namespace vantel
