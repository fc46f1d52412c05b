#include "tests/cli/Program.h"
#include "tests/fakes/ScratchFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vantel {
namespace {

using namespace testing;
using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;

/// A user who reads German. A test cannot count on a German locale, so it makes one of the locale that every
/// system has, which itself is no longer translated on newer ones.
class GermanTexts : public ::testing::Test {
protected:
    GermanTexts() {
        vantelctl.environment.erase("LC_ALL");
        std::filesystem::create_directory_symlink("/usr/lib/locale/C.utf8", m_locales / "de_DE.UTF-8");
        vantelctl.environment["LOCPATH"] = m_locales.path();
        vantelctl.environment["LANG"] = "de_DE.UTF-8";
        vantelctl.environment["LC_TIME"] = "de_DE.UTF-8";
        vantelctl.environment["LANGUAGE"] = "de";
    }

    std::string view(const char* kind, const char* family, const char* sample, const char* moment) const {
        const std::string file = dataFile("samples/" + std::string(sample) + ".json").string();
        return vantelctl({"view", kind, family, "--json", "--snapshot", file, "--at", moment}).output;
    }

    Vantelctl vantelctl;

private:
    ScratchFolder m_locales;
};

TEST_F(GermanTexts, StandInTheFourWidgets) {
    EXPECT_THAT(view("focus", "medium", "busy-tuesday", "2026-11-17T09:20"),
                AllOf(HasSubstr(R"("FOKUS")"), HasSubstr(R"("überfällig")"), HasSubstr(R"("heute")"),
                      HasSubstr("\"-3\u00a0T.\"")));
    EXPECT_THAT(view("next-up", "medium", "busy-tuesday", "2026-11-17T09:20"),
                AllOf(HasSubstr(R"("danach frei ab 18:00")"), HasSubstr("Offene Aufgaben: 3")));
    EXPECT_THAT(view("group-today", "medium", "busy-tuesday", "2026-11-17T09:20"),
                AllOf(HasSubstr(R"("GRUPPE HEUTE")"), HasSubstr(R"("7 Termine in 30 Tagen")"),
                      HasSubstr("\"in 2\u00a0T.\"")));
    EXPECT_THAT(view("triage", "small", "busy-tuesday", "2026-11-17T09:20"),
                AllOf(HasSubstr(R"("zu sichten")"), HasSubstr(R"("~8 Min. · öffnet Stapel")")));
}

TEST_F(GermanTexts, UpperCaseUmlautsInLabels) {
    EXPECT_THAT(view("next-up", "small", "busy-tuesday", "2026-11-17T09:20"),
                HasSubstr(R"("NÄCHSTE · 10:00")"));
}

TEST_F(GermanTexts, NameTheWidgetsInTheList) {
    EXPECT_THAT(vantelctl({"widgets"}).output, AllOf(HasSubstr("Als Nächstes"), HasSubstr("Gruppe heute")));
}

TEST_F(GermanTexts, LeaveTheDocumentsOfOtherProgramsAlone) {
    EXPECT_THAT(vantelctl({"staleness", "--json", "--placeholder", "--at", "0"}).output,
                HasSubstr(R"("staleness":"fresh")"));
    EXPECT_THAT(vantelctl({"widgets", "--json"}).output, HasSubstr(R"("kind":"VantelNextUpWidget")"));
}

TEST_F(GermanTexts, GiveWayToEnglishForALanguageWithoutACatalogue) {
    vantelctl.environment["LANGUAGE"] = "tlh";
    EXPECT_THAT(view("focus", "medium", "busy-tuesday", "2026-11-17T09:20"),
                AllOf(HasSubstr(R"("FOCUS")"), Not(HasSubstr("FOKUS"))));
}

} // namespace
} // namespace vantel
