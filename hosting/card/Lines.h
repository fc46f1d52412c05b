#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vantel::card {

/// A text from anywhere as it goes into cells: visible, of a width that every terminal agrees on, and cut to
/// what a card could hold at most, with "…" where something is missing.
std::string cardText(std::string_view text);

/// A card text in at most `mostLines` lines of at most `width` columns, broken between words where it can be.
/// The last line ends with "…" when not all of it fits.
std::vector<std::string> wrapped(std::string_view text, int width, int mostLines);

} // namespace vantel::card
