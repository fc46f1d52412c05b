#include "hosting/card/TextBox.h"

#include "hosting/card/Lines.h"
#include "platform/DisplayWidth.h"

#include <algorithm>

namespace vantel::card {

namespace {

constexpr int mostLines = 6;
constexpr int mostColumns = 80 * mostLines; // more than any card has in so many lines

int indent(HorizontalAlignment alignment, int free) {
    if (alignment == HorizontalAlignment::leading)
        return 0;
    return alignment == HorizontalAlignment::center ? free / 2 : free;
}

} // namespace

TextBox::TextBox(std::string_view text, const Style& style)
    : m_text(elided(text, mostColumns))
    , m_style(style)
    , m_idealWidth(displayWidth(m_text)) {}

int TextBox::height(int width) const {
    return static_cast<int>(lines(width).size());
}

void TextBox::draw(Canvas& canvas, const Rect& room) const {
    int row = 0;
    for (const std::string& line : lines(room.width)) {
        if (row == room.height)
            return;
        const int x = indent(m_style.alignment, std::max(0, room.width - displayWidth(line)));
        canvas.write(room.below(row++).from(x), line, m_style.pen);
    }
}

std::vector<std::string> TextBox::lines(int width) const {
    if (width <= 0)
        return {""};
    return wrapped(m_text, width, std::clamp(m_style.lineLimit.value_or(mostLines), 1, mostLines));
}

} // namespace vantel::card
