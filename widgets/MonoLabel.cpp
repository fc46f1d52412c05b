#include "widgets/MonoLabel.h"

namespace vantel {

Element monoLabel(std::string_view text, Color color, const Formats& formats) {
    constexpr Font font{.size = 9.5, .weight = FontWeight::bold, .design = FontDesign::monospaced};
    return {Text{formats.upperCase(text), {.font = font, .kerning = 0.5, .color = color, .lineLimit = 1}}};
}

} // namespace vantel
