#include "tests/fakes/HostileTexts.h"
#include "tests/widgets/WidgetFixture.h"
#include "widgets/VantelWidgetsBundle.h"

#include <gtest/gtest.h>

namespace vantel {
namespace {

using namespace testing;

const Instant morning = at("2026-11-17T09:58");

std::string unescaped(std::string_view item) {
    std::string text;
    for (std::size_t i = 0; i < item.size(); ++i) {
        const bool isEscape = item[i] == '%';
        text += isEscape ? static_cast<char>(std::stoi(std::string(item.substr(i + 1, 2)), nullptr, 16))
                         : item[i];
        i += isEscape ? 2 : 0;
    }
    return text;
}

WidgetSnapshot snapshotWithMeeting(const Url& url) {
    WidgetSnapshot snapshot = emptySnapshot(morning);
    snapshot.events.push_back(event("e", at("2026-11-17T10:00"), at("2026-11-17T11:00")));
    snapshot.events.back().joinURL = url;
    return snapshot;
}

/// All that a click on a widget could open.
std::vector<Url> linksOf(const WidgetSnapshot& snapshot) {
    std::vector<Url> links;
    for (const StaticConfiguration& widget : VantelWidgetsBundle::body().widgets)
        for (const WidgetFamily family : widget.supportedFamilies) {
            const auto view =
                renderedView(widget, VantelWidgetsBundle::entry(widget.kind, entry(snapshot, morning)),
                             {family, berlin(), plainFormats()});
            for (const Link& link : all<Link>(view.value().content.content))
                links.push_back(link.url);
            if (view->content.widgetURL)
                links.push_back(*view->content.widgetURL);
        }
    return links;
}

TEST(HostileLinks, OpenNothingButTheCompanionWhichGetsThemAsOneItem) {
    constexpr std::string_view joining = "vantel://join?url=";
    ASSERT_GT(hostileLinks().size(), 200U);
    for (const std::string& hostile : hostileLinks()) {
        const auto url = parseUrl(hostile);
        if (!url)
            continue;
        bool isOffered = false;
        for (const Url& link : linksOf(snapshotWithMeeting(*url))) {
            EXPECT_TRUE(link.text.starts_with("vantel://")) << link.text;
            EXPECT_EQ(parseUrl(link.text), link);
            if (!link.text.starts_with(joining))
                continue;
            isOffered = true;
            const std::string_view item = std::string_view(link.text).substr(joining.size());
            EXPECT_EQ(item.find_first_of("&=#"), std::string_view::npos) << item.substr(0, 100);
            EXPECT_EQ(unescaped(item), url->text);
        }
        EXPECT_TRUE(isOffered) << hostile.substr(0, 100);
    }
}

TEST(HostileLinks, HoldUrlsAndNearMisses) {
    std::size_t urls = 0;
    for (const std::string& hostile : hostileLinks())
        urls += parseUrl(hostile) ? 1U : 0U;
    EXPECT_GT(urls, 150U);
    EXPECT_LT(urls, hostileLinks().size());
}

} // namespace
} // namespace vantel
