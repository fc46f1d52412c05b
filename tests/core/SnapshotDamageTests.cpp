#include "core/SnapshotDocument.h"
#include "tests/core/SnapshotFields.h"

#include <gtest/gtest.h>

namespace vantel {
namespace {

using namespace testing;
using namespace std::string_literals;
using namespace std::string_view_literals;

/// A document with one record of each kind and every optional key.
std::string goldenDocument() {
    Exchanges arrays;
    for (const Record& record : everyRecord())
        if (const std::size_t bracket = record.path.find('['); bracket != std::string::npos)
            arrays.emplace_back(record.path.substr(0, bracket), "[" + objectOf(record, {}) + "]");
    return objectOf(snapshotRecord, arrays);
}

std::string flipped(std::string document, std::size_t bit) {
    const std::size_t byte = bit / 8;
    document[byte] = static_cast<char>(static_cast<unsigned char>(document[byte]) ^ (1U << (bit % 8)));
    return document;
}

bool holdsAllRecords(const WidgetSnapshot& snapshot) {
    return snapshot.tasks.size() == 1 && snapshot.events.size() == 1 && snapshot.allDayChips.size() == 1 &&
           snapshot.horizon.size() == 1;
}

std::string reasonOf(const std::string& document) {
    const auto snapshot = decodeSnapshot(document);
    return snapshot ? "decodes" : message(snapshot.error());
}

/// The document with each character as `width` bytes, most significant first or last.
enum class ByteOrder { bigEndian, littleEndian };

std::string widened(std::string_view text, std::size_t width, ByteOrder order) {
    const std::string zeros(width - 1, '\0');
    std::string result;
    for (const char c : text)
        result += order == ByteOrder::bigEndian ? zeros + c : c + zeros;
    return result;
}

TEST(SnapshotDamage, TheGoldenDocumentDecodesAndHoldsEveryRecord) {
    const auto snapshot = decodeSnapshot(goldenDocument());
    ASSERT_TRUE(snapshot);
    EXPECT_TRUE(holdsAllRecords(*snapshot));
    EXPECT_TRUE(snapshot->recap);
}

TEST(SnapshotDamage, ADocumentThatIsCutAnywhereIsNoSnapshot) {
    const std::string golden = goldenDocument();
    for (std::size_t length = 0; length < golden.size(); ++length) {
        EXPECT_FALSE(decodeSnapshot(golden.substr(0, length))) << length;
        EXPECT_FALSE(decodeSnapshot(golden.substr(0, length) + std::string(golden.size() - length, '\0')));
        EXPECT_FALSE(decodeSnapshot(golden.substr(golden.size() - length))) << length;
    }
}

TEST(SnapshotDamage, ASingleFlippedBitGivesNoSnapshotOrAWholeOneThatReadsBackEqual) {
    const std::string golden = goldenDocument();
    std::size_t decoded = 0;
    for (std::size_t bit = 0; bit < golden.size() * 8; ++bit) {
        const auto snapshot = decodeSnapshot(flipped(golden, bit));
        if (!snapshot)
            continue;
        ++decoded;
        EXPECT_TRUE(holdsAllRecords(*snapshot)) << bit;
        EXPECT_EQ(decodeSnapshot(encodeSnapshot(*snapshot).value()), snapshot) << bit;
    }
    EXPECT_GT(decoded, 0U);
}

TEST(SnapshotDamage, AByteInFrontOfAnyOtherGivesNoSnapshotOrAWholeOneThatReadsBackEqual) {
    const std::string golden = goldenDocument();
    for (std::size_t at = 0; at <= golden.size(); ++at)
        for (const char inserted : "\0\x01\n \"\\{}[],:09-eE\x80\xC3\xF4\xFF"sv) {
            const auto snapshot = decodeSnapshot(std::string(golden).insert(at, 1, inserted));
            if (!snapshot)
                continue;
            EXPECT_TRUE(holdsAllRecords(*snapshot)) << at;
            EXPECT_EQ(decodeSnapshot(encodeSnapshot(*snapshot).value()), snapshot) << at;
        }
}

TEST(SnapshotDamage, ANulAnywhereIsNoSnapshot) {
    const std::string golden = goldenDocument();
    for (std::size_t at = 0; at < golden.size(); ++at) {
        EXPECT_FALSE(decodeSnapshot(std::string(golden).insert(at, 1, '\0'))) << at;
        EXPECT_FALSE(decodeSnapshot(std::string(golden).replace(at, 1, 1, '\0'))) << at;
    }
    EXPECT_FALSE(decodeSnapshot(golden + '\0'));
}

TEST(SnapshotDamage, OtherEncodingsAreNoSnapshot) {
    const std::string golden = goldenDocument();
    EXPECT_EQ(reasonOf("\xEF\xBB\xBF" + golden), "starts with a byte order mark");
    EXPECT_NE(reasonOf(golden + "\xEF\xBB\xBF"), "decodes");
    for (const std::size_t width : {2U, 4U})
        for (const ByteOrder order : {ByteOrder::bigEndian, ByteOrder::littleEndian}) {
            EXPECT_FALSE(decodeSnapshot(widened(golden, width, order)));
            EXPECT_FALSE(decodeSnapshot("\xFF\xFE"s + widened(golden, width, order)));
            EXPECT_FALSE(decodeSnapshot("\xFE\xFF"s + widened(golden, width, order)));
        }
}

TEST(SnapshotDamage, OnlyBlanksMayStandAroundTheDocument) {
    const std::string golden = goldenDocument();
    EXPECT_EQ(reasonOf(" \t\r\n" + golden + " \t\r\n"), "decodes");
    for (const std::string_view other :
         {"\v"sv, "\f"sv, "\0"sv, "\x1E"sv, "\xC2\xA0"sv, "\xE2\x80\xA8"sv, ","sv, ";"sv, "//\n"sv, "/**/"sv,
          "#\n"sv, "{}"sv, "[]"sv, "null"sv, "]"sv, "}"sv, ")]}'\n"sv, "\xFF"sv}) {
        EXPECT_FALSE(decodeSnapshot(std::string(other) + golden)) << other;
        EXPECT_FALSE(decodeSnapshot(golden + std::string(other))) << other;
    }
    EXPECT_FALSE(decodeSnapshot(golden + "\n" + golden));
}

TEST(SnapshotDamage, WhatIsNoObjectIsNoSnapshot) {
    EXPECT_EQ(reasonOf(""), "empty");
    EXPECT_EQ(reasonOf(" \n"), "empty");
    for (const char* root : {"null", "true", "0", "1e5", R"("{}")", "[]", "[{}]"})
        EXPECT_EQ(reasonOf(root), "not an object") << root;
    EXPECT_EQ(reasonOf("[" + goldenDocument() + "]"), "not an object");
}

} // namespace
} // namespace vantel
