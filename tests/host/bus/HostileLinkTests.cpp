#include "host/bus/LinkOpener.h"
#include "tests/fakes/FakeFormats.h"
#include "tests/fakes/HostileTexts.h"

#include <gtest/gtest.h>

namespace vantel {

using namespace Qt::StringLiterals;
namespace {

using namespace testing;

TEST(HostileLinks, OpenNothingThatIsNoWellFormedLinkOfTheCompanion) {
    QStringList started;
    PlainFormats formats;
    MessageBus noBus{QString()};
    LinkOpener opener(noBus, formats, "vantel",
                      LinkDoors{[](const QString&) { return true; },
                                [&started](const QString& program, const QStringList& arguments) {
                                    started.append((QStringList{program} + arguments).join(u'|'));
                                    return true;
                                }});
    qsizetype expected = 0;
    for (const std::string& hostile : hostileLinks()) {
        const auto url = parseUrl(hostile);
        if (!url)
            continue;
        expected += url->text.starts_with("vantel:") ? 1 : 0;
        int failures = 0;
        opener.open(*url, [&failures](const QString&) { ++failures; });
        ASSERT_EQ(started.size(), expected) << hostile.substr(0, 100);
        ASSERT_EQ(failures, url->text.starts_with("vantel:") ? 0 : 1) << hostile.substr(0, 100);
    }
    EXPECT_GT(expected, 0);
    for (const QString& call : started)
        EXPECT_TRUE(parseUrl(call.section(u'|', 1).toStdString()) && call.startsWith(u"xdg-open|vantel:"_s))
            << qPrintable(call);
}

} // namespace
} // namespace vantel
