#pragma once

#include "tests/fakes/ScratchFolder.h"

#include <map>
#include <string>
#include <vector>

namespace vantel::testing {

/// What a finished program left.
struct Finished {
    int status; ///< the exit status; 128 and the signal's number when a signal ended it
    std::string output;
    std::string error;
};

/// A call of vantelctl in surroundings of its own: a scratch data folder, a zone, a locale, and nothing else
/// of the tester's environment.
class Vantelctl {
    ScratchFolder m_scratch;

public:
    Vantelctl();

    std::map<std::string, std::string> environment;

    /// Runs to the end. `input` arrives on standard input.
    Finished operator()(const std::vector<std::string>& arguments, const std::string& input = "") const;

    std::filesystem::path dataHome() const { return m_scratch.path(); }
    std::filesystem::path container() const;
};

/// A file of tests/data.
std::filesystem::path dataFile(const std::string& name);

} // namespace vantel::testing
