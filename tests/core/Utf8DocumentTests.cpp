#include "core/SnapshotDocument.h"
#include "tests/core/SnapshotFields.h"

#include <gtest/gtest.h>

namespace vantel {
namespace {

using namespace testing;

/// What the second byte after a first one may be; none where the first byte begins no sequence.
struct Sequence {
    std::size_t length;
    int lowestSecond;
    int highestSecond;
};

/// The table of well-formed sequences as Unicode gives it.
Sequence sequenceOf(int first) {
    if (first >= 0xC2 && first <= 0xDF)
        return {2, 0x80, 0xBF};
    if (first == 0xE0)
        return {3, 0xA0, 0xBF};
    if (first == 0xED)
        return {3, 0x80, 0x9F};
    if (first >= 0xE1 && first <= 0xEF)
        return {3, 0x80, 0xBF};
    if (first == 0xF0)
        return {4, 0x90, 0xBF};
    if (first >= 0xF1 && first <= 0xF3)
        return {4, 0x80, 0xBF};
    if (first == 0xF4)
        return {4, 0x80, 0x8F};
    return {0, 0, 0};
}

/// Whether a text of a first byte beyond ASCII, another one and some that continue a sequence is UTF-8.
bool isUtf8(int first, int second, std::size_t continuing) {
    const Sequence sequence = sequenceOf(first);
    return sequence.length == continuing + 2 && second >= sequence.lowestSecond &&
           second <= sequence.highestSecond;
}

bool decodesWithText(const std::string& text) {
    return decodeSnapshot(objectOf(snapshotRecord, {{"accountID", "\"" + text + "\""}})).has_value();
}

TEST(Utf8Document, OfAllFirstBytesAndTheLimitsOfTheSecondOnlyTheWellFormedAreTaken) {
    for (int first = 0x80; first <= 0xFF; ++first)
        for (const int second : {0x41, 0x7F, 0x80, 0x8F, 0x90, 0x9F, 0xA0, 0xBF, 0xC0, 0xC2, 0xFF})
            for (std::size_t continuing = 0; continuing <= 2; ++continuing) {
                const std::string text = {static_cast<char>(first), static_cast<char>(second)};
                ASSERT_EQ(decodesWithText(text + std::string(continuing, '\x80')),
                          isUtf8(first, second, continuing))
                    << first << " " << second << " " << continuing;
            }
}

} // namespace
} // namespace vantel
