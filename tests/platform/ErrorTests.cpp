#include "platform/Error.h"
#include "platform/FatalError.h"

#include <cerrno>

#include <gtest/gtest.h>

namespace vantel {
namespace {

TEST(Error, FileErrorsCarryTheirCodeAndAnEmptyDictionary) {
    EXPECT_EQ(static_cast<int>(CocoaError::Code::fileReadUnknown), 256);
    EXPECT_EQ(static_cast<int>(CocoaError::Code::fileWriteUnknown), 512);
    EXPECT_EQ(fileReadUnknown(), Error(CocoaError{CocoaError::Code::fileReadUnknown, {}}));
    EXPECT_EQ(fileWriteUnknown(), Error(CocoaError{CocoaError::Code::fileWriteUnknown, {}}));
    EXPECT_NE(fileReadUnknown(), fileWriteUnknown());
    EXPECT_NE(fileReadUnknown(), Error(CocoaError{CocoaError::Code::fileReadUnknown, {{"key", "value"}}}));
}

TEST(Error, MessagesTellWhereAndWhy) {
    EXPECT_EQ(message(fileReadUnknown()), "the shared container cannot be read");
    EXPECT_EQ(message(fileWriteUnknown()), "the shared container cannot be written");
    EXPECT_EQ(message(DecodingError{"tasks[3].priorityScore", "missing"}), "tasks[3].priorityScore: missing");
    EXPECT_EQ(message(DecodingError{"", "not valid UTF-8"}), "not valid UTF-8");
    EXPECT_EQ(message(EncodingError{"generatedAt", "not a finite number"}),
              "generatedAt: not a finite number");
    EXPECT_EQ(message(SystemError{"open", "/tmp/x", ENOENT}), "open /tmp/x: No such file or directory");
}

TEST(Error, KindsAreToldApartEvenWhenTheySayTheSame) {
    EXPECT_NE(Error(DecodingError{"a", "b"}), Error(EncodingError{"a", "b"}));
    EXPECT_NE(Error(DecodingError{"a", "b"}), Error(DecodingError{"a", "c"}));
}

TEST(FatalError, CarriesItsReason) {
    try {
        fatalError("The count overflows.");
        FAIL() << "went on";
    } catch (const FatalError& error) {
        EXPECT_STREQ(error.what(), "The count overflows.");
    }
}

} // namespace
} // namespace vantel
