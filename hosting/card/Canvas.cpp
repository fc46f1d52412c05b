#include "hosting/card/Canvas.h"

#include "platform/DisplayWidth.h"

#include <algorithm>

namespace vantel::card {

namespace {

ResolvedColor opaque(ResolvedColor color) {
    color.alpha = 1;
    return color;
}

ResolvedColor laidOver(const ResolvedColor& below, const ResolvedColor& color) {
    const auto mixed = [&](double under, double over) { return under + (over - under) * color.alpha; };
    return {mixed(below.red, color.red), mixed(below.green, color.green), mixed(below.blue, color.blue)};
}

Rect intersection(const Rect& a, const Rect& b) {
    const int left = std::max(a.x, b.x);
    const int top = std::max(a.y, b.y);
    const int right = std::min(a.x + a.width, b.x + b.width);
    const int bottom = std::min(a.y + a.height, b.y + b.height);
    return {left, top, std::max(0, right - left), std::max(0, bottom - top)};
}

} // namespace

Canvas::Canvas(Size size, const ResolvedColor& background)
    : m_size(size)
    , m_background(opaque(background))
    , m_cells(static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height),
              Cell{.foreground = m_background, .background = m_background}) {}

void Canvas::write(const Rect& room, std::string_view text, const Pen& pen) {
    Rect rest = intersection(room, bounds());
    if (rest.height == 0)
        return;
    text = cutToWidth(text, rest.width);
    while (!text.empty()) {
        const Glyph glyph = firstGlyph(text);
        if (glyph.width > 0)
            put({rest.x, rest.y}, glyph.text, glyph.width, pen);
        rest = rest.from(glyph.width);
        text.remove_prefix(glyph.text.size());
    }
}

void Canvas::fill(const Rect& room, std::string_view glyph, const Pen& pen) {
    const Rect area = intersection(room, bounds());
    for (int y = area.y; y < area.y + area.height; ++y)
        for (int x = area.x; x < area.x + area.width; ++x)
            put({x, y}, glyph, 1, pen);
}

void Canvas::tint(const Rect& room, const ResolvedColor& color) {
    const Rect area = intersection(room, bounds());
    for (int y = area.y; y < area.y + area.height; ++y)
        for (int x = area.x; x < area.x + area.width; ++x)
            m_cells.at(index({x, y})).background = laidOver(cell({x, y}).background, color);
}

Rect Canvas::bounds() const {
    return {0, 0, m_size.width, m_size.height};
}

const Cell& Canvas::cell(Point at) const {
    return m_cells.at(index(at));
}

std::size_t Canvas::index(Point at) const {
    return static_cast<std::size_t>(at.y) * static_cast<std::size_t>(m_size.width) +
           static_cast<std::size_t>(at.x);
}

void Canvas::put(Point at, std::string_view text, int width, const Pen& pen) {
    for (int offset = 0; offset < width; ++offset)
        clear({at.x + offset, at.y});
    for (int offset = 0; offset < width; ++offset) {
        Cell& target = m_cells.at(index({at.x + offset, at.y}));
        target.text = offset == 0 ? text : std::string_view();
        target.foreground = laidOver(target.background, pen.color);
        target.isBold = pen.isBold;
    }
}

/// Half a glyph cannot stay: what is written over one half takes the other half away.
void Canvas::clear(Point at) {
    constexpr std::string_view blank = " ";
    if (cell(at).text.empty())
        m_cells.at(index({at.x - 1, at.y})).text = blank;
    m_cells.at(index(at)).text = blank;
    if (at.x + 1 < m_size.width && cell({at.x + 1, at.y}).text.empty())
        m_cells.at(index({at.x + 1, at.y})).text = blank;
}

} // namespace vantel::card
