#include "host/bus/BusKnock.h"
#include "tests/fakes/ScratchFolder.h"
#include "tests/host/bus/PrivateBus.h"

#include <array>
#include <fstream>

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace vantel {

using namespace Qt::StringLiterals;
namespace {

using namespace testing;
using namespace std::chrono_literals;
using Answer = BusKnock::Answer;

TEST(SessionBusAddress, IsTheVariableElseTheRuntimeFolder) {
    const ScopedEnvironment folder("XDG_RUNTIME_DIR", "/run/user/7");
    const ScopedEnvironment address("DBUS_SESSION_BUS_ADDRESS", "unix:path=/x");
    EXPECT_EQ(sessionBusAddress(), u"unix:path=/x"_s);
    const ScopedEnvironment noAddress("DBUS_SESSION_BUS_ADDRESS", std::nullopt);
    EXPECT_EQ(sessionBusAddress(), u"unix:path=/run/user/7/bus"_s);
    const ScopedEnvironment noFolder("XDG_RUNTIME_DIR", std::nullopt);
    EXPECT_EQ(sessionBusAddress(), QString());
}

TEST(SystemBusAddress, IsTheVariableElseTheUsualPlace) {
    const ScopedEnvironment address("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/x");
    EXPECT_EQ(systemBusAddress(), u"unix:path=/x"_s);
    const QString usual = u"unix:path=/run/dbus/system_bus_socket"_s;
    const ScopedEnvironment emptyAddress("DBUS_SYSTEM_BUS_ADDRESS", "");
    EXPECT_EQ(systemBusAddress(), usual);
    const ScopedEnvironment noAddress("DBUS_SYSTEM_BUS_ADDRESS", std::nullopt);
    EXPECT_EQ(systemBusAddress(), usual);
}

TEST(BusSocket, IsTheFirstFileThatTheAddressNames) {
    struct Row {
        const char* address;
        std::optional<std::string> socket;
    };
    for (const Row& row : std::vector<Row>{{"unix:path=/run/user/7/bus", "/run/user/7/bus"},
                                           {"unix:path=/run/user/7/bus,guid=0a", "/run/user/7/bus"},
                                           {"unix:guid=0a,path=/a%20b%2cc", "/a b,c"},
                                           {"unix:abstract=/tmp/x;unix:path=/b", "/b"},
                                           {"unix:abstract=/tmp/x,guid=0a", std::nullopt},
                                           {"tcp:host=localhost,port=7,path=/a", std::nullopt},
                                           {"unix:runtime=yes", std::nullopt},
                                           {"unix:", std::nullopt},
                                           {"/run/user/7/bus", std::nullopt},
                                           {"", std::nullopt}})
        EXPECT_EQ(busSocket(QString::fromLatin1(row.address)), row.socket) << row.address;
}

QString addressOf(const std::filesystem::path& socket) {
    return u"unix:path="_s + QString::fromStdString(socket);
}

/// A socket where somebody comes only when told to.
class Listener {
public:
    explicit Listener(int room = 8) {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        m_path.string().copy(address.sun_path, sizeof address.sun_path - 1);
        ::bind(m_descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address);
        ::listen(m_descriptor, room);
    }
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;
    ~Listener() {
        ::close(m_visitor);
        ::close(m_descriptor);
    }

    QString address() const { return addressOf(m_path); }

    void open() { m_visitor = ::accept(m_descriptor, nullptr, nullptr); }
    void shut() { ::close(std::exchange(m_visitor, -1)); }
    void say(std::string_view words) const { ::send(m_visitor, words.data(), words.size(), 0); }

    /// What the visitor says next; empty once it is gone.
    std::string heard() const {
        std::array<char, 64> words{};
        const ssize_t length = ::recv(m_visitor, words.data(), words.size(), 0);
        return {words.data(), static_cast<std::size_t>(std::max<ssize_t>(length, 0))};
    }

private:
    ScratchFolder m_folder;
    std::filesystem::path m_path = m_folder / "socket";
    int m_descriptor = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    int m_visitor = -1;
};

TEST(BusKnock, HearsABusThatIsWell) {
    const PrivateBus bus;
    BusKnock knock(bus.address());
    EXPECT_EQ(knock.answer(), Answer::heard);
    EXPECT_EQ(knock.answer(), Answer::heard);
    EXPECT_EQ(knock.descriptor(), -1);
}

TEST(BusKnock, FindsNobodyWhereNobodyListensAtTheOnlyPlace) {
    const ScratchFolder folder;
    std::ofstream(folder / "file") << "no socket";
    for (const QString& address : {addressOf(folder / "missing"), addressOf(folder / "file"),
                                   addressOf(folder / std::string(200, 'a'))})
        EXPECT_EQ(BusKnock(address).answer(), Answer::nobody) << address.toStdString();
}

TEST(BusKnock, FindsNoDoorWhereOnlyConnectingTells) {
    const ScratchFolder folder;
    const QString missing = addressOf(folder / "missing");
    for (const QString& address : {QString(), u"unix:abstract=/tmp/x"_s, u"tcp:host=localhost,port=7"_s,
                                   QString(missing + u";unix:abstract=/tmp/x"_s)})
        EXPECT_EQ(BusKnock(address).answer(), Answer::noDoor) << address.toStdString();
}

TEST(BusKnock, IsSilenceUntilSomebodySpeaks) {
    Listener listener;
    BusKnock knock(listener.address(), 1ms);
    EXPECT_EQ(knock.answer(), Answer::silence);
    listener.open();
    EXPECT_EQ(knock.answer(), Answer::silence);
    EXPECT_GE(knock.descriptor(), 0);
    listener.say("R");
    EXPECT_EQ(knock.answer(), Answer::heard);
}

TEST(BusKnock, HearsADoorThatIsShut) {
    Listener listener;
    BusKnock knock(listener.address());
    listener.open();
    listener.shut();
    EXPECT_EQ(knock.answer(), Answer::hungUp);
}

TEST(BusKnock, AsksWhatAnybodyMayAskAndLeavesOnceItHasHeard) {
    Listener listener;
    BusKnock knock(listener.address());
    listener.open();
    EXPECT_EQ(listener.heard(), std::string_view("\0AUTH\r\n", 7));
    listener.say("REJECTED EXTERNAL\r\n");
    ASSERT_EQ(knock.answer(), Answer::heard);
    EXPECT_EQ(listener.heard(), "");
}

TEST(BusKnock, IsSilenceWhereTooManyOthersWait) {
    const Listener listener(0);
    const BusKnock other(listener.address());
    BusKnock knock(listener.address(), 1ms);
    EXPECT_EQ(knock.answer(), Answer::silence);
    EXPECT_EQ(knock.descriptor(), -1);
}

} // namespace
} // namespace vantel
