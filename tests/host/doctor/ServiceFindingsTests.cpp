#include "host/doctor/ServiceFindings.h"
#include "tests/fakes/FakeFormats.h"

#include <algorithm>

#include <gtest/gtest.h>

namespace vantel {
namespace {

using Kind = ServiceAnswer::Kind;

/// Everything is there and answers.
ServiceFacts healthy() {
    return {.session = {.kind = SessionBusFacts::Kind::answering,
                        .settings = {.kind = Kind::answering, .version = 2},
                        .openLinks = {.kind = Kind::answering, .version = 4}},
            .system = {.hasLogin = true, .hasTimeDate = true},
            .links = {.hasHandler = true, .hasProgram = true}};
}

std::string printedFor(const ServiceFacts& facts) {
    return printed(serviceFindings(facts, testing::PlainFormats()));
}

TEST(ServiceFindings, AHealthySessionHasNothingToComplainOf) {
    EXPECT_EQ(printedFor(healthy()), "ok    The session bus answers.\n"
                                     "ok    The settings portal answers (version 2, ReadOne).\n"
                                     "ok    The portal that opens links answers (version 4).\n"
                                     "ok    The widgets do not run.\n"
                                     "ok    An application is installed that opens links with vantel:.\n"
                                     "ok    logind is there: it tells when the machine has slept.\n"
                                     "ok    timedate1 is there: it tells of another time zone.\n");
}

struct Case {
    void (*change)(ServiceFacts&);
    const char* line;
};

const Case cases[] = {
    {[](ServiceFacts& facts) { facts.session = {.kind = SessionBusFacts::Kind::none}; },
     "warn  There is no session bus: the desktop's preferences do not reach the widgets, and nobody can ask "
     "them to reload.\n"},
    {[](ServiceFacts& facts) { facts.session = {.kind = SessionBusFacts::Kind::none}; },
     "ok    There is no portal that opens links; xdg-open does.\n"},
    {[](ServiceFacts& facts) { facts.session = {.kind = SessionBusFacts::Kind::silent}; },
     "fail  The session bus does not answer.\n"},
    {[](ServiceFacts& facts) { facts.session.settings.version = 1; },
     "ok    The settings portal answers (version 1, Read).\n"},
    {[](ServiceFacts& facts) { facts.session.settings.kind = Kind::silent; },
     "warn  The settings portal does not answer.\n"},
    {[](ServiceFacts& facts) { facts.session.settings.kind = Kind::missing; },
     "warn  There is no settings portal: dark mode comes from the toolkit, contrast and text size from "
     "nowhere.\n"},
    {[](ServiceFacts& facts) { facts.session.openLinks.kind = Kind::missing; },
     "ok    There is no portal that opens links; xdg-open does.\n"},
    {[](ServiceFacts& facts) {
         facts.session.openLinks.kind = Kind::missing;
         facts.links.hasProgram = false;
     },
     "fail  Nothing opens links: there is neither a portal for them nor xdg-open.\n"},
    {[](ServiceFacts& facts) { facts.session.openLinks.kind = Kind::silent; },
     "warn  The portal that opens links does not answer.\n"},
    {[](ServiceFacts& facts) { facts.session.host = ProcessFacts{.number = 42, .name = "vantel\nwidgets"}; },
     "ok    The widgets run (process 42, vantel␊widgets).\n"},
    {[](ServiceFacts& facts) { facts.links.hasHandler = false; },
     "warn  No application is installed that opens links with vantel:; a click on a card leads nowhere.\n"},
    {[](ServiceFacts& facts) { facts.system.hasLogin = false; },
     "warn  logind is not there: nobody tells when the machine has slept.\n"},
    {[](ServiceFacts& facts) { facts.system.hasTimeDate = false; },
     "warn  timedate1 is not there: another time zone is noticed by its file alone.\n"},
};

TEST(ServiceFindings, SayWhatIsMissingAndWhatThatMeans) {
    for (const auto& [change, line] : cases) {
        ServiceFacts facts = healthy();
        change(facts);
        EXPECT_NE(printedFor(facts).find(line), std::string::npos) << line << printedFor(facts);
    }
}

TEST(ServiceFindings, APortalIsNotLookedForWithoutABus) {
    ServiceFacts facts = healthy();
    facts.session = {.kind = SessionBusFacts::Kind::silent};
    EXPECT_EQ(printedFor(facts).find("settings portal"), std::string::npos);
    EXPECT_EQ(printedFor(facts).find("The widgets"), std::string::npos);
}

} // namespace
} // namespace vantel
