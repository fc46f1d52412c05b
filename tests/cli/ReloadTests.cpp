#include "tests/cli/Program.h"

#include <atomic>
#include <chrono>
#include <csignal>
#include <memory>
#include <thread>

#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <systemd/sd-bus.h>

namespace vantel {
namespace {

using namespace testing;
using Words = std::vector<std::string>;

/// A session bus of its own, gone with the object.
class PrivateBus {
public:
    PrivateBus() {
        std::vector<std::string> words = {"dbus-daemon", "--session", "--nofork", "--nopidfile",
                                          "--address=" + address()};
        std::vector<char*> pointers;
        for (std::string& word : words)
            pointers.push_back(word.data());
        pointers.push_back(nullptr);
        EXPECT_EQ(::posix_spawnp(&m_daemon, "dbus-daemon", nullptr, nullptr, pointers.data(), environ), 0);
        while (m_daemon > 0 && !isListening())
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;
    ~PrivateBus() {
        ::kill(m_daemon, SIGKILL);
        ::waitpid(m_daemon, nullptr, 0);
    }

    std::string address() const { return "unix:path=" + (m_folder / "bus").string(); }

private:
    bool isListening() const {
        sd_bus* raw = nullptr;
        EXPECT_GE(sd_bus_new(&raw), 0);
        const std::unique_ptr<sd_bus, decltype(&sd_bus_flush_close_unref)> probe(raw,
                                                                                 sd_bus_flush_close_unref);
        return sd_bus_set_address(raw, address().c_str()) >= 0 && sd_bus_start(raw) >= 0;
    }

    ScratchFolder m_folder;
    pid_t m_daemon = 0;
};

/// A stand-in for the widget host: owns the name and writes down what it is asked.
class RecordingHost {
public:
    explicit RecordingHost(const PrivateBus& bus) {
        sd_bus* raw = nullptr;
        EXPECT_GE(sd_bus_new(&raw), 0);
        m_bus.reset(raw);
        EXPECT_GE(sd_bus_set_address(raw, bus.address().c_str()), 0);
        EXPECT_GE(sd_bus_set_bus_client(raw, 1), 0);
        EXPECT_GE(sd_bus_start(raw), 0);
        EXPECT_GE(sd_bus_add_object(raw, nullptr, "/org/vantel/Widgets", answer, &calls), 0);
        EXPECT_GE(sd_bus_request_name(raw, "org.vantel.Widgets", 0), 0);
    }

    /// Serves the bus until `isDone`.
    void serveUntil(const std::atomic<bool>& isDone) {
        while (!isDone) {
            while (sd_bus_process(m_bus.get(), nullptr) > 0) {
            }
            sd_bus_wait(m_bus.get(), 10'000);
        }
    }

    std::vector<std::string> calls;

private:
    static int answer(sd_bus_message* message, void* data, sd_bus_error*) {
        if (sd_bus_message_is_method_call(message, "org.vantel.Widgets1", nullptr) == 0)
            return 0;
        std::string call = sd_bus_message_get_member(message);
        const char* kind = nullptr;
        if (sd_bus_message_has_signature(message, "s") != 0 && sd_bus_message_read(message, "s", &kind) > 0)
            call += std::string(" ") + kind;
        static_cast<std::vector<std::string>*>(data)->push_back(call);
        return sd_bus_reply_method_return(message, nullptr);
    }

    std::unique_ptr<sd_bus, decltype(&sd_bus_flush_close_unref)> m_bus{nullptr, sd_bus_flush_close_unref};
};

TEST(Reload, AsksTheRunningHostForOneKindOrForAll) {
    const PrivateBus bus;
    RecordingHost host(bus);
    Vantelctl vantelctl;
    vantelctl.environment["DBUS_SESSION_BUS_ADDRESS"] = bus.address();
    std::vector<Finished> finished;
    std::atomic<bool> isDone = false;
    std::thread caller([&] {
        for (const Words& words :
             {Words{"reload"}, Words{"reload", "next-up"}, Words{"reload", "VantelFocusWidget", "--json"}})
            finished.push_back(vantelctl(words));
        isDone = true;
    });
    host.serveUntil(isDone);
    caller.join();
    EXPECT_EQ(host.calls,
              (std::vector<std::string>{"ReloadAllTimelines", "ReloadTimelines VantelNextUpWidget",
                                        "ReloadTimelines VantelFocusWidget"}));
    for (const Finished& each : finished)
        EXPECT_EQ(each.status, 0) << each.error;
    EXPECT_EQ(finished.back().output, "{}\n");
}

TEST(Reload, WithABusButNoHostSaysSo) {
    const PrivateBus bus;
    Vantelctl vantelctl;
    vantelctl.environment["DBUS_SESSION_BUS_ADDRESS"] = bus.address();
    const Finished finished = vantelctl({"reload"});
    EXPECT_EQ(finished.status, 1);
    EXPECT_EQ(finished.error, "vantelctl: reload: no widget host is running\n");
}

} // namespace
} // namespace vantel
