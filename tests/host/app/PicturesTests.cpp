#include "host/app/Pictures.h"
#include "platform/InstantText.h"
#include "platform/SystemCalendar.h"
#include "tests/host/PictureGoldens.h"
#include "tests/host/scene/SceneFixture.h"
#include "widgets/VantelWidgetsBundle.h"
#include "widgets/WidgetNames.h"

#include <gtest/gtest.h>

namespace vantel {

namespace {

using namespace testing;

PictureContext context() {
    return {plainFormats(), berlin(), at("2026-11-17T09:20"), 1};
}

QImage preview(const StaticConfiguration& widget, WidgetFamily family, const Appearance& appearance) {
    const FixedClock clock(context().now);
    const TimelineEntry entry = widget.getSnapshot({clock, berlin(), family, true});
    const auto view = renderedView(widget, entry, {family, berlin(), plainFormats()});
    return cardPicture(view.value(), testLook(appearance), context());
}

TEST(Pictures, EveryWidgetLooksAsItDidInEverySizeAndAppearance) {
    for (const StaticConfiguration& widget : VantelWidgetsBundle::body().widgets)
        for (const WidgetFamily family : widget.supportedFamilies)
            for (const bool isDark : {false, true})
                expectPicture(std::string(shortNameOf(widget.kind)) + "-" + std::string(shortName(family)) +
                                  (isDark ? "-dark" : "-light"),
                              preview(widget, family, isDark ? Appearance::darkAqua() : Appearance::aqua()));
}

TEST(Pictures, HighContrastLooksAsItDid) {
    const StaticConfiguration focus = VantelWidgetsBundle::body().widgets[0];
    expectPicture("focus-medium-high-contrast-light",
                  preview(focus, WidgetFamily::systemMedium, Appearance::highContrastAqua()));
    expectPicture("focus-medium-high-contrast-dark",
                  preview(focus, WidgetFamily::systemMedium, Appearance::highContrastDarkAqua()));
}

TEST(Pictures, TheSamePictureComesOutTwice) {
    const WidgetBundle bundle = VantelWidgetsBundle::body();
    EXPECT_EQ(galleryPicture(bundle, context()), galleryPicture(bundle, context()));
}

TEST(Pictures, CornersAreTransparentAndTheCardIsNot) {
    const WidgetBundle bundle = VantelWidgetsBundle::body();
    const QImage card = preview(bundle.widgets[0], WidgetFamily::systemSmall, Appearance::aqua());
    EXPECT_EQ(card.pixelColor(0, 0).alpha(), 0);
    EXPECT_EQ(card.pixelColor(169, 169).alpha(), 0);
    EXPECT_EQ(card.pixelColor(85, 2), QColor(0xF5, 0xF4, 0xF1));
}

} // namespace

} // namespace vantel
