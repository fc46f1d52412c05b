#include "platform/Uuid.h"

#include <set>

#include <gtest/gtest.h>

namespace vantel {
namespace {

TEST(Uuid, TextIsTheCanonicalFormInUpperCase) {
    const auto uuid = parseUuid("e621e1f8-c36c-495a-93fc-0c247a3e6e5f");
    ASSERT_TRUE(uuid);
    EXPECT_EQ(text(*uuid), "E621E1F8-C36C-495A-93FC-0C247A3E6E5F");
}

TEST(Uuid, OnlyTheCanonicalFormIsRead) {
    for (const char* malformed :
         {"", "E621E1F8", "E621E1F8C36C495A93FC0C247A3E6E5F", "E621E1F8-C36C-495A-93FC-0C247A3E6E5",
          "E621E1F8-C36C-495A-93FC-0C247A3E6E5FF", "G621E1F8-C36C-495A-93FC-0C247A3E6E5F",
          "E621E1F8-C36C-495A-93FC-0C247A3E6E5 ", "{621E1F8-C36C-495A-93FC-0C247A3E6E5}",
          "E621E1F80C36C-495A-93FC-0C247A3E6E5F"})
        EXPECT_FALSE(parseUuid(malformed)) << malformed;
}

TEST(Uuid, RandomOnesAreVersionFourAndDiffer) {
    std::set<Uuid> seen;
    for (int i = 0; i < 1000; ++i) {
        const Uuid uuid = randomUuid();
        EXPECT_EQ(text(uuid)[14], '4');
        EXPECT_NE(std::string("89AB").find(text(uuid)[19]), std::string::npos);
        seen.insert(uuid);
    }
    EXPECT_EQ(seen.size(), 1000U);
}

} // namespace
} // namespace vantel
