#include "host/scene/ScenePainter.h"
#include "tests/host/scene/SceneFixture.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

namespace vantel {

namespace {

using namespace testing;

constexpr double tolerance = 0.1;
constexpr double letter = 10; ///< a cut text may leave less than one

Element row(std::vector<Element> children, VerticalAlignment alignment = VerticalAlignment::center) {
    return {Row{std::move(children), alignment, 6}};
}

Element column(std::vector<Element> children, HorizontalAlignment alignment = HorizontalAlignment::leading) {
    return {Column{std::move(children), alignment, 0}};
}

Element block(double width, double height) {
    return {RoundedRectangle{.width = width, .height = height}};
}

Element filling(Element element, StackAlignment alignment = StackAlignment::topLeading) {
    element.frame = {.alignment = alignment, .fill = FrameFill::both};
    return element;
}

std::vector<QRectF> laidOutRectangles(const Element& element) {
    return rectangles(sceneOf(viewOf(element)));
}

TEST(Scene, ContentStandsInsideTheMarginsOfItsCard) {
    EXPECT_EQ(laidOutRectangles(filling(block(10, 10))), std::vector{QRectF(16, 16, 10, 10)});
}

TEST(Scene, ContentThatAsksForNothingStandsInTheMiddle) {
    EXPECT_EQ(laidOutRectangles(block(10, 20)), std::vector{QRectF(80, 75, 10, 20)});
}

TEST(Scene, FractionsOfAPointAreKept) {
    EXPECT_EQ(laidOutRectangles(filling(row({block(2.5, 13), block(9.5, 9.5)}))),
              (std::vector{QRectF(16, 16, 2.5, 13), QRectF(24.5, 17.75, 9.5, 9.5)}));
}

TEST(Scene, FontsOfHalfAPointAreHalfAsWideAsFontsOfOne) {
    const auto width = [](double size) {
        return textRectangles(sceneOf(viewOf(oneLine("Send agenda", size), WidgetFamily::systemMedium)))[0]
            .width();
    };
    for (const double size : {9.5, 10.5, 11.5, 12.5})
        EXPECT_NEAR(width(size), width(2 * size) / 2, 0.01) << size;
}

TEST(Scene, PaddingAtTheEdgeOfACardIsPartOfItsMargin) {
    Element padded = filling(block(10, 10));
    padded.padding = Padding::all(9);
    EXPECT_EQ(laidOutRectangles(padded), std::vector{QRectF(16, 16, 10, 10)});
}

TEST(Scene, PaddingInsideACardKeepsItsRoom) {
    Element inner = block(10, 10);
    inner.padding = {.top = 3, .bottom = 4, .leading = 5, .trailing = 6};
    EXPECT_EQ(laidOutRectangles(filling(column({inner, block(1, 1)}))),
              (std::vector{QRectF(21, 19, 10, 10), QRectF(16, 33, 1, 1)}));
}

TEST(Scene, SpacersShareWhatTheOthersLeave) {
    const Element spacer = {Spacer{}};
    const Element line = filling(row({block(10, 10), spacer, block(10, 10), spacer, block(10, 10)}));
    const auto found = laidOutRectangles(line);
    EXPECT_EQ(found[0].left(), 16);
    EXPECT_EQ(found[1].center().x(), 85);
    EXPECT_EQ(found[2].right(), 154);
}

TEST(Scene, ASpacerKeepsItsLeastLengthWhenTextsAreTooLong) {
    const std::string words(200, 'x');
    const Element line = filling(row({oneLine(words), {Spacer{.minLength = 20}}, oneLine("12:00")}));
    const auto found = textRectangles(sceneOf(viewOf(line)));
    const double gap = found[1].left() - found[0].right();
    EXPECT_GE(gap, 6 + 20 + 6 - tolerance);
    EXPECT_LE(gap, 6 + 20 + 6 + letter);
    EXPECT_NEAR(found[1].right(), 154, tolerance);
}

TEST(Scene, TheLongestTextIsCutAndTheShortOnesAreKept) {
    const Element line = filling(row({oneLine(std::string(200, 'x')), oneLine("tomorrow")}));
    const auto cut = textRectangles(sceneOf(viewOf(line)));
    const auto alone = textRectangles(sceneOf(viewOf(oneLine("tomorrow"))));
    EXPECT_NEAR(cut[1].width(), alone[0].width(), tolerance);
    const double total = cut[0].width() + 6 + cut[1].width();
    EXPECT_LE(total, 138 + tolerance);
    EXPECT_GE(total, 138 - letter);
}

TEST(Scene, RowsAlignOnTheFirstBaseline) {
    const Element line = row({oneLine("6", 34), oneLine("due", 11)}, VerticalAlignment::firstTextBaseline);
    const scene::Scene scene = sceneOf(viewOf(line));
    const auto baseline = [&](std::size_t i) {
        return std::get<scene::TextPiece>(scene.pieces[i].drawing).baselines.front().y();
    };
    EXPECT_NEAR(baseline(0), baseline(1), 1e-9);
    EXPECT_LT(scene.pieces[0].rectangle.top(), scene.pieces[1].rectangle.top());
}

struct AlignmentRow {
    VerticalAlignment alignment;
    double top;
};

TEST(Scene, RowsAlignTheirChildrenAcross) {
    const AlignmentRow rows[] = {
        {VerticalAlignment::top, 16}, {VerticalAlignment::center, 26}, {VerticalAlignment::bottom, 36}};
    for (const auto& [alignment, top] : rows)
        EXPECT_EQ(laidOutRectangles(filling(row({block(1, 30), block(1, 10)}, alignment)))[1].top(), top);
}

TEST(Scene, ColumnsAlignTheirChildrenAcross) {
    const std::pair<HorizontalAlignment, double> rows[] = {{HorizontalAlignment::leading, 16},
                                                           {HorizontalAlignment::center, 26},
                                                           {HorizontalAlignment::trailing, 36}};
    for (const auto& [alignment, left] : rows)
        EXPECT_EQ(laidOutRectangles(filling(column({block(30, 1), block(10, 1)}, alignment)))[1].left(),
                  left);
}

TEST(Scene, StacksPutTheirChildrenOverEachOther) {
    const Element stack = {Stack{{block(30, 30), block(10, 10)}, StackAlignment::center}};
    const auto found = laidOutRectangles(stack);
    EXPECT_EQ(found[0].center(), found[1].center());
}

TEST(Scene, ARuleTakesTheWholeLength) {
    const Element vertical = {Rule{.axis = Axis::vertical}};
    EXPECT_EQ(laidOutRectangles(filling(column({{Rule{}}})))[0], QRectF(16, 16, 138, 1));
    EXPECT_EQ(laidOutRectangles(filling(row({vertical})))[0], QRectF(16, 16, 1, 138));
}

std::size_t lineCount(const Element& element) {
    const scene::Scene scene = sceneOf(viewOf(element));
    return std::get<scene::TextPiece>(scene.pieces.front().drawing).block.lines.size();
}

TEST(Scene, TextsBreakAtWordsAsFarAsTheirLimit) {
    const std::string words =
        "Group meeting: single-cell pipeline, next steps and who writes what until when";
    const auto limited = [&](std::optional<int> limit) {
        return Element{Text{words, {.font = {12}, .lineLimit = limit}}};
    };
    EXPECT_EQ(lineCount(limited(1)), 1);
    EXPECT_EQ(lineCount(limited(2)), 2);
    EXPECT_GE(lineCount(limited(std::nullopt)), 4);
}

TEST(Scene, ATextWithoutALimitEndsWhereTheCardEnds) {
    std::string words;
    for (int i = 0; i < 300; ++i)
        words += "word ";
    const auto found = textRectangles(sceneOf(viewOf(filling(column({text(words)})))));
    EXPECT_LE(found[0].bottom(), 154 + tolerance);
}

TEST(Scene, ATextThatMayShrinkDoesSoBeforeItIsCut) {
    Element time = {Text{"11:40 AM", {.font = {10}, .lineLimit = 1, .minimumScaleFactor = 0.5}}};
    time.frame.width = 36;
    const auto runs = [](const Element& element) {
        const scene::Scene scene = sceneOf(viewOf(element));
        return std::get<scene::TextPiece>(scene.pieces.front().drawing).block.lines.front();
    };
    const auto whole = runs(oneLine("11:40 AM"));
    const auto shrunk = runs(time);
    EXPECT_LE(shrunk.width, 36 + tolerance);
    EXPECT_EQ(shrunk.glyphs.front().glyphIndexes(), whole.glyphs.front().glyphIndexes());
}

TEST(Scene, RightToLeftLayoutsAreMirrored) {
    const Element line = filling(row({block(10, 10), block(20, 10)}));
    const scene::Scene scene = sceneOf(viewOf(line), instantFromReference(0), Qt::RightToLeft);
    EXPECT_EQ(rectangles(scene), (std::vector{QRectF(144, 16, 10, 10), QRectF(118, 16, 20, 10)}));
}

QImage drawn(const std::string& words, Qt::LayoutDirection direction) {
    QImage picture(170, 170, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    scene::paint(painter, sceneOf(viewOf(text(words, 40)), instantFromReference(0), direction), testLook());
    return picture;
}

/// Where the ink of a picture lies on average, from its left edge.
double centreOfInk(const QImage& picture) {
    double ink = 0;
    double moment = 0;
    for (int y = 60; y < 110; ++y)
        for (int x = 0; x < 170; ++x) {
            const int darkness = 255 - picture.pixelColor(x, y).green();
            ink += darkness;
            moment += darkness * (x + 0.5);
        }
    return moment / ink;
}

TEST(Scene, AnArrowPointsToWhereTheReadingGoesOn) {
    const double forward = centreOfInk(drawn("▸", Qt::LeftToRight));
    const double backward = centreOfInk(drawn("▸", Qt::RightToLeft));
    EXPECT_GT(std::abs(forward - 85), 0.5);
    EXPECT_NEAR(forward + backward, 170, 0.1);
}

TEST(Scene, AnArrowInsideATextIsATextLikeAnyOther) {
    EXPECT_EQ(drawn("a▸", Qt::RightToLeft), drawn("a▸", Qt::LeftToRight));
}

QColor darkestOf(const QImage& picture) {
    QColor darkest = Qt::white;
    for (int y = 60; y < 110; ++y)
        for (int x = 0; x < 170; ++x)
            if (picture.pixelColor(x, y).green() < darkest.green())
                darkest = picture.pixelColor(x, y);
    return darkest;
}

QColor pale(const Appearance& appearance, double opacity) {
    Element words = text("MMM", 40);
    std::get<Text>(words.kind).style.color = PrimaryColor{opacity};
    QImage picture(170, 170, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    scene::paint(painter, sceneOf(viewOf(words)), testLook(appearance));
    return darkestOf(picture);
}

TEST(Scene, PaleTextsAreReadWithEaseAtHighContrastAlone) {
    EXPECT_GE(pale(Appearance::aqua(), 0.3).green(), 0xB0);
    EXPECT_LE(pale(Appearance::highContrastAqua(), 0.3).green(), 0x59);
    EXPECT_EQ(pale(Appearance::highContrastAqua(), 1), QColor(Qt::black));
    EXPECT_EQ(pale(Appearance::aqua(), 1), QColor(0x1B, 0x1A, 0x17));
}

TEST(Scene, EveryLinkAndTextIsReadInTheOrderOfTheView) {
    Element count = row({oneLine("6"), oneLine("due")});
    count.accessibilityLabel = "6 due";
    Element button = {Button{IntentCall{"Complete", {{"todoID", "t-1"}}}, Element{Symbol{"circle"}}}};
    button.accessibilityLabel = "Complete: Send agenda";
    const Element link = {Link{Url{"vantel://todo?id=t-1"}, oneLine("Send agenda")}};
    const scene::Scene scene = sceneOf(viewOf(column({oneLine("FOCUS"), count, row({button, link})})));
    std::vector<QString> words;
    for (const auto& reading : scene.reading) {
        const auto* target = std::get_if<scene::Target>(&reading);
        words.push_back(target != nullptr ? target->label : std::get<scene::Spoken>(reading).text);
    }
    const auto literal = [](const char* english) { return QString::fromUtf8(english); };
    EXPECT_EQ(words, (std::vector{literal("FOCUS"), literal("6 due"), literal("Complete: Send agenda"),
                                  literal("Send agenda")}));
}

TEST(Scene, ACountdownShowsWhatIsLeftAndIsRemembered) {
    const WidgetView view = viewOf({RelativeTime{instantFromReference(2400), {.font = {22}}}});
    EXPECT_EQ(sceneOf(view).countdowns, std::vector{instantFromReference(2400)});
    EXPECT_NE(textRectangles(sceneOf(view))[0].width(),
              textRectangles(sceneOf(view, instantFromReference(2399)))[0].width());
}

TEST(Scene, AnEmptyViewHasNothingToDraw) {
    EXPECT_TRUE(sceneOf(viewOf(column({}))).pieces.empty());
    EXPECT_TRUE(sceneOf(viewOf(row({}))).pieces.empty());
}

} // namespace

} // namespace vantel
