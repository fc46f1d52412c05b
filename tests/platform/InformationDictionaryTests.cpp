#include "platform/InformationDictionary.h"
#include "tests/fakes/ScratchFolder.h"

#include <fstream>

#include <gtest/gtest.h>

namespace vantel {
namespace {

using namespace std::string_view_literals;
using testing::ScratchFolder;

class InformationText : public ::testing::Test {
protected:
    std::optional<std::string> read(std::string_view contents) {
        std::ofstream(m_folder / "Info.json", std::ios::binary) << contents;
        return informationText(m_folder / "Info.json", "VantelAppGroupIdentifier");
    }

    ScratchFolder m_folder;
};

TEST(InformationDictionary, LiesBesideTheFolderOfTheExecutable) {
    EXPECT_EQ(informationDictionaryOf("/usr/bin/vantelctl"), "/usr/share/vantelctl/Info.json");
    EXPECT_EQ(informationDictionaryOf("/opt/x/bin/a b"), "/opt/x/share/a b/Info.json");
    EXPECT_EQ(informationDictionaryOf("/vantelctl"), "/share/vantelctl/Info.json");
}

TEST(InformationDictionary, TheMainExecutableIsThisProgram) {
    EXPECT_EQ(mainExecutable().filename(), "vantel_platform_tests");
    EXPECT_TRUE(mainExecutable().is_absolute());
}

TEST_F(InformationText, IsTheValueUnderTheKey) {
    EXPECT_EQ(read(R"({"VantelAppGroupIdentifier":"group.x","other":1})"), "group.x");
    EXPECT_EQ(read(R"({"VantelAppGroupIdentifier":""})"), "");
    EXPECT_EQ(read(R"({"VantelAppGroupIdentifier":"a\u0000b"})"), "a\0b"sv);
}

TEST_F(InformationText, IsAbsentWhenTheValueIsNotAText) {
    for (const std::string_view value : {"1"sv, "null"sv, "true"sv, "[]"sv, "{}"sv, R"(["group.x"])"sv})
        EXPECT_FALSE(read(R"({"VantelAppGroupIdentifier":)" + std::string(value) + "}")) << value;
    EXPECT_FALSE(read(R"({"vantelAppGroupIdentifier":"group.x"})"));
    EXPECT_FALSE(read("{}"));
}

TEST_F(InformationText, IsAbsentWhenTheFileIsNoJsonObject) {
    for (const std::string_view contents :
         {""sv, "[]"sv, "\"VantelAppGroupIdentifier\""sv, R"({"VantelAppGroupIdentifier":"group.x")"sv,
          R"({"VantelAppGroupIdentifier":"group.x"},)"sv, "\0"sv})
        EXPECT_FALSE(read(contents)) << contents;
}

TEST_F(InformationText, IsAbsentWithoutAFile) {
    EXPECT_FALSE(informationText(m_folder / "missing.json", "key"));
    EXPECT_FALSE(informationText(m_folder.path(), "key"));
    EXPECT_FALSE(informationText("", "key"));
}

} // namespace
} // namespace vantel
