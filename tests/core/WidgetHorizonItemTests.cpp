#include "core/WidgetHorizonItem.h"

#include <gtest/gtest.h>

namespace vantel {
namespace {

using namespace std::string_view_literals;
using Kind = WidgetHorizonItem::Kind;

TEST(WidgetHorizonItem, KindsHaveTheirRawValues) {
    const struct {
        Kind kind;
        std::string_view raw;
    } rows[] = {{Kind::personDate, "personDate"},
                {Kind::grantDeadline, "grantDeadline"},
                {Kind::grantMilestone, "grantMilestone"},
                {Kind::absence, "absence"}};
    for (const auto& row : rows) {
        EXPECT_EQ(rawValue(row.kind), row.raw);
        EXPECT_EQ(horizonItemKind(row.raw), row.kind);
    }
}

TEST(WidgetHorizonItem, AnyOtherTextIsNoKind) {
    for (const std::string_view text :
         {""sv, "PersonDate"sv, "PERSONDATE"sv, "personDate "sv, " personDate"sv, "personDat"sv,
          "personDates"sv, "absence\0"sv, "holiday"sv, "0"sv})
        EXPECT_FALSE(horizonItemKind(text)) << text;
}

} // namespace
} // namespace vantel
