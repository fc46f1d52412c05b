#include "hosting/card/CapsuleBox.h"

#include <algorithm>
#include <cmath>

namespace vantel::card {

namespace {

constexpr int capsuleEnds = 4; // a round end and a blank on each side

/// Whether a fill would not stand out from what is behind it.
bool isAlike(const ResolvedColor& a, const ResolvedColor& b) {
    return std::abs(a.red - b.red) + std::abs(a.green - b.green) + std::abs(a.blue - b.blue) < 0.15;
}

} // namespace

CapsuleBox::CapsuleBox(BoxPointer content, const ResolvedColor& fill, const ResolvedColor& outline,
                       TerminalColors colors)
    : m_content(std::move(content))
    , m_fill(fill)
    , m_outline(outline)
    , m_colors(colors) {}

int CapsuleBox::idealWidth() const {
    return std::min(allColumns, m_content->idealWidth() + capsuleEnds);
}

int CapsuleBox::height(int width) const {
    return m_content->height(roomInside({0, 0, width, 1}).width);
}

void CapsuleBox::draw(Canvas& canvas, const Rect& room) const {
    const Rect inside = roomInside(room);
    if (inside != room)
        drawShape(canvas, room);
    m_content->draw(canvas, inside);
}

/// The content comes first where there is no room for both.
Rect CapsuleBox::roomInside(const Rect& room) const {
    if (room.width <= capsuleEnds)
        return room;
    return {room.x + capsuleEnds / 2, room.y, room.width - capsuleEnds, room.height};
}

void CapsuleBox::drawShape(Canvas& canvas, const Rect& room) const {
    const bool hasOutline = m_colors == TerminalColors::none || isAlike(m_fill, canvas.background());
    const Pen pen{hasOutline ? m_outline : m_fill};
    if (m_colors == TerminalColors::trueColor)
        canvas.tint({room.x + 1, room.y, room.width - 2, room.height}, m_fill);
    for (int row = 0; row < room.height; ++row) {
        canvas.write(room.below(row), hasOutline ? "(" : "▐", pen);
        canvas.write(room.below(row).from(room.width - 1), hasOutline ? ")" : "▌", pen);
    }
}

} // namespace vantel::card
