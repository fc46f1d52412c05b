#include "host/bus/DayWatch.h"
#include "tests/host/bus/PrivateBus.h"
#include "tests/host/schedule/WindowThread.h"

#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

namespace vantel {

using namespace Qt::StringLiterals;
namespace {

using namespace testing;
using namespace std::chrono_literals;

/// Counts the signals of a watch.
struct Heard {
    explicit Heard(DayWatch& watch) {
        QObject::connect(&watch, &DayWatch::resumed, [this] { ++resumed; });
        QObject::connect(&watch, &DayWatch::zoneChanged, [this] { ++zoneChanged; });
    }

    int resumed = 0;
    int zoneChanged = 0;
};

class ZoneFileTest : public ::testing::Test {
protected:
    void link(const std::string& name, const std::string& zone) const {
        std::filesystem::create_symlink("/usr/share/zoneinfo/" + zone, folder / name);
    }

    /// Whether a change was noticed since the last time.
    bool isNoticed() {
        return waitUntil([this] { return std::exchange(heard.zoneChanged, 0) > 0; });
    }

    ScratchFolder folder;
    DayWatch watch{folder / "localtime"};
    Heard heard{watch};
};

TEST_F(ZoneFileTest, EveryWayToReplaceTheFileIsNoticedAgainAndAgain) {
    link("localtime", "Europe/Berlin");
    EXPECT_TRUE(isNoticed());
    for (int round = 0; round < 3; ++round) {
        link("localtime.new", "Asia/Tokyo");
        std::filesystem::rename(folder / "localtime.new", folder / "localtime");
        EXPECT_TRUE(isNoticed()) << round;
    }
    std::filesystem::remove(folder / "localtime");
    EXPECT_TRUE(isNoticed());
    std::ofstream(folder / "localtime") << "rules";
    EXPECT_TRUE(isNoticed());
    std::filesystem::rename(folder / "localtime", folder / "aside");
    EXPECT_TRUE(isNoticed());
}

TEST_F(ZoneFileTest, ItsNeighboursAreNot) {
    for (const std::string neighbour : {"localtime.new", "localtim", "hosts"})
        std::ofstream(folder / neighbour) << "text";
    QThread::msleep(20);
    serveEvents();
    EXPECT_EQ(heard.zoneChanged, 0);
}

TEST(DayWatchWithoutAnything, IsSilent) {
    const ScratchFolder folder;
    const MessageBus bus{BusKnock(QString())};
    DayWatch watch(folder / "missing/localtime");
    watch.listenTo(bus);
}

class DayWatchOnABusTest : public ::testing::Test {
protected:
    void send(const BusPeer& from, const char* path, const char* interface, const char* member,
              const QVariantList& arguments) const {
        QDBusMessage signal = QDBusMessage::createSignal(
            QString::fromLatin1(path), QString::fromLatin1(interface), QString::fromLatin1(member));
        signal.setArguments(arguments);
        from.connection.send(signal);
    }

    void sendSleep(const BusPeer& from, const QVariantList& arguments) const {
        send(from, "/org/freedesktop/login1", "org.freedesktop.login1.Manager", "PrepareForSleep", arguments);
    }

    void sendProperties(const QVariantList& arguments) const {
        send(system, "/org/freedesktop/timedate1", "org.freedesktop.DBus.Properties", "PropertiesChanged",
             arguments);
    }

    /// A system that speaks under both names.
    void SetUp() override {
        ASSERT_TRUE(system.connection.registerService(u"org.freedesktop.login1"_s));
        ASSERT_TRUE(system.connection.registerService(u"org.freedesktop.timedate1"_s));
        watch.listenTo(watchedBus);
    }

    ScratchFolder folder;
    PrivateBus bus;
    BusPeer system{bus};
    MessageBus watchedBus{bus.address(), 1ms};
    DayWatch watch{folder / "localtime"};
    Heard heard{watch};
};

TEST_F(DayWatchOnABusTest, TheEndOfSleepIsToldAndItsBeginningIsNot) {
    sendSleep(system, {true});
    sendSleep(system, {false});
    EXPECT_TRUE(waitUntil([this] { return heard.resumed == 1; }));
    serveEvents();
    EXPECT_EQ(heard.resumed, 1);
}

TEST_F(DayWatchOnABusTest, ABusThatComesBackIsHeardAgainAndMayHaveMissedTheEndOfSleep) {
    bus.stop();
    ASSERT_TRUE(waitUntil([this] { return !watchedBus.isConnected(); }));
    EXPECT_EQ(heard.resumed, 0);
    bus.start();
    ASSERT_TRUE(waitUntil([this] { return watchedBus.isConnected(); }));
    EXPECT_EQ(std::exchange(heard.resumed, 0), 1);
    const BusPeer systemAgain(bus);
    QDBusConnection connection = systemAgain.connection;
    ASSERT_TRUE(connection.registerService(u"org.freedesktop.login1"_s));
    sendSleep(systemAgain, {false});
    EXPECT_TRUE(waitUntil([this] { return heard.resumed == 1; }));
}

TEST_F(DayWatchOnABusTest, AnotherZoneIsToldAndOtherPropertiesAreNot) {
    const QString timedate = u"org.freedesktop.timedate1"_s;
    const QVariantMap none;
    const QVariantMap zone{{u"Timezone"_s, u"Asia/Tokyo"_s}};
    const QVariantMap other{{u"NTP"_s, true}};
    sendProperties({timedate, other, QStringList()});
    sendProperties({u"org.freedesktop.other"_s, zone, QStringList()});
    sendProperties({timedate, zone, QStringList()});
    sendProperties({timedate, none, QStringList{u"Timezone"_s}});
    sendSleep(system, {false});
    ASSERT_TRUE(waitUntil([this] { return heard.resumed == 1; }));
    EXPECT_EQ(heard.zoneChanged, 2);
}

TEST_F(DayWatchOnABusTest, MalformedSignalsAndStrangersAreNotHeard) {
    const BusPeer stranger(bus);
    sendSleep(stranger, {false});
    for (const QVariantList& arguments : std::vector<QVariantList>{{}, {0}, {u"false"_s}, {QStringList()}})
        sendSleep(system, arguments);
    sendProperties({u"org.freedesktop.timedate1"_s});
    sendProperties({1, 2, 3});
    sendSleep(system, {false});
    ASSERT_TRUE(waitUntil([this] { return heard.resumed > 0; }));
    serveEvents();
    EXPECT_EQ(heard.resumed, 1);
    EXPECT_EQ(heard.zoneChanged, 0);
}

} // namespace
} // namespace vantel
