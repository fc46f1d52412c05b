#include "hosting/card/Symbols.h"

#include <array>
#include <utility>

namespace vantel::card {

namespace {

/// None of these has an emoji presentation, which some terminals would draw wide.
constexpr std::array<std::pair<std::string_view, std::string_view>, 7> glyphs = {{{"checkmark", "✓"},
                                                                                  {"circle", "○"},
                                                                                  {"moon", "☾"},
                                                                                  {"flag", "⚑"},
                                                                                  {"sun.max", "☼"},
                                                                                  {"person", "♙"},
                                                                                  {"person.2", "♙"}}};

} // namespace

std::string_view symbolGlyph(std::string_view name) {
    for (const auto& [symbol, glyph] : glyphs)
        if (symbol == name)
            return glyph;
    return "•";
}

} // namespace vantel::card
