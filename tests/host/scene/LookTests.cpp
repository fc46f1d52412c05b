#include "host/scene/Look.h"

#include <gtest/gtest.h>

namespace vantel {

namespace {

TEST(Look, ACardGrowsAsAWholeWithTheScale) {
    EXPECT_EQ(cardSize(WidgetFamily::systemSmall, 1), QSizeF(170, 170));
    EXPECT_EQ(cardSize(WidgetFamily::systemMedium, 1), QSizeF(364, 170));
    EXPECT_EQ(cardSize(WidgetFamily::systemMedium, 1.25), QSizeF(455, 212.5));
}

} // namespace

} // namespace vantel
