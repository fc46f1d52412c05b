#include "host/bus/MessageBus.h"
#include "tests/host/bus/PrivateBus.h"
#include "tests/host/schedule/WindowThread.h"

#include <atomic>
#include <fstream>
#include <thread>

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace vantel {

using namespace Qt::StringLiterals;
namespace {

using namespace testing;
using namespace std::chrono_literals;

class MessageBusTest : public ::testing::Test {
protected:
    void use(const QString& address) {
        bus.emplace(address, 1ms);
        QObject::connect(&*bus, &MessageBus::reconnected, [this] { ++reconnections; });
    }

    /// Serves events until all attempts after a loss or a change are over.
    static void waitForLastAttempt() {
        constexpr int allPauses = 1 + 4 + 16;
        for (int round = 0; round < 6; ++round) {
            QThread::msleep(allPauses);
            serveEvents();
        }
    }

    PrivateBus privateBus;
    std::optional<MessageBus> bus;
    int reconnections = 0;
};

TEST_F(MessageBusTest, ABusThatComesAfterTheStartIsNoticed) {
    privateBus.stop();
    use(privateBus.address());
    EXPECT_FALSE(bus->isConnected());
    waitForLastAttempt();
    privateBus.start();
    EXPECT_TRUE(waitUntil([this] { return reconnections == 1; }));
    EXPECT_TRUE(bus->isConnected());
}

TEST_F(MessageBusTest, ABusThatComesBackIsNoticedHoweverLateAndOften) {
    use(privateBus.address());
    ASSERT_TRUE(bus->isConnected());
    for (int round = 1; round <= 3; ++round) {
        privateBus.stop();
        ASSERT_TRUE(waitUntil([this] { return !bus->isConnected(); }));
        waitForLastAttempt();
        privateBus.start();
        ASSERT_TRUE(waitUntil([&] { return reconnections == round; }));
    }
}

TEST_F(MessageBusTest, WithoutAFileItIsLookedForWhenThatIsAsked) {
    use(privateBus.abstractAddress());
    ASSERT_TRUE(bus->isConnected());
    bus->lookAgain();
    EXPECT_EQ(reconnections, 0);
    privateBus.stop();
    ASSERT_TRUE(waitUntil([this] { return !bus->isConnected(); }));
    waitForLastAttempt();
    bus->lookAgain();
    EXPECT_FALSE(bus->isConnected());
    privateBus.start();
    waitForLastAttempt();
    EXPECT_EQ(reconnections, 0);
    bus->lookAgain();
    EXPECT_EQ(reconnections, 1);
    EXPECT_TRUE(bus->isConnected());
}

TEST_F(MessageBusTest, ABusThatIsSilentAtTheStartIsNoticedOnceItSpeaks) {
    privateBus.fallSilent();
    bus.emplace(BusKnock(privateBus.address(), 1ms), 1ms);
    QObject::connect(&*bus, &MessageBus::reconnected, [this] { ++reconnections; });
    EXPECT_FALSE(bus->isConnected());
    waitForLastAttempt();
    EXPECT_EQ(reconnections, 0);
    privateBus.speak();
    EXPECT_TRUE(waitUntil([this] { return reconnections == 1; }));
    EXPECT_TRUE(bus->isConnected());
}

TEST_F(MessageBusTest, ABusThatComesBackSilentIsNoticedOnceItSpeaks) {
    use(privateBus.address());
    privateBus.stop();
    ASSERT_TRUE(waitUntil([this] { return !bus->isConnected(); }));
    privateBus.start();
    privateBus.fallSilent();
    waitForLastAttempt();
    bus->lookAgain();
    EXPECT_FALSE(bus->isConnected());
    privateBus.speak();
    EXPECT_TRUE(waitUntil([this] { return reconnections == 1; }));
}

TEST_F(MessageBusTest, ASilentBusThatDiesIsNoticedWhenAnotherOneTakesItsPlace) {
    privateBus.fallSilent();
    bus.emplace(BusKnock(privateBus.address(), 1ms), 1ms);
    QObject::connect(&*bus, &MessageBus::reconnected, [this] { ++reconnections; });
    privateBus.stop();
    waitForLastAttempt();
    EXPECT_EQ(reconnections, 0);
    privateBus.start();
    EXPECT_TRUE(waitUntil([this] { return reconnections == 1; }));
}

/// A socket where whoever comes is sent away, and counted.
class ClosedDoor {
public:
    explicit ClosedDoor(const std::string& path)
        : m_descriptor(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        path.copy(address.sun_path, sizeof address.sun_path - 1);
        ::bind(m_descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address);
        ::listen(m_descriptor, 8);
        m_keeper = std::thread([this] { sendAway(); });
    }
    ClosedDoor(const ClosedDoor&) = delete;
    ClosedDoor& operator=(const ClosedDoor&) = delete;
    ~ClosedDoor() {
        ::shutdown(m_descriptor, SHUT_RDWR);
        m_keeper.join();
        ::close(m_descriptor);
    }

    int visitors() const { return m_visitors; }

private:
    void sendAway() {
        for (int visitor = 0; (visitor = ::accept(m_descriptor, nullptr, nullptr)) >= 0;) {
            ++m_visitors;
            ::close(visitor);
        }
    }

    int m_descriptor;
    std::atomic<int> m_visitors = 0;
    std::thread m_keeper;
};

TEST_F(MessageBusTest, OnceTheAttemptsAreOverNobodyLooksUntilTheFileChanges) {
    const ScratchFolder folder;
    const std::string socket = folder / "socket";
    const ClosedDoor door(socket);
    use(u"unix:path="_s + QString::fromStdString(socket));
    EXPECT_EQ(door.visitors(), 1);
    waitForLastAttempt();
    EXPECT_EQ(door.visitors(), 1);
    for (int round = 1; round <= 2; ++round) {
        std::ofstream(folder / "other") << "not the socket";
        std::filesystem::rename(socket, folder / "moved");
        std::filesystem::rename(folder / "moved", socket);
        const int expected = 1 + round * MessageBus::attempts;
        EXPECT_TRUE(waitUntil([&] { return door.visitors() == expected; })) << door.visitors();
        waitForLastAttempt();
        EXPECT_EQ(door.visitors(), expected);
    }
}

TEST_F(MessageBusTest, WhoWasSentAwayKnocksAgainWhenThatIsAsked) {
    const ScratchFolder folder;
    const std::string socket = folder / "socket";
    const ClosedDoor door(socket);
    use(u"unix:path="_s + QString::fromStdString(socket));
    for (int visitors = 2; visitors <= 4; ++visitors) {
        bus->lookAgain();
        EXPECT_TRUE(waitUntil([&] { return door.visitors() == visitors; })) << door.visitors();
    }
}

TEST_F(MessageBusTest, WhereNobodyListensNobodyConnects) {
    privateBus.stop();
    use(privateBus.address());
    bus->lookAgain();
    EXPECT_FALSE(bus->isConnected());
    EXPECT_EQ(bus->connection().name(), QString());
}

} // namespace
} // namespace vantel
