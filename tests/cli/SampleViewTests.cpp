#include "tests/cli/Goldens.h"
#include "tests/cli/Program.h"

#include <ostream>

#include <gtest/gtest.h>

namespace vantel {
namespace {

using namespace testing;

struct Sample {
    const char* name;
    const char* moment;

    friend void PrintTo(const Sample& sample, std::ostream* stream) {
        *stream << sample.name << " at " << sample.moment;
    }
};

constexpr Sample samples[] = {{"busy-tuesday", "2026-11-17T09:20"}, {"imminent", "2026-11-17T09:57"},
                              {"running", "2026-11-17T10:30"},      {"friday-recap", "2026-11-20T15:30"},
                              {"evening", "2026-11-17T19:10"},      {"stale", "2026-11-19T11:00"},
                              {"all-clear", "2026-11-18T12:00"},    {"legacy-unbound", "2026-11-17T09:20"},
                              {"heavy", "2026-11-17T09:20"}};

struct View {
    const char* kind;
    const char* family;
};

constexpr View views[] = {{"focus", "small"},    {"focus", "medium"}, {"next-up", "small"},
                          {"next-up", "medium"}, {"triage", "small"}, {"group-today", "medium"}};

class SampleView : public ::testing::TestWithParam<Sample> {
protected:
    std::string views(const std::vector<std::string>& also) const {
        const Sample& sample = GetParam();
        const std::string file = dataFile("samples/" + std::string(sample.name) + ".json").string();
        std::string all;
        for (const View& view : vantel::views) {
            std::vector<std::string> words = {"view",        view.kind,    view.family, "--at",
                                              sample.moment, "--snapshot", file};
            words.insert(words.end(), also.begin(), also.end());
            const Finished finished = vantelctl(words);
            EXPECT_EQ(finished.status, 0) << finished.error;
            EXPECT_EQ(finished.error, "");
            all += finished.output;
        }
        return all;
    }

    Vantelctl vantelctl;
};

TEST_P(SampleView, LooksAsItsGoldenCards) {
    expectGolden(std::string(GetParam().name) + ".txt", views({}));
}

TEST_P(SampleView, IsTheTreeOfItsGolden) {
    expectGolden(std::string(GetParam().name) + ".jsonl", views({"--json"}));
}

INSTANTIATE_TEST_SUITE_P(Samples, SampleView, ::testing::ValuesIn(samples), [](const auto& sample) {
    std::string name = sample.param.name;
    std::erase(name, '-');
    return name;
});

} // namespace
} // namespace vantel
