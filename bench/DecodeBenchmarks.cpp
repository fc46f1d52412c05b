#include "bench/Budgets.h"
#include "bench/SampleDocuments.h"
#include "core/SnapshotDocument.h"

#include <benchmark/benchmark.h>
#include <nlohmann/json.hpp>
#include <simdjson.h>

namespace vantel::bench {

namespace {

using simdjson::dom::array;
using simdjson::dom::element;
using simdjson::dom::element_type;
using simdjson::dom::object;

/// What a reader touches: every key, text and number once.
struct Walk {
    std::size_t bytes = 0;
    double sum = 0;

    void visit(element value) {
        switch (value.type()) {
        case element_type::ARRAY:
            return visitItems(value.get_array().value_unsafe());
        case element_type::OBJECT:
            return visitFields(value.get_object().value_unsafe());
        case element_type::STRING:
            bytes += value.get_string().value_unsafe().size();
            return;
        case element_type::BOOL:
        case element_type::NULL_VALUE:
            return;
        default:
            sum += value.get_double().value_unsafe();
        }
    }

private:
    void visitItems(array items) {
        for (const element item : items)
            visit(item);
    }
    void visitFields(object fields) {
        for (const auto field : fields) {
            bytes += field.key.size();
            visit(field.value);
        }
    }
};

void decode(benchmark::State& state, std::size_t tasks) {
    const std::string document = documentWith(tasks);
    for (auto _ : state)
        benchmark::DoNotOptimize(decodeSnapshot(document));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(document.size()));
}

void walk(benchmark::State& state, std::size_t tasks) {
    const std::string document = documentWith(tasks);
    for (auto _ : state) {
        simdjson::dom::parser parser;
        Walk walk;
        walk.visit(parser.parse(document).value());
        benchmark::DoNotOptimize(walk);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(document.size()));
}

void parseWithNlohmann(benchmark::State& state, std::size_t tasks) {
    const std::string document = documentWith(tasks);
    for (auto _ : state)
        benchmark::DoNotOptimize(nlohmann::json::parse(document));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(document.size()));
}

BENCHMARK_CAPTURE(decode, 14kB, tasksOfTypicalDocument);
BENCHMARK_CAPTURE(walk, 14kB, tasksOfTypicalDocument);
BENCHMARK_CAPTURE(parseWithNlohmann, 14kB, tasksOfTypicalDocument);
BENCHMARK_CAPTURE(decode, 19MB, tasksOfHugeDocument);
BENCHMARK_CAPTURE(walk, 19MB, tasksOfHugeDocument);
BENCHMARK_CAPTURE(parseWithNlohmann, 19MB, tasksOfHugeDocument);

const bool declared = declare({"decode/14kB", "walk/14kB", 1.5}) &&
                      declare({"decode/19MB", "walk/19MB", 1.5}) &&
                      declare({"decode/14kB", "parseWithNlohmann/14kB", 0.2}) &&
                      declare({"decode/19MB", "parseWithNlohmann/19MB", 0.2});

} // namespace

} // namespace vantel::bench
