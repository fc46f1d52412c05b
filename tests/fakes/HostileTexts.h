#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vantel::testing {

/// A text that nobody writes by accident, and what it tries.
struct HostileText {
    std::string attempt;
    std::string text; ///< UTF-8
};

/// Control characters, terminal sequences, markup that fetches, directions that turn around, marks without
/// end, invisible characters, formats, paths, commands, emoji, and what else has broken programs.
std::vector<HostileText> hostileTexts();

/// A few megabytes each.
std::vector<HostileText> hugeTexts();

/// Meeting links of every scheme and shape that should open nothing, some of them no URLs at all.
std::vector<std::string> hostileLinks();

/// The first character that a terminal could obey, or that would turn its reading around; absent when there
/// is none. Line feeds are fine.
std::optional<char32_t> firstThatATerminalObeys(std::string_view output);

} // namespace vantel::testing
