#include "host/desk/Placements.h"

#include <gtest/gtest.h>

namespace vantel {

namespace {

constexpr char oneWidget[] =
    R"({"version":1,"placements":[{"id":"00000000-0000-4000-8000-000000000001","kind":"VantelFocusWidget",)"
    R"("family":"systemMedium","monitor":{"manufacturer":"Acme","model":"M27","serial":"7","name":"DP-1"},)"
    R"("corner":"bottomLeft","horizontal":24,"vertical":-3}]})";

Placement onePlacement() {
    return {.id = *parseUuid("00000000-0000-4000-8000-000000000001"),
            .kind = "VantelFocusWidget",
            .family = WidgetFamily::systemMedium,
            .monitor = {"Acme", "M27", "7", "DP-1"},
            .corner = Corner::bottomLeft,
            .margins = {24, -3}};
}

std::string replaced(std::string text, std::string_view from, std::string_view to) {
    return text.replace(text.find(from), from.size(), to);
}

TEST(Placements, AreWrittenAsOneCompactDocument) {
    EXPECT_EQ(writePlacements({onePlacement()}), oneWidget);
    EXPECT_EQ(writePlacements({}), R"({"version":1,"placements":[]})");
}

TEST(Placements, ReadBackAsTheyWereWritten) {
    Placement other = onePlacement();
    other.id.bytes[0] = 9;
    other.corner = Corner::topRight;
    const Placements both{onePlacement(), other};
    EXPECT_EQ(parsePlacements(writePlacements(both).value()), both);
}

TEST(Placements, OfAMonitorThatSaysNothingKeepItsEmptyIdentity) {
    const auto read = parsePlacements(replaced(
        oneWidget, R"("monitor":{"manufacturer":"Acme","model":"M27","serial":"7","name":"DP-1"},)", ""));
    ASSERT_TRUE(read);
    EXPECT_EQ(read->front().monitor, MonitorIdentity());
}

TEST(Placements, RememberTheFrameOfTheirMonitorWhereItIsKnown) {
    Placement placement = onePlacement();
    placement.frame = {-1920, 0, 1920, 1080};
    const std::string written = writePlacements({placement}).value();
    EXPECT_NE(written.find(R"("frame":{"x":-1920,"y":0,"width":1920,"height":1080},"corner")"),
              std::string::npos)
        << written;
    EXPECT_EQ(parsePlacements(written), Placements{placement});
}

TEST(Placements, BeyondAnyScreenAreBroughtIntoReach) {
    const auto read = parsePlacements(replaced(oneWidget, ":24", ":9000000000"));
    ASSERT_TRUE(read);
    EXPECT_EQ(read->front().margins.horizontal, 1'000'000);
}

struct Refused {
    const char* from;
    const char* to;
    const char* message;
};

class RefusedPlacements : public ::testing::TestWithParam<Refused> {};

TEST_P(RefusedPlacements, AreRefusedWithTheirPlaceAndReason) {
    const auto& [from, to, expected] = GetParam();
    const auto read = parsePlacements(replaced(oneWidget, from, to));
    ASSERT_FALSE(read);
    EXPECT_EQ(message(read.error()), expected);
}

INSTANTIATE_TEST_SUITE_P(
    All, RefusedPlacements,
    ::testing::Values(Refused{"\"version\":1", "\"version\":2", "version: not 1"},
                      Refused{"\"version\":1,", "", "version: missing"},
                      Refused{"systemMedium", "medium", "placements[0].family: not a known size"},
                      Refused{"systemMedium", "systemVast", "placements[0].family: not a known size"},
                      Refused{"bottomLeft", "BottomLeft", "placements[0].corner: not a corner"},
                      Refused{"\"id\":\"0", "\"id\":\"", "placements[0].id: not an identifier"},
                      Refused{"24", "24.5", "placements[0].horizontal: not a 64-bit integer"},
                      Refused{"\"kind\":\"VantelFocusWidget\",", "", "placements[0].kind: missing"}));

TEST(Placements, WithOneIdentifierTwiceAreRefused) {
    const auto read = parsePlacements(writePlacements({onePlacement(), onePlacement()}).value());
    ASSERT_FALSE(read);
    EXPECT_EQ(message(read.error()),
              "placements: two have the identifier 00000000-0000-4000-8000-000000000001");
}

} // namespace

} // namespace vantel
