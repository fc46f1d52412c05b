#pragma once

#include "host/desk/Desk.h"
#include "host/scene/Look.h"
#include "host/surface/PlainWindowSystem.h"
#include "hosting/WidgetBundle.h"
#include "tests/fakes/FakeFormats.h"
#include "tests/fakes/MemoryFileSystem.h"
#include "tests/fakes/SequentialUuids.h"

#include <gtest/gtest.h>

namespace vantel::testing {

inline constexpr WidgetFamily small = WidgetFamily::systemSmall;
inline constexpr WidgetFamily medium = WidgetFamily::systemMedium;

/// Monitors that come and go as a test says.
class FakeScreens final : public Screens {
public:
    std::vector<Monitor> monitors() const override { return m_monitors; }

    void set(std::vector<Monitor> monitors) {
        m_monitors = std::move(monitors);
        Q_EMIT changed();
    }

private:
    std::vector<Monitor> m_monitors;
};

inline const Monitor laptop{
    {"Acme", "Panel", "", "eDP-1"}, QRect(0, 0, 1366, 768), QRect(0, 28, 1366, 740), nullptr};
inline const Monitor external{
    {"Acme", "M27", "7", "DP-1"}, QRect(1366, 0, 2560, 1440), QRect(1366, 0, 2560, 1440), nullptr};

inline WidgetBundle threeWidgets() {
    WidgetBundle bundle;
    for (const auto& [kind, families] :
         {std::pair("A", std::vector{small, medium}), std::pair("B", std::vector{medium}),
          std::pair("C", std::vector{small})}) {
        StaticConfiguration configuration;
        configuration.kind = kind;
        configuration.displayName = std::string("Widget ") + kind;
        configuration.supportedFamilies = families;
        bundle.widgets.push_back(configuration);
    }
    return bundle;
}

/// A desk of three kinds of widgets on one laptop, whose files lie in memory.
struct DeskTest : ::testing::Test {
    WidgetBundle bundle = threeWidgets();
    PlainFormats formats;
    PlainWindowSystem windows;
    FakeScreens screens;
    MemoryFileSystem files;
    PlacementSaver store{"/state", files, [](const std::string&) {}};
    SequentialUuids identifiers;
    double scale = 1;
    std::unique_ptr<Desk> desk;
    std::vector<PlacedWidgets> announced;

    DeskTest() { screens.set({laptop}); }
    ~DeskTest() override { EXPECT_TRUE(store.drain(std::chrono::seconds(10))); }

    void start() {
        desk.reset();
        desk =
            std::make_unique<Desk>(DeskParts{bundle, formats, windows, screens, store, identifiers,
                                             [this](const Placement& placement) { return card(placement); }},
                                   scale);
        QObject::connect(desk.get(), &Desk::placedChanged,
                         [this](const PlacedWidgets& placed) { announced.push_back(placed); });
        desk->start();
    }

    void save(const Placements& placements) {
        store.save(placements);
        ASSERT_TRUE(store.drain(std::chrono::seconds(10)));
    }

    /// What is on the disk once everything is written.
    std::optional<Placements> saved() {
        EXPECT_TRUE(store.drain(std::chrono::seconds(10)));
        return store.load();
    }

    QWidget* card(const Placement& placement) const {
        auto* widget = new QWidget;
        widget->setFixedSize(cardSize(placement.family, scale).toSize());
        return widget;
    }

    /// Starts with one widget, as if it had been left there.
    void startWith(const Placement& placement) {
        save({placement});
        start();
    }

    static Placement widgetA() {
        return {.id = *parseUuid("00000000-0000-4000-8000-0000000000AA"),
                .kind = "A",
                .family = small,
                .monitor = laptop.identity,
                .corner = Corner::topRight,
                .margins = {24, 52}};
    }

    void grow(double scaleNow) {
        for (const Placement& placement : desk->placements())
            desk->window(placement.id)->card()->setFixedSize(cardSize(placement.family, scaleNow).toSize());
        desk->setScale(scaleNow);
    }

    QRect cardOf(const Uuid& id) const { return desk->window(id)->cardGeometry(); }

    std::vector<QRect> cards() const {
        std::vector<QRect> found;
        for (const Placement& placement : desk->placements())
            if (desk->window(placement.id) != nullptr)
                found.push_back(cardOf(placement.id));
        return found;
    }
};

} // namespace vantel::testing
