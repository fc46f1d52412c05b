#include "core/SnapshotDocument.h"
#include "platform/DataFile.h"
#include "platform/InstantText.h"
#include "platform/LocalizedFormats.h"
#include "tests/host/scene/SceneFixture.h"
#include "widgets/VantelWidgetsBundle.h"

#include <gtest/gtest.h>

namespace vantel {

namespace {

using namespace testing;

std::shared_ptr<const WidgetSnapshot> sample(const std::string& name) {
    const auto bytes = readFile(std::string(VANTEL_TEST_DATA "/samples/") + name, systemFileSystem());
    return std::make_shared<const WidgetSnapshot>(decodeSnapshot(bytes.value()).value());
}

/// A line that no card has room for, in a few scripts.
std::string hostile(const std::string& before) {
    std::string words = before + " <img src=x> \u202E \u05E9\u05DC\u05D5\u05DD 漢字かな مرحبا ";
    for (int i = 0; i < 100; ++i)
        words += "Donaudampfschifffahrtsgesellschaft" + std::string(i % 3, ' ');
    return words;
}

std::shared_ptr<const WidgetSnapshot> hostileSnapshot(Instant now) {
    WidgetSnapshot snapshot = WidgetSnapshot::placeholder(now, berlin());
    snapshot.triageCount = std::numeric_limits<std::int64_t>::max() / 100;
    for (WidgetTask& task : snapshot.tasks)
        task.summary = hostile(task.id);
    for (WidgetEvent& event : snapshot.events) {
        event.title = hostile(event.id);
        event.location = hostile("room");
        event.joinProvider = hostile("provider");
    }
    for (WidgetHorizonItem& item : snapshot.horizon)
        item.label = hostile(item.subject);
    return std::make_shared<const WidgetSnapshot>(std::move(snapshot));
}

struct Day {
    const char* name;
    const char* moment;
};

constexpr Day days[] = {
    {"busy-tuesday.json", "2026-11-17T09:20"}, {"imminent.json", "2026-11-17T09:57"},
    {"running.json", "2026-11-17T10:30"},      {"friday-recap.json", "2026-11-20T15:30"},
    {"evening.json", "2026-11-17T19:10"},      {"stale.json", "2026-11-19T11:00"},
    {"all-clear.json", "2026-11-18T12:00"},    {"legacy-unbound.json", "2026-11-17T09:20"},
    {"heavy.json", "2026-11-17T09:20"}};

/// Every view of a snapshot at a moment, in a locale.
template <typename Check>
void forEachView(std::shared_ptr<const WidgetSnapshot> snapshot, Instant now, const Formats& formats,
                 Check check) {
    for (const StaticConfiguration& widget : VantelWidgetsBundle::body().widgets)
        for (const WidgetFamily family : widget.supportedFamilies) {
            const TimelineEntry entry = VantelWidgetsBundle::entry(widget.kind, {now, snapshot});
            check(renderedView(widget, entry, {family, berlin(), formats}).value());
        }
}

bool isText(const scene::Piece& piece) {
    return std::holds_alternative<scene::TextPiece>(piece.drawing);
}

/// Lines may lie as close as their letters allow, but not on each other.
void expectNoOverlap(const scene::Scene& scene, const std::string& name) {
    std::vector<QRectF> texts;
    for (const scene::Piece& piece : scene.pieces)
        if (isText(piece))
            texts.push_back(piece.rectangle.adjusted(0, 1, -0.5, -1));
    for (std::size_t i = 0; i < texts.size(); ++i)
        for (std::size_t j = i + 1; j < texts.size(); ++j)
            EXPECT_FALSE(texts[i].intersects(texts[j])) << name << ": texts " << i << " and " << j;
}

void expectInside(const scene::Scene& scene, const std::string& name) {
    const QRectF card = QRectF({0, 0}, scene.size).adjusted(15.5, 15.5, -15.5, -15.5);
    for (const scene::Piece& piece : scene.pieces)
        EXPECT_TRUE(card.contains(piece.rectangle))
            << name << ": " << piece.rectangle.x() << " " << piece.rectangle.y() << " "
            << piece.rectangle.width() << " " << piece.rectangle.height();
}

void expectTidy(const WidgetView& view, const Look& look, const Formats& formats, Instant now,
                const std::string& name) {
    const scene::Scene scene = scene::laidOut(view, {look, formats, now, Qt::LeftToRight});
    const std::string what = name + " " + view.kind + " " + std::string(vantel::name(view.family));
    expectInside(scene, what);
    expectNoOverlap(scene, what);
}

/// A font of wide letters, as many desktops have; the pictures' own one has narrower ones.
std::vector<Look> looks() {
    Look wide = testLook();
    wide.standardFamily = QStringLiteral("Vantel Mono");
    return {testLook(), wide};
}

TEST(WidgetScene, NothingOverlapsOrLeavesTheCardOnAnySampleDay) {
    for (const Look& look : looks())
        for (const char* locale : {"en_US", "de_DE", "ja_JP"}) {
            const LocalizedFormats formats(locale);
            for (const Day& day : days)
                forEachView(sample(day.name), at(day.moment), formats, [&](const WidgetView& view) {
                    expectTidy(view, look, formats, at(day.moment), std::string(day.name) + locale);
                });
        }
}

TEST(WidgetScene, NothingOverlapsOrLeavesTheCardWithoutASnapshotOrWithSampleData) {
    const Instant now = at("2026-11-17T09:20");
    const auto placeholder =
        std::make_shared<const WidgetSnapshot>(WidgetSnapshot::placeholder(now, berlin()));
    for (const Look& look : looks())
        for (const auto& snapshot : {std::shared_ptr<const WidgetSnapshot>(), placeholder})
            forEachView(snapshot, now, plainFormats(),
                        [&](const WidgetView& view) { expectTidy(view, look, plainFormats(), now, "none"); });
}

TEST(WidgetScene, NothingOverlapsOrLeavesTheCardWithHostileTexts) {
    for (const char* moment :
         {"2026-11-17T09:20", "2026-11-17T09:42", "2026-11-20T16:00", "2026-11-17T23:00"})
        for (const Look& look : looks())
            forEachView(hostileSnapshot(at(moment)), at(moment), plainFormats(), [&](const WidgetView& view) {
                expectTidy(view, look, plainFormats(), at(moment), moment);
            });
}

} // namespace

} // namespace vantel
