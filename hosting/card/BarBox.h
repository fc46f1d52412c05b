#pragma once

#include "hosting/card/Box.h"

namespace vantel::card {

/// A bar of half a column, whose other half is the gap after it.
class BarBox final : public Box {
public:
    explicit BarBox(const Pen& pen)
        : m_pen(pen) {}

    int idealWidth() const override { return 1; }
    int height(int) const override { return 1; }
    bool endsInGap() const override { return true; }
    void draw(Canvas& canvas, const Rect& room) const override { canvas.fill(room, "▌", m_pen); }

private:
    Pen m_pen;
};

} // namespace vantel::card
