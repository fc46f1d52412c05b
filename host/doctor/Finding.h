#pragma once

#include <string>
#include <vector>

namespace vantel {

/// How well a part of the surroundings serves the widgets.
enum class Verdict {
    ok,
    warn, ///< something is missing or poorer than it could be
    fail  ///< something stands in the way of the widgets
};

/// One line of what the doctor says, in the user's language. All of it can be shown as it stands.
struct Finding {
    Verdict verdict;
    std::string words;

    bool operator==(const Finding&) const = default;
};

using Findings = std::vector<Finding>;

/// One line each: "warn  No window manager runs, …". The first words are the same in every language.
std::string printed(const Findings& findings);

/// 1 when something stands in the way, else 0.
int exitStatus(const Findings& findings);

} // namespace vantel
