#include "platform/JsonNumbers.h"

#include <gtest/gtest.h>

namespace vantel {
namespace {

TEST(WithNumbersInRange, LeavesWhatTheParserTakes) {
    for (const char* json :
         {"", "{}", R"({"a":[1,-2.5,1e300,123456789012345678,9223372036854775807,1e-999]})",
          R"({"a":18446744073709551615,"b":true})"})
        EXPECT_EQ(withNumbersInRange(json), json);
}

TEST(WithNumbersInRange, MakesDoublesOfIntegersBeyond64Bits) {
    EXPECT_EQ(withNumbersInRange("18446744073709551616"), "18446744073709551616e0");
    EXPECT_EQ(withNumbersInRange("[-9223372036854775809,1]"), "[-9223372036854775809e0,1]");
}

TEST(WithNumbersInRange, MakesWhatNoFieldAcceptsOfNumbersBeyondAllDoubles) {
    EXPECT_EQ(withNumbersInRange("[1e999,-1e999]"), "[[[]],[[]]]");
    EXPECT_EQ(withNumbersInRange(std::string(400, '9')), "[[]]");
}

TEST(WithNumbersInRange, LeavesMalformedNumbers) {
    for (const char* json : {"01e999", "1e999.5", "1.e999", "+1e999", "--1e999", "099999999999999999999", "-",
                             "1e", "1e+", "99999999999999999999."})
        EXPECT_EQ(withNumbersInRange(json), json);
}

TEST(WithNumbersInRange, LeavesTexts) {
    for (const char* json : {R"("1e999")", R"("\"1e999")", R"("\\\"1e999")", R"("1e999)", R"("\)", R"(")"})
        EXPECT_EQ(withNumbersInRange(json), json);
    EXPECT_EQ(withNumbersInRange(R"("\\"1e999)"), R"("\\"[[]])");
}

} // namespace
} // namespace vantel
