#pragma once

#include "hosting/card/Box.h"

namespace vantel::card {

class RuleBox final : public Box {
public:
    RuleBox(Axis axis, const Pen& pen)
        : m_axis(axis)
        , m_pen(pen) {}

    int idealWidth() const override { return m_axis == Axis::horizontal ? allColumns : 1; }
    int height(int) const override { return 1; }
    bool growsTall() const override { return m_axis == Axis::vertical; }
    void draw(Canvas& canvas, const Rect& room) const override {
        canvas.fill(room, m_axis == Axis::horizontal ? "─" : "│", m_pen);
    }

private:
    Axis m_axis;
    Pen m_pen;
};

} // namespace vantel::card
