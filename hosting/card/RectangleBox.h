#pragma once

#include "hosting/ViewText.h"
#include "hosting/card/Box.h"

namespace vantel::card {

/// A filled rectangle: a tint where there are colours, else a shade.
class RectangleBox final : public Box {
public:
    RectangleBox(Size size, const ResolvedColor& color, TerminalColors colors)
        : m_size(size)
        , m_color(color)
        , m_colors(colors) {}

    int idealWidth() const override { return m_size.width; }
    int height(int) const override { return m_size.height; }
    void draw(Canvas& canvas, const Rect& room) const override;

private:
    Size m_size;
    ResolvedColor m_color;
    TerminalColors m_colors;
};

} // namespace vantel::card
