#include "host/bus/WidgetsService.h"
#include "tests/host/bus/PrivateBus.h"
#include "tests/host/schedule/WindowThread.h"

#include <QDBusPendingCall>
#include <QDBusReply>
#include <thread>

#include <gtest/gtest.h>

namespace vantel {

using namespace Qt::StringLiterals;
namespace {

using namespace testing;
using namespace std::chrono_literals;

constexpr const char* application = "org.freedesktop.Application";
constexpr const char* widgets = "org.vantel.Widgets1";

class WidgetsServiceTest : public ::testing::Test {
protected:
    WidgetsServiceTest() {
        const auto note = [this](const char* what) { return [this, what] { heard.push_back(what); }; };
        QObject::connect(&service, &WidgetsService::reloadAllRequested, note("reload all"));
        QObject::connect(&service, &WidgetsService::galleryRequested, note("gallery"));
        QObject::connect(&service, &WidgetsService::focusRequested, note("focus"));
        QObject::connect(&service, &WidgetsService::reloadRequested,
                         [this](const std::string& kind) { heard.push_back("reload " + kind); });
        QObject::connect(&service, &WidgetsService::activated, [this](const QString& token) {
            heard.push_back("activated " + token.toStdString());
        });
        QObject::connect(&service, &WidgetsService::actionRequested,
                         [this](const QString& action, const QString& token) {
                             heard.push_back("action " + action.toStdString() + token.toStdString());
                         });
    }

    PrivateBus privateBus;
    MessageBus bus{privateBus.address(), 1ms};
    WidgetsService service{bus};
    BusPeer peer{privateBus};
    std::vector<std::string> heard;
};

TEST_F(WidgetsServiceTest, EachMethodIsAnsweredAndHeard) {
    ASSERT_EQ(service.start(), WidgetsService::Start::owned);
    struct Row {
        const char* interface;
        const char* member;
        QVariantList arguments;
        std::string heard;
    };
    const QVariantMap noData;
    const QVariantMap token{{u"activation-token"_s, u"T1"_s}};
    for (const Row& row : std::vector<Row>{
             {widgets, "ReloadTimelines", {u"VantelFocusWidget"_s}, "reload VantelFocusWidget"},
             {widgets, "ReloadTimelines", {u"überall"_s}, "reload überall"},
             {widgets, "ReloadAllTimelines", {}, "reload all"},
             {widgets, "ShowGallery", {}, "gallery"},
             {widgets, "FocusWidgets", {}, "focus"},
             {application, "Activate", {noData}, "activated "},
             {application, "Activate", {token}, "activated T1"},
             {application, "Open", {QStringList{u"file:///etc/passwd"_s}, noData}, "activated "},
             {application, "ActivateAction", {u"gallery"_s, QVariantList(), noData}, "action gallery"}}) {
        heard.clear();
        const QDBusMessage reply = peer.call(row.interface, row.member, row.arguments);
        EXPECT_EQ(reply.type(), QDBusMessage::ReplyMessage) << row.member;
        EXPECT_EQ(heard, std::vector{row.heard}) << row.member;
    }
}

TEST_F(WidgetsServiceTest, CallsOfWrongTypesAndUnknownOnesAreRefusedAndUnheard) {
    ASSERT_EQ(service.start(), WidgetsService::Start::owned);
    struct Row {
        const char* interface;
        const char* member;
        QVariantList arguments;
    };
    for (const Row& row : std::vector<Row>{{widgets, "ReloadTimelines", {}},
                                           {widgets, "ReloadTimelines", {1}},
                                           {widgets, "ReloadTimelines", {QStringList{u"a"_s}}},
                                           {widgets, "ReloadAllTimelines", {u"a"_s, 1, 2.5}},
                                           {widgets, "deleteLater", {}},
                                           {widgets, "reloadRequested", {u"a"_s}},
                                           {widgets, "setConfigurations", {}},
                                           {application, "Activate", {}},
                                           {application, "Activate", {u"a"_s}},
                                           {application, "ShowGallery", {}},
                                           {"org.vantel.Widgets2", "ShowGallery", {}}})
        EXPECT_EQ(peer.call(row.interface, row.member, row.arguments).type(), QDBusMessage::ErrorMessage)
            << row.member;
    EXPECT_TRUE(heard.empty());
}

TEST_F(WidgetsServiceTest, TheBusSeesTheTwoInterfacesAndTheLibrarysOwn) {
    ASSERT_EQ(service.start(), WidgetsService::Start::owned);
    const QDBusMessage reply = peer.call("org.freedesktop.DBus.Introspectable", "Introspect");
    ASSERT_EQ(reply.arguments().size(), 1);
    const QString xml = reply.arguments().first().toString();
    EXPECT_EQ(xml.count(u"<interface "_s), 5) << xml.toStdString();
    for (const char* interface : {application, widgets, "org.freedesktop.DBus.Properties",
                                  "org.freedesktop.DBus.Introspectable", "org.freedesktop.DBus.Peer"})
        EXPECT_TRUE(xml.contains(QString::fromLatin1(interface))) << interface;
    EXPECT_EQ(xml.count(u"<signal "_s), 1) << xml.toStdString(); // PropertiesChanged
    EXPECT_FALSE(xml.contains(u"<property"_s)) << xml.toStdString();
}

TEST_F(WidgetsServiceTest, TheCurrentConfigurationsAreAnArrayOfTwoTexts) {
    ASSERT_EQ(service.start(), WidgetsService::Start::owned);
    EXPECT_EQ(peer.call(widgets, "CurrentConfigurations").signature(), u"a(ss)"_s);
    service.setConfigurations({{"VantelFocusWidget", WidgetFamily::systemSmall},
                               {"VantelFocusWidget", WidgetFamily::systemMedium}});
    const QDBusReply<WidgetConfigurations> reply = peer.call(widgets, "CurrentConfigurations");
    ASSERT_TRUE(reply.isValid());
    EXPECT_EQ(reply.value(), (WidgetConfigurations{{u"VantelFocusWidget"_s, u"systemSmall"_s},
                                                   {u"VantelFocusWidget"_s, u"systemMedium"_s}}));
}

TEST_F(WidgetsServiceTest, AFloodOfCallsIsServed) {
    ASSERT_EQ(service.start(), WidgetsService::Start::owned);
    QDBusMessage message = QDBusMessage::createMethodCall(u"org.vantel.Widgets"_s, u"/org/vantel/Widgets"_s,
                                                          QString::fromLatin1(widgets), u"ReloadTimelines"_s);
    message.setArguments({u"VantelFocusWidget"_s});
    for (int call = 0; call < 10'000; ++call)
        peer.connection.send(message);
    EXPECT_TRUE(waitUntil([this] { return heard.size() == 10'000; }));
}

TEST_F(WidgetsServiceTest, ASecondProcessAsksTheFirstForWhatItWasStartedForAndKnowsThatItRuns) {
    ASSERT_EQ(service.start(), WidgetsService::Start::owned);
    for (const auto& [action, asked] :
         {std::pair(QString(), "activated T2"), std::pair(u"gallery"_s, "action galleryT2")}) {
        heard.clear();
        std::atomic<bool> isDone = false;
        auto second = WidgetsService::Start::noBus;
        std::thread process([&, wanted = action] {
            MessageBus itsBus(privateBus.address());
            second = WidgetsService(itsBus).start(u"T2"_s, wanted);
            isDone = true;
        });
        EXPECT_TRUE(waitUntil([&isDone] { return isDone.load(); }));
        process.join();
        EXPECT_EQ(second, WidgetsService::Start::alreadyRunning);
        EXPECT_EQ(heard, std::vector<std::string>{asked});
        EXPECT_TRUE(peer.seesService());
    }
}

TEST_F(WidgetsServiceTest, TheNameIsTakenAgainWhenTheBusHasComeBack) {
    ASSERT_EQ(service.start(), WidgetsService::Start::owned);
    privateBus.stop();
    ASSERT_TRUE(waitUntil([this] { return !bus.isConnected(); }));
    QThread::msleep(10);
    serveEvents();
    privateBus.start();
    ASSERT_TRUE(waitUntil([this] { return bus.isConnected(); }));
    BusPeer again(privateBus);
    ASSERT_TRUE(waitUntil([&again] { return again.seesService(); }));
    EXPECT_EQ(again.call(widgets, "ShowGallery").type(), QDBusMessage::ReplyMessage);
    EXPECT_EQ(heard, std::vector<std::string>{"gallery"});
}

TEST(WidgetsServiceWithoutBus, TakesTheNameOnceThereIsOne) {
    PrivateBus privateBus;
    privateBus.stop();
    MessageBus bus(privateBus.address(), 1ms);
    WidgetsService service(bus);
    EXPECT_EQ(service.start(), WidgetsService::Start::noBus);
    privateBus.start();
    ASSERT_TRUE(waitUntil([&bus] { return bus.isConnected(); }));
    const BusPeer peer(privateBus);
    EXPECT_TRUE(waitUntil([&peer] { return peer.seesService(); }));
}

TEST(WidgetsServiceWithoutBus, GoesOnWithout) {
    const ScratchFolder folder;
    for (const QString& address :
         {QString(), u"unix:path="_s + QString::fromStdString(folder / "none"), u"no address"_s}) {
        MessageBus bus(address);
        WidgetsService service(bus);
        EXPECT_EQ(service.start(), WidgetsService::Start::noBus) << address.toStdString();
    }
}

TEST(WidgetsServiceWithoutBus, ABusThatRefusesTheNameIsSaidAndIsNoOtherProcess) {
    const PrivateBus privateBus(PrivateBus::Names::refused);
    MessageBus bus(privateBus.address());
    ASSERT_TRUE(bus.isConnected());
    WidgetsService service(bus);
    ::testing::internal::CaptureStderr();
    EXPECT_EQ(service.start(), WidgetsService::Start::noBus);
    EXPECT_EQ(::testing::internal::GetCapturedStderr(),
              "The session bus does not give the name org.vantel.Widgets: "
              "org.freedesktop.DBus.Error.AccessDenied\n");
}

} // namespace
} // namespace vantel
