#pragma once

#include "cli/Command.h"

#include <expected>

namespace vantel {

/// A command line that was understood: what to run, and with what.
struct Invocation {
    Command command;
    Arguments arguments;
};

/// A command line that asks for nothing to be run: help or a version to print, or a mistake to report.
struct NothingToRun {
    ExitStatus status;
    std::string text; ///< for standard output, or the one line for standard error
};

std::expected<Invocation, NothingToRun> parseCommandLine(int count, const char* const* words);

} // namespace vantel
