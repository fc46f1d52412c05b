#include "hosting/card/RectangleBox.h"

namespace vantel::card {

namespace {

std::string_view shade(double alpha) {
    if (alpha >= 1)
        return "█";
    if (alpha >= 0.6)
        return "▓";
    return alpha >= 0.3 ? "▒" : "░";
}

} // namespace

void RectangleBox::draw(Canvas& canvas, const Rect& room) const {
    if (m_colors == TerminalColors::trueColor)
        canvas.tint(room, m_color);
    else
        canvas.fill(room, shade(m_color.alpha), Pen{m_color});
}

} // namespace vantel::card
