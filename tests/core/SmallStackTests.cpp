#include "core/JournalLines.h"
#include "core/SnapshotDocument.h"
#include "tests/core/JsonCases.h"
#include "tests/core/SnapshotFields.h"

#include <functional>

#include <gtest/gtest.h>
#include <pthread.h>

namespace vantel {
namespace {

using namespace testing;

constexpr std::size_t smallStack = 256 * std::size_t{1024};

void* callFunction(void* function) {
    (*static_cast<std::function<void()>*>(function))();
    return nullptr;
}

void onASmallStack(std::function<void()> function) {
    pthread_attr_t attributes;
    ASSERT_EQ(pthread_attr_init(&attributes), 0);
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, smallStack), 0);
    pthread_t thread{};
    ASSERT_EQ(pthread_create(&thread, &attributes, callFunction, &function), 0);
    EXPECT_EQ(pthread_join(thread, nullptr), 0);
    pthread_attr_destroy(&attributes);
}

TEST(SmallStack, TheDeepestDocumentsNeedNoMoreOfItThanOthers) {
    onASmallStack([] {
        for (const auto& cases : {nestingCases(), structureCases()})
            for (const JsonCase& json : cases) {
                std::string document = objectOf(snapshotRecord, {});
                document.insert(1, "\"ignored\":" + json.bytes + ",");
                EXPECT_EQ(decodeSnapshot(document).has_value(), json.value.has_value()) << json.name;
            }
    });
}

TEST(SmallStack, TheDeepestJournalLinesNeedNoMoreOfItThanOthers) {
    onASmallStack([] {
        const std::string line =
            R"("id":"E621E1F8-C36C-495A-93FC-0C247A3E6E5F","action":"completeTodo","todoID":"t","at":0})";
        for (const JsonCase& json : nestingCases())
            EXPECT_EQ(decodeJournal("{\"ignored\":" + json.bytes + "," + line).size(), json.value ? 1U : 0U)
                << json.name;
    });
}

} // namespace
} // namespace vantel
