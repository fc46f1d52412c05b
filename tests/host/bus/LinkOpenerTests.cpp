#include "host/bus/LinkOpener.h"
#include "tests/fakes/FakeFormats.h"
#include "tests/host/bus/MockPortal.h"
#include "tests/host/schedule/WindowThread.h"

#include <QFile>

#include <gtest/gtest.h>

namespace vantel {

using namespace Qt::StringLiterals;
namespace {

using namespace testing;

const Url task{"vantel://task?id=a%26b"};

class LinkOpenerTest : public ::testing::Test {
protected:
    void use(MessageBus& bus) {
        made.emplace(bus, formats, "vantel",
                     LinkDoors{[this](const QString&) { return hasHandler; },
                               [this](const QString& program, const QStringList& arguments) {
                                   started.append((QStringList{program} + arguments).join(u'|'));
                                   return canStart;
                               }});
    }

    /// Opens a link, and notes what goes wrong.
    void open(const Url& url) {
        made->open(url, [this](const QString& sentence) { failures.append(sentence); });
    }

    PlainFormats formats;
    MessageBus noBus{QString()};
    std::optional<LinkOpener> made;
    bool hasHandler = true;
    bool canStart = true;
    QStringList started;
    QStringList failures;
};

class LinkOpenerOnABusTest : public LinkOpenerTest {
protected:
    PrivateBus privateBus;
    MessageBus bus{privateBus.address()};
};

TEST_F(LinkOpenerOnABusTest, ThePortalOpensTheLink) {
    MockPortal portal(privateBus);
    use(bus);
    open(task);
    ASSERT_TRUE(waitUntil([&portal] { return !portal.calls.isEmpty(); }));
    EXPECT_EQ(portal.calls, QStringList{u"OpenURI vantel://task?id=a%26b"_s});
    serveEvents();
    EXPECT_TRUE(started.isEmpty());
    EXPECT_TRUE(failures.isEmpty());
}

TEST_F(LinkOpenerOnABusTest, OnlyAPortalThatFailsIsSaidOnceForEachLink) {
    MockPortal portal(privateBus);
    use(bus);
    for (const uint code : {0U, 1U, 2U, 0U, 2U}) { // success, a user who thought better of it, failure
        portal.response = code;
        const qsizetype before = portal.calls.size();
        open(task);
        ASSERT_TRUE(waitUntil([&] { return portal.calls.size() > before; }));
    }
    ASSERT_TRUE(waitUntil([this] { return failures.size() >= 2; }));
    EXPECT_EQ(failures, QStringList(2, u"The desktop did not open this."_s));
    EXPECT_TRUE(started.isEmpty());
}

TEST_F(LinkOpenerOnABusTest, APortalMayChooseThePathsOfRequestsItself) {
    MockPortal portal(privateBus);
    portal.heedsTokens = false;
    use(bus);
    for (const uint code : {2U, 0U, 1U, 2U}) {
        portal.response = code;
        const qsizetype before = portal.calls.size();
        open(task);
        ASSERT_TRUE(waitUntil([&] { return portal.calls.size() > before; }));
    }
    ASSERT_TRUE(waitUntil([this] { return failures.size() >= 2; }));
    serveEvents();
    EXPECT_EQ(failures, QStringList(2, u"The desktop did not open this."_s));
}

TEST_F(LinkOpenerOnABusTest, AnotherConnectionHearsResponsesToo) {
    use(bus);
    for (int round = 1; round <= 2; ++round) {
        MockPortal portal(privateBus);
        portal.response = 2U;
        open(task);
        ASSERT_TRUE(waitUntil([&] { return failures.size() == round; }));
        privateBus.stop();
        ASSERT_TRUE(waitUntil([this] { return !bus.isConnected(); }));
        privateBus.start();
        ASSERT_TRUE(waitUntil([this] { return bus.isConnected(); }));
    }
}

TEST_F(LinkOpenerOnABusTest, EachFailureIsToldToWhoAskedForThatLink) {
    MockPortal portal(privateBus);
    use(bus);
    QStringList told;
    for (const char* who : {"first", "second", "third"})
        made->open(task, [&told, who](const QString&) { told.append(QString::fromLatin1(who)); });
    ASSERT_TRUE(waitUntil([&portal] { return portal.calls.size() == 3; }));
    portal.respondTo(1, 2);
    portal.respondTo(0, 0);
    portal.respondTo(2, 2);
    ASSERT_TRUE(waitUntil([&told] { return told.size() == 2; }));
    EXPECT_EQ(told, (QStringList{u"second"_s, u"third"_s}));
}

TEST_F(LinkOpenerOnABusTest, APortalThatCannotOrIsNotThereLeavesItToXdgOpen) {
    use(bus);
    open(task);
    ASSERT_TRUE(waitUntil([this] { return started.size() == 1; }));
    MockPortal portal(privateBus);
    portal.answersLinks = false;
    open(task);
    ASSERT_TRUE(waitUntil([this] { return started.size() == 2; }));
    EXPECT_EQ(started.last(), u"xdg-open|vantel://task?id=a%26b"_s);
    EXPECT_TRUE(failures.isEmpty());
}

TEST_F(LinkOpenerTest, WithoutABusXdgOpenGetsTheLinkAsOneArgument) {
    use(noBus);
    open(task);
    EXPECT_EQ(started, QStringList{u"xdg-open|vantel://task?id=a%26b"_s});
}

TEST_F(LinkOpenerTest, OnlyLinksOfThisSystemLeaveIt) {
    use(noBus);
    for (const char* other : {"https://example.org", "file:///etc/passwd", "vantelx://task", "VANTEL2:x",
                              "vantel", "", "javascript:vantel://", " vantel://task"}) {
        failures.clear();
        open(Url{other});
        EXPECT_EQ(failures, QStringList{u"This link leads somewhere else and was not opened."_s}) << other;
    }
    EXPECT_TRUE(started.isEmpty());
}

TEST_F(LinkOpenerTest, WithoutAnApplicationNothingIsStartedAndASentenceSaysWhy) {
    hasHandler = false;
    use(noBus);
    open(task);
    EXPECT_EQ(failures, QStringList{u"No application is installed that opens this."_s});
    EXPECT_TRUE(started.isEmpty());
}

TEST_F(LinkOpenerTest, ADesktopWithoutXdgOpenIsSaidInASentence) {
    canStart = false;
    use(noBus);
    open(task);
    EXPECT_EQ(failures, QStringList{u"The desktop offers no way to open links."_s});
}

/// What a program of a scratch folder wrote down when it was started.
QString recorded(const ScratchFolder& folder) {
    QFile file(QString::fromStdString(folder / "record"));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

TEST(LinkDoors, StartAProgramWithItsArgumentsAsTheyStandAndWithoutPrivateVariables) {
    const ScratchFolder folder;
    const ScopedEnvironment path("PATH", folder.path().string() + ":/usr/bin:/bin");
    const ScopedEnvironment record("RECORD", (folder / "record").string());
    const ScopedEnvironment bypass("QT_WAYLAND_USE_BYPASSWINDOWMANAGERHINT", "1");
    QFile script(QString::fromStdString(folder / "xdg-open"));
    ASSERT_TRUE(script.open(QIODevice::WriteOnly));
    script.write(
        "#!/bin/sh\n"
        "printf '%s|' \"$#\" \"$1\" \"${QT_WAYLAND_USE_BYPASSWINDOWMANAGERHINT-unset}\" >\"$RECORD.new\"\n"
        "mv \"$RECORD.new\" \"$RECORD\"\n");
    script.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    script.close();
    const QString hostile = u"vantel://task?id=$(touch x);`id`&'\"*"_s;
    ASSERT_TRUE(LinkDoors::ofTheDesktop().startDetached(u"xdg-open"_s, {hostile}));
    ASSERT_TRUE(waitUntil([&folder] { return !recorded(folder).isEmpty(); }));
    EXPECT_EQ(recorded(folder), u"1|"_s + hostile + u"|unset|"_s);
    EXPECT_FALSE(LinkDoors::ofTheDesktop().startDetached(u"no-such-opener"_s, {hostile}));
}

} // namespace
} // namespace vantel
