#include "tests/cli/Program.h"

#include <fstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vantel {
namespace {

using namespace testing;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;
using Words = std::vector<std::string>;

const std::string busyTuesday = dataFile("samples/busy-tuesday.json").string();
const Words atTwentyPastNine = {"--at", "2026-11-17T09:20"};

class VantelctlTest : public ::testing::Test {
protected:
    std::string output(const Words& words, const std::string& input = "") const {
        const Finished finished = vantelctl(words, input);
        EXPECT_EQ(finished.status, 0) << finished.error;
        EXPECT_EQ(finished.error, "");
        return finished.output;
    }

    /// The one line on standard error of a call that fails with this status and prints nothing else.
    std::string failure(int status, const Words& words, const std::string& input = "") const {
        const Finished finished = vantelctl(words, input);
        EXPECT_EQ(finished.status, status) << finished.output << finished.error;
        EXPECT_EQ(finished.output, "");
        EXPECT_THAT(finished.error, StartsWith("vantelctl: "));
        EXPECT_EQ(std::ranges::count(finished.error, '\n'), 1) << finished.error;
        return finished.error;
    }

    bool isContainerUntouched() const { return std::filesystem::is_empty(vantelctl.dataHome()); }

    Vantelctl vantelctl;
};

TEST_F(VantelctlTest, ListsTheWidgetsInBundleOrder) {
    EXPECT_EQ(
        output({"widgets", "--json"}),
        R"([{"kind":"VantelFocusWidget","displayName":"Focus","description":"Due and overdue tasks — what today )"
        R"(needs.","families":["systemSmall","systemMedium"]},{"kind":"VantelNextUpWidget","displayName":"Next up",)"
        R"("description":"Your next meeting, with a one-click join link.","families":["systemSmall",)"
        R"("systemMedium"]},{"kind":"VantelTriageWidget","displayName":"Triage","description":"Emails waiting for )"
        R"(a look — swipe the deck empty.","families":["systemSmall"]},{"kind":"VantelGroupTodayWidget",)"
        R"("displayName":"Group today","description":"Absences, contract flags, and upcoming lab dates.",)"
        R"("families":["systemMedium"]}])"
        "\n");
}

TEST_F(VantelctlTest, ACompletionIsJournalledStampedAndSeenAsDone) {
    output({"snapshot", "write", busyTuesday});
    const Words view = {"view", "focus", "medium", "--json", "--at", "2026-11-17T09:21"};
    EXPECT_THAT(output(view), HasSubstr("t-101"));
    EXPECT_THAT(output(view), HasSubstr(R"("2 done")"));
    EXPECT_EQ(output({"complete", "t-101", "--account", "acct-7f3a", "--at", "2026-11-17T09:20", "--json"}),
              "{}\n");
    EXPECT_THAT(
        output({"journal", "list", "--json"}),
        HasSubstr(R"("accountID":"acct-7f3a","action":"completeTodo","todoID":"t-101","at":816596400)"));
    EXPECT_THAT(output({"snapshot", "show"}), HasSubstr(R"("priorityScore":0.97,"completedAt":816596400})"));
    EXPECT_THAT(output(view), ::testing::Not(HasSubstr("t-101")));
    EXPECT_THAT(output(view), HasSubstr(R"("3 done")"));
}

TEST_F(VantelctlTest, ATimelineTellsItsMoments) {
    EXPECT_EQ(output({"timeline", "--json", "--at", "2026-11-17T22:00"}),
              "{\"hasSnapshot\":false,\"entries\":[816642000],\"reloadAfter\":816649200}\n");
    const std::string text = output({"timeline", "--at", "2026-11-20T09:57", "--snapshot", busyTuesday});
    EXPECT_EQ(text, "2026-11-20 09:57:00  now\n"
                    "2026-11-20 15:00:00  the weekly recap begins\n"
                    "2026-11-21 00:00:00  reload: the next day begins\n");
}

TEST_F(VantelctlTest, BucketsWithoutASnapshotAreEmpty) {
    EXPECT_EQ(output({"buckets", "--json", "--at", "2026-11-17T22:00"}),
              R"({"open":[],"overdue":[],"dueToday":[],"doneToday":[],"displayOrder":[],"dueCount":0,)"
              R"("nextMidnight":816649200,"isRecapTime":false})"
              "\n");
}

TEST_F(VantelctlTest, StalenessNeedsASnapshot) {
    EXPECT_EQ(failure(1, {"staleness"}), "vantelctl: staleness: there is no snapshot\n");
    EXPECT_EQ(output({"staleness", "--json", "--snapshot", busyTuesday, "--at", "2026-11-17T16:20"}),
              "{\"staleness\":\"aging\",\"hours\":7}\n");
    EXPECT_EQ(output({"staleness", "--json", "--snapshot", busyTuesday, "--at", "2026-11-19T16:20"}),
              "{\"staleness\":\"stale\"}\n");
}

TEST_F(VantelctlTest, LinksAreBuilt) {
    EXPECT_EQ(output({"link", "focus", "--json"}), "{\"url\":\"vantel://focus\"}\n");
    EXPECT_EQ(output({"link", "people"}), "vantel://people\n");
    EXPECT_EQ(output({"link", "todo", "a b&c"}), "vantel://todo?id=a%20b%26c\n");
    EXPECT_EQ(output({"link", "join", "https://z.example/j/9?pwd=ä|1#x"}),
              "vantel://join?url=https://z.example/j/9?pwd%3D%25C3%25A4%257C1%23x\n");
    EXPECT_EQ(failure(1, {"link", "join", "no url"}),
              "vantelctl: link join: \"no url\" is not an absolute URL\n");
}

TEST_F(VantelctlTest, TheJournalIsAppendedListedReducedAndCleared) {
    const std::string first = "00000000-0000-4000-8000-000000000001";
    const std::string line =
        R"({"id":"00000000-0000-4000-8000-000000000001","accountID":"A","action":"completeTodo",)"
        R"("todoID":"t","at":816596400})";
    EXPECT_EQ(
        output({"journal", "append", "t", "--account", "A", "--id", first, "--at", "816596400", "--json"}),
        line + "\n");
    output({"journal", "append", "u", "--account", ""});
    EXPECT_THAT(output({"journal", "list", "--json"}), StartsWith("[" + line + ",{"));
    EXPECT_EQ(output({"journal", "remove", first, "--json"}), "{}\n");
    EXPECT_THAT(output({"journal", "list"}), HasSubstr("completeTodo u (account )"));
    EXPECT_EQ(output({"journal", "clear", "--json"}), "{}\n");
    EXPECT_EQ(output({"journal", "list", "--json"}), "[]\n");
}

TEST_F(VantelctlTest, TheSnapshotIsRemovedForItsAccountOnly) {
    output({"snapshot", "write", busyTuesday});
    EXPECT_EQ(output({"snapshot", "remove", "--account", "other", "--json"}), "{\"removed\":false}\n");
    EXPECT_EQ(output({"snapshot", "complete", "t-101", "--account", "other", "--json"}),
              "{\"applied\":false}\n");
    EXPECT_EQ(output({"snapshot", "complete", "t-101", "--account", "acct-7f3a", "--json"}),
              "{\"applied\":true}\n");
    EXPECT_EQ(output({"snapshot", "remove", "--account", "acct-7f3a", "--json"}), "{\"removed\":true}\n");
    output({"snapshot", "write", dataFile("samples/legacy-unbound.json").string()});
    EXPECT_EQ(output({"snapshot", "remove", "--account", "A", "--json"}), "{\"removed\":false}\n");
    EXPECT_EQ(output({"snapshot", "remove", "--account", "A", "--allow-legacy-unbound", "--json"}),
              "{\"removed\":true}\n");
    EXPECT_EQ(output({"snapshot", "remove", "--json"}), "{\"removed\":true}\n");
}

TEST_F(VantelctlTest, TheContainerFollowsTheDataFolder) {
    const std::string root = vantelctl.container().string();
    EXPECT_EQ(output({"container", "--json"}), R"({"appGroupID":"group.org.vantel.widgets","container":")" +
                                                   root + R"(","snapshot":")" + root +
                                                   R"(/widget-snapshot.json",)" + R"("snapshotLock":")" +
                                                   root + R"(/widget-snapshot.lock",)" + R"("journal":")" +
                                                   root + R"(/widget-journal.ndjson"})" + "\n");
    EXPECT_TRUE(isContainerUntouched());
    vantelctl.environment["XDG_DATA_HOME"] = "relative";
    vantelctl.environment["HOME"] = "";
    EXPECT_EQ(output({"container", "--json"}), R"({"appGroupID":"group.org.vantel.widgets","container":null,)"
                                               R"("snapshot":null,"snapshotLock":null,"journal":null})"
                                               "\n");
}

TEST_F(VantelctlTest, WithoutAContainerWritesFailAndReadsShowNothing) {
    vantelctl.environment["XDG_DATA_HOME"] = "";
    vantelctl.environment["HOME"] = "";
    failure(1, {"complete", "t", "--account", "A"});
    failure(1, {"journal", "list"});
    failure(1, {"journal", "clear"});
    failure(1, {"snapshot", "write", busyTuesday});
    failure(1, {"snapshot", "show"});
    EXPECT_EQ(output({"journal", "remove", "00000000-0000-4000-8000-000000000001", "--json"}), "{}\n");
    EXPECT_THAT(output({"view", "triage", "small", "--json"}), HasSubstr("Halvo"));
}

TEST_F(VantelctlTest, AContainerThatCannotBeMadeIsTold) {
    std::ofstream(vantelctl.dataHome() / "group-containers") << "a file in the way";
    EXPECT_THAT(failure(1, {"journal", "append", "t", "--account", "A"}), HasSubstr("mkdir"));
    EXPECT_THAT(failure(1, {"snapshot", "write", busyTuesday}), HasSubstr("mkdir"));
}

TEST_F(VantelctlTest, WrongUsageIsOneLineAndStatusTwo) {
    EXPECT_THAT(failure(2, {"view", "clock", "small"}), HasSubstr("no widget is named \"clock\""));
    EXPECT_EQ(failure(2, {"view", "triage", "medium"}),
              "vantelctl: view: the widget triage has no size \"medium\" (it has small)\n");
    EXPECT_THAT(failure(2, {"view", "focus", "large"}), EndsWith("(it has small, medium)\n"));
    EXPECT_EQ(failure(2, {"view", "focus", "small", "--at", "yesterday"}),
              "vantelctl: --at: \"yesterday\" is not an instant\n");
    EXPECT_THAT(failure(2, {"reload", "clock"}), HasSubstr("no widget is named"));
    EXPECT_EQ(failure(2, {"nonsense", "--json"}),
              "vantelctl: no command is named \"nonsense\" (vantelctl --help lists them)\n");
    EXPECT_EQ(failure(2, {}), "vantelctl: a command is missing (vantelctl --help lists them)\n");
    EXPECT_EQ(failure(2, {"link", "nowhere"}),
              "vantelctl: link: no command is named \"nowhere\" (vantelctl link --help lists them)\n");
    EXPECT_EQ(failure(2, {"snapshot"}),
              "vantelctl: snapshot: a command is missing (vantelctl snapshot --help lists them)\n");
    EXPECT_EQ(failure(2, {"snapshot", "write"}), "vantelctl: snapshot write: FILE is required\n");
    EXPECT_THAT(failure(2, {"journal", "append", "t", "--account", "A", "--id", "1"}),
                HasSubstr("not a UUID"));
    EXPECT_THAT(failure(2, {"journal", "remove", "1"}), HasSubstr("not a UUID"));
    for (const Words& words :
         {Words{}, Words{"nonsense"}, Words{"view"}, Words{"view", "focus"},
          Words{"view", "focus", "small", "more"}, Words{"complete", "t"},
          Words{"complete", "--account", "A"}, Words{"link"}, Words{"link", "todo"}, Words{"snapshot"},
          Words{"snapshot", "write"}, Words{"snapshot", "remove", "--allow-legacy-unbound"},
          Words{"journal", "remove"}, Words{"widgets", "--unknown"},
          Words{"view", "focus", "small", "--snapshot", busyTuesday, "--placeholder"}})
        failure(2, words);
    EXPECT_TRUE(isContainerUntouched());
}

TEST_F(VantelctlTest, MalformedInstantsAreRefused) {
    for (const char* malformed :
         {"", " ", "nan", "inf", "1e999", "0x10", "1 ", "2026-13-01", "2026-02-30", "2026-11-17T24:00",
          "2026-11-17T09:60", "2026-11-17T09", "2026-11-17T09:20:60", "2026-11-17T09:20+",
          "2026-11-17T09:20+25:00", "2026-11-17T09:20Zulu", "17.11.2026", "2026-11-17T09:20:00.5.5"})
        EXPECT_THAT(failure(2, {"timeline", "--at", malformed}), EndsWith("is not an instant\n"))
            << malformed;
}

TEST_F(VantelctlTest, InstantsAreReadInEveryForm) {
    for (const char* form : {"816596400", "816596400.0", "8.165964e8", "2026-11-17T09:20",
                             "2026-11-17 09:20:00", "2026-11-17T08:20:00Z", "2026-11-17T09:20:00+01:00",
                             "2026-11-17T10:50:00.000+0230", "2026-11-17T03:20:00-05"})
        EXPECT_THAT(output({"view", "triage", "small", "--json", "--at", form}),
                    HasSubstr("\"date\":816596400,"))
            << form;
}

TEST_F(VantelctlTest, ADocumentThatDoesNotDecodeIsToldByItsKey) {
    const std::string broken =
        R"({"version":1,"generatedAt":0,"tasks":[{"id":"a","summary":"b","priorityRank":1}]})";
    EXPECT_EQ(failure(1, {"snapshot", "decode"}, broken),
              "vantelctl: standard input: tasks[0].priorityScore: missing\n");
    EXPECT_EQ(failure(1, {"snapshot", "write", "-"}, broken),
              "vantelctl: standard input: tasks[0].priorityScore: missing\n");
    EXPECT_EQ(failure(1, {"snapshot", "decode", "-"}, "{"), "vantelctl: standard input: not valid JSON\n");
    EXPECT_EQ(failure(1, {"snapshot", "decode", "/nonexistent/file"}),
              "vantelctl: /nonexistent/file: No such file or directory\n");
    EXPECT_EQ(failure(1, {"view", "focus", "small", "--snapshot", "/"}), "vantelctl: /: Is a directory\n");
    EXPECT_TRUE(isContainerUntouched());
}

TEST_F(VantelctlTest, AViewOfAnInvalidDocumentIsTheSetupStateAndSaysWhy) {
    const Finished finished = vantelctl({"view", "focus", "small", "--json", "--snapshot", "-"}, "{}");
    EXPECT_EQ(finished.status, 0);
    EXPECT_THAT(finished.output, HasSubstr("Open the app once"));
    EXPECT_EQ(finished.error, "vantelctl: standard input: version: missing (shown as no snapshot)\n");
}

TEST_F(VantelctlTest, ATextThatIsNotUtf8IsNeverJournalled) {
    EXPECT_THAT(failure(1, {"complete", "\xFF", "--account", "A"}), HasSubstr("todoID: not valid UTF-8"));
    EXPECT_THAT(failure(1, {"complete", "t", "--account", "\xC3("}), HasSubstr("accountID: not valid UTF-8"));
    EXPECT_TRUE(isContainerUntouched());
}

TEST_F(VantelctlTest, NoControlCharacterOfDataReachesATerminal) {
    const std::string hostile = "\x1b]0;owned\x07\xE2\x80\xAEtxt";
    for (const Words& words : {Words{"view", hostile, "small"}, Words{"link", "join", hostile},
                               Words{"snapshot", "decode", hostile}, Words{"journal", "remove", hostile}}) {
        const Finished finished = vantelctl(words);
        EXPECT_EQ(finished.error.find('\x1b'), std::string::npos);
        EXPECT_EQ(finished.error.find("\xE2\x80\xAE"), std::string::npos);
    }
}

TEST_F(VantelctlTest, AFatalErrorEndsWithALineAndStatusOne) {
    const std::string ancient =
        R"({"version":1,"generatedAt":-1e300,"tasks":[],"triageCount":0,"snoozedCount":0,)"
        R"("events":[],"allDayChips":[],"horizon":[]})";
    EXPECT_EQ(failure(1, {"view", "next-up", "medium", "--snapshot", "-"}, ancient),
              "vantelctl: view: The age of the snapshot is no number of hours.\n");
    EXPECT_EQ(failure(1, {"staleness", "--snapshot", "-"}, ancient),
              "vantelctl: fatal: The age of the snapshot is no number of hours.\n");
}

TEST_F(VantelctlTest, AnAnswerThatCannotBeWrittenIsAFailure) {
    const Finished finished = vantelctl({"widgets"});
    ASSERT_EQ(finished.status, 0);
    const std::string command = "env -i " VANTELCTL_PROGRAM " widgets > /dev/full 2> /dev/null";
    EXPECT_EQ(WEXITSTATUS(std::system(command.c_str())), 1);
}

TEST_F(VantelctlTest, HelpAndVersionAreAnswers) {
    EXPECT_THAT(output({"--version"}), StartsWith("vantelctl 0."));
    EXPECT_THAT(output({"--help"}), HasSubstr("snapshot"));
    for (const Words& command : {Words{"widgets"},
                                 Words{"timeline"},
                                 Words{"view"},
                                 Words{"buckets"},
                                 Words{"staleness"},
                                 Words{"complete"},
                                 Words{"link"},
                                 Words{"link", "todo"},
                                 Words{"snapshot"},
                                 Words{"snapshot", "show"},
                                 Words{"snapshot", "decode"},
                                 Words{"snapshot", "write"},
                                 Words{"snapshot", "remove"},
                                 Words{"snapshot", "complete"},
                                 Words{"snapshot", "placeholder"},
                                 Words{"journal"},
                                 Words{"journal", "list"},
                                 Words{"journal", "append"},
                                 Words{"journal", "remove"},
                                 Words{"journal", "clear"},
                                 Words{"container"},
                                 Words{"reload"}}) {
        Words words = command;
        words.emplace_back("--help");
        EXPECT_THAT(output(words), HasSubstr(command.back()));
    }
}

TEST_F(VantelctlTest, ReloadWithoutABusOrAHostIsToldPlainly) {
    vantelctl.environment["DBUS_SESSION_BUS_ADDRESS"] = "unix:path=/nonexistent/bus";
    EXPECT_THAT(failure(1, {"reload"}), StartsWith("vantelctl: reload: no widget host is running"));
}

TEST_F(VantelctlTest, APreviewNeverReadsTheFile) {
    output({"snapshot", "write", busyTuesday});
    const Words preview = {"view", "focus", "medium", "--preview", "--json", "--at", "2026-11-17T09:20"};
    EXPECT_THAT(output(preview), HasSubstr("Send DFG interim report"));
}

} // namespace
} // namespace vantel
