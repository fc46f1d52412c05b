#pragma once

#include <cstdio>
#include <cstdlib>

/// Ends the fuzzer where a promise does not hold, so that the input which broke it is kept.
inline void promise(bool holds, const char* what) {
    if (holds)
        return;
    std::fprintf(stderr, "broken promise: %s\n", what);
    std::abort();
}
