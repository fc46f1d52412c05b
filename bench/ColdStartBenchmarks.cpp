#include "bench/Budgets.h"
#include "bench/Scratch.h"

#include <array>
#include <vector>

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>

namespace vantel::bench {

namespace {

/// Runs a program beside this one to its end, its output thrown away. Whether it ended well.
bool runToEnd(std::vector<std::string> arguments) {
    arguments.front().insert(0, VANTEL_BENCH_PROGRAMS "/");
    std::vector<char*> pointers;
    for (std::string& argument : arguments)
        pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
    pid_t child = 0;
    const bool started =
        ::posix_spawn(&child, pointers.front(), &actions, nullptr, pointers.data(), environ) == 0;
    posix_spawn_file_actions_destroy(&actions);
    int status = 0;
    return started && ::waitpid(child, &status, 0) == child && status == 0;
}

void coldStart(benchmark::State& state, const std::vector<std::string>& arguments) {
    for (auto _ : state)
        if (!runToEnd(arguments))
            return state.SkipWithError("the program did not end well");
}

/// The view with the most dates.
const std::vector<std::string> typicalView = {
    "vantelctl", "view", "next-up", "medium", "--snapshot", VANTEL_BENCH_SAMPLE, "--at", "2026-11-17T09:20"};

BENCHMARK_CAPTURE(coldStart, hello, {"vantel_bench_hello"})->Apply(inManyShortTurns);
BENCHMARK_CAPTURE(coldStart, oneDate, {"vantel_bench_one_date"})->Apply(inManyShortTurns);
BENCHMARK_CAPTURE(coldStart, container, {"vantelctl", "container"})->Apply(inManyShortTurns);
BENCHMARK_CAPTURE(coldStart, view, typicalView)->Apply(inManyShortTurns);

const bool declared =
    declare({"coldStart/container", "coldStart/hello", 2, Budget::Rule::extraMilliseconds}) &&
    declare({"coldStart/view", "coldStart/oneDate", 1.3});

} // namespace

} // namespace vantel::bench
