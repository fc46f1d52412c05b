#include "host/bus/SchemeHandlers.h"
#include "tests/fakes/ScratchFolder.h"

#include <fstream>

#include <gtest/gtest.h>

namespace vantel {

using namespace Qt::StringLiterals;
namespace {

using namespace testing;

class SchemeHandlersTest : public ::testing::Test {
protected:
    SchemeHandlersTest() {
        install("halvo.desktop");
        install("kde/halvo.desktop");
        install("one-two/three/halvo-app.desktop");
    }

    void install(const std::string& entry) const { write("data/applications/" + entry, "[Desktop Entry]\n"); }

    void write(const std::string& name, const std::string& text) const {
        const std::filesystem::path path = folder / name;
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path) << text;
    }

    bool isHandled() const { return hasSchemeHandler(u"vantel"_s, folders); }

    ScratchFolder folder;
    ScopedEnvironment desktop{"XDG_CURRENT_DESKTOP", "Vivid:GNOME"};
    ApplicationFolders folders{
        {QString::fromStdString(folder / "config")},
        {QString::fromStdString(folder / "other"), QString::fromStdString(folder / "data")}};
};

TEST_F(SchemeHandlersTest, WithoutAnyListNothingHandles) {
    EXPECT_FALSE(isHandled());
    EXPECT_FALSE(hasSchemeHandler(u"vantel"_s, {}));
}

TEST_F(SchemeHandlersTest, AnyListThatNamesAnInstalledEntryCounts) {
    for (const std::string name :
         {"config/mimeapps.list", "config/gnome-mimeapps.list", "config/vivid-mimeapps.list",
          "data/applications/mimeapps.list", "other/applications/mimeinfo.cache"}) {
        write(name, "[Default Applications]\ntext/html=a.desktop\nx-scheme-handler/vantel=halvo.desktop;\n");
        EXPECT_TRUE(isHandled()) << name;
        std::filesystem::remove(folder / name);
    }
    write("config/kde-mimeapps.list", "x-scheme-handler/vantel=halvo.desktop\n");
    EXPECT_FALSE(isHandled());
}

TEST_F(SchemeHandlersTest, LinesAreReadAsTheyStand) {
    struct Row {
        std::string line;
        bool isHandled;
    };
    for (const Row& row : std::vector<Row>{{"x-scheme-handler/vantel=halvo.desktop", true},
                                           {"x-scheme-handler/vantel=halvo.desktop;\r", true},
                                           {"x-scheme-handler/vantel=gone.desktop;halvo.desktop;", true},
                                           {"x-scheme-handler/vantel=kde-halvo.desktop", true},
                                           {"x-scheme-handler/vantel=one-two-three-halvo-app.desktop", true},
                                           {"x-scheme-handler/vantel=one-two-halvo-app.desktop", false},
                                           {"x-scheme-handler/vantel=..-applications-halvo.desktop", false},
                                           {"x-scheme-handler/vantel=-halvo.desktop", false},
                                           {"x-scheme-handler/vantel=gone.desktop", false},
                                           {"x-scheme-handler/vantel=", false},
                                           {"x-scheme-handler/vantel=;;", false},
                                           {"x-scheme-handler/vantel", false},
                                           {"x-scheme-handler/vantel2=halvo.desktop", false},
                                           {"x-scheme-handler/van=halvo.desktop", false},
                                           {"#x-scheme-handler/vantel=halvo.desktop", false},
                                           {"x-scheme-handler/vantel=../applications/halvo.desktop", false},
                                           {"x-scheme-handler/vantel=halvo", false}}) {
        write("config/mimeapps.list", "[Default Applications]\n" + row.line);
        EXPECT_EQ(isHandled(), row.isHandled) << row.line;
    }
}

TEST_F(SchemeHandlersTest, AnAssociationThatIsTakenAwayIsNone) {
    write("config/mimeapps.list", "[Removed Associations]\nx-scheme-handler/vantel=halvo.desktop\n");
    EXPECT_FALSE(isHandled());
}

TEST_F(SchemeHandlersTest, AListTakesAssociationsAwayFromThoseThatAreFartherOnly) {
    const std::string given = "[Added Associations]\nx-scheme-handler/vantel=halvo.desktop;\n";
    const std::string removed = "[Removed Associations]\nx-scheme-handler/vantel=halvo.desktop;\n";
    write("data/applications/mimeinfo.cache", "[MIME Cache]\nx-scheme-handler/vantel=halvo.desktop;\n");
    write("data/applications/mimeapps.list", removed);
    EXPECT_FALSE(isHandled());
    write("config/mimeapps.list", given);
    EXPECT_TRUE(isHandled());
    write("config/vivid-mimeapps.list", removed);
    EXPECT_FALSE(isHandled());
    write("config/mimeapps.list", "[Added Associations]\nx-scheme-handler/vantel=kde-halvo.desktop\n");
    EXPECT_TRUE(isHandled());
}

TEST_F(SchemeHandlersTest, AHiddenEntryIsNotInstalledAndHidesAFartherOne) {
    write("config/mimeapps.list", "[Default Applications]\nx-scheme-handler/vantel=halvo.desktop\n");
    struct Row {
        std::string entry;
        bool isHandled;
    };
    for (const Row& row : std::vector<Row>{{"[Desktop Entry]\nHidden=true\n", false},
                                           {"[Desktop Entry]\nName=A\nHidden = true\r\n", false},
                                           {"[Desktop Entry]\nHidden=false\n", true},
                                           {"[Desktop Entry]\nNoDisplay=true\n", true},
                                           {"[Desktop Entry]\nHidden\n", true},
                                           {"[Desktop Action New]\nHidden=true\n", true}}) {
        write("other/applications/halvo.desktop", row.entry);
        EXPECT_EQ(isHandled(), row.isHandled) << row.entry;
    }
}

} // namespace
} // namespace vantel
