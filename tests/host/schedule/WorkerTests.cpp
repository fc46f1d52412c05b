#include "host/schedule/Mailbox.h"
#include "host/schedule/Worker.h"
#include "tests/host/schedule/Gate.h"
#include "tests/host/schedule/NoThreads.h"
#include "tests/host/schedule/WindowThread.h"

#include <gtest/gtest.h>

namespace vantel {
namespace {

using namespace testing;
using namespace std::chrono_literals;

constexpr auto patience = 10s;

TEST(Worker, RunsJobsInTheirOrderAndOneAtATime) {
    std::vector<int> order;
    Worker worker;
    for (int number = 0; number < 100; ++number)
        ASSERT_TRUE(worker.run([&order, number] { order.push_back(number); }));
    ASSERT_TRUE(worker.drain(patience));
    ASSERT_EQ(order.size(), 100U);
    EXPECT_TRUE(std::ranges::is_sorted(order));
}

TEST(Worker, RunsAgainAfterItWasIdle) {
    int runs = 0;
    Worker worker;
    for (int round = 1; round <= 3; ++round) {
        ASSERT_TRUE(worker.run([&runs] { ++runs; }));
        ASSERT_TRUE(worker.drain(patience));
        EXPECT_EQ(runs, round);
    }
}

TEST(Worker, WithoutJobsIsDrainedAtOnce) {
    Worker worker;
    EXPECT_TRUE(worker.drain(0ms));
}

TEST(Worker, ABlockedJobEndsTheWaitAndThoseBehindItAreDropped) {
    Gate gate;
    std::atomic<bool> hasRun = false;
    Worker worker;
    ASSERT_TRUE(worker.run([gate] { gate.wait(); }));
    ASSERT_TRUE(worker.run([&hasRun] { hasRun = true; }));
    EXPECT_FALSE(worker.drain(1ms));
    gate.open();
    EXPECT_TRUE(worker.drain(patience));
    EXPECT_FALSE(hasRun);
}

TEST(Worker, ItsEndWaitsForNoBlockedJob) {
    const Gate gate;
    const auto begun = std::make_shared<std::atomic<bool>>(false);
    const auto ended = std::make_shared<std::atomic<bool>>(false);
    {
        Worker worker;
        ASSERT_TRUE(worker.run([gate, begun, ended] {
            *begun = true;
            gate.wait();
            *ended = true;
        }));
        ASSERT_TRUE(waitUntil([&begun] { return begun->load(); }));
    }
    EXPECT_FALSE(*ended);
    gate.open();
    EXPECT_TRUE(waitUntil([&ended] { return ended->load(); }));
}

TEST(Worker, WithoutAThreadDropsTheJobAndRunsLaterOnes) {
    bool hasRun = false;
    Worker worker;
    {
        const NoThreads none;
        EXPECT_FALSE(worker.run([&hasRun] { hasRun = true; }));
        EXPECT_TRUE(worker.drain(0ms));
    }
    EXPECT_TRUE(worker.run([] {}));
    EXPECT_TRUE(worker.drain(patience));
    EXPECT_FALSE(hasRun);
}

TEST(Worker, AThreadThatRunsTakesJobsWithoutAnother) {
    Gate gate;
    bool hasRun = false;
    Worker worker;
    EXPECT_TRUE(worker.run([gate] { gate.wait(); }));
    {
        const NoThreads none;
        EXPECT_TRUE(worker.run([&hasRun] { hasRun = true; }));
    }
    gate.open();
    EXPECT_TRUE(worker.drain(patience));
    EXPECT_TRUE(hasRun);
}

TEST(Mailbox, DeliversOnTheThreadOfItsReceiver) {
    QObject receiver;
    const Mailbox mailbox(&receiver);
    QThread* deliveredOn = nullptr;
    Worker worker;
    ASSERT_TRUE(worker.run([to = mailbox.address(), &deliveredOn] {
        to.post([&deliveredOn] { deliveredOn = QThread::currentThread(); });
    }));
    ASSERT_TRUE(waitUntil([&deliveredOn] { return deliveredOn != nullptr; }));
    EXPECT_EQ(deliveredOn, receiver.thread());
}

TEST(Mailbox, WhatIsPostedToAReceiverThatIsGoneIsDropped) {
    bool isDelivered = false;
    auto receiver = std::make_unique<QObject>();
    auto mailbox = std::make_unique<Mailbox>(receiver.get());
    const Mailbox::Address address = mailbox->address();
    address.post([&isDelivered] { isDelivered = true; });
    mailbox.reset();
    receiver.reset();
    address.post([&isDelivered] { isDelivered = true; });
    serveEvents();
    EXPECT_FALSE(isDelivered);
}

} // namespace
} // namespace vantel
