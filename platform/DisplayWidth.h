#pragma once

#include <string>
#include <string_view>

namespace vantel {

/// What a reader takes for one character: a base with its marks, or the two halves of a flag.
struct Glyph {
    std::string_view text;
    int width; ///< columns: 2 for East Asian characters and emoji, 0 for marks without a base

    bool operator==(const Glyph&) const = default;
};

/// The first glyph of a text, which must not be empty.
Glyph firstGlyph(std::string_view text);

/// The columns of a terminal that a visible text takes (see VisibleText.h).
int displayWidth(std::string_view text);

/// The longest beginning that takes at most so many columns. No glyph is cut in two.
std::string_view cutToWidth(std::string_view text, int columns);

/// The text itself when it fits, else its beginning with "…" at the end. Empty when there is no room at all.
std::string elided(std::string_view text, int columns);

/// The text without those characters whose width terminals disagree about: marks that only select a
/// presentation or join emoji, skin tones, and everything else that is invisible. An emoji made of several
/// comes apart.
std::string withSteadyWidth(std::string_view text);

} // namespace vantel
