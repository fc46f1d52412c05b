#pragma once

#include "hosting/card/Box.h"

namespace vantel::card {

/// Boxes over each other, the first at the bottom.
class StackBox final : public Box {
public:
    StackBox(Boxes children, StackAlignment alignment);

    int idealWidth() const override;
    int height(int width) const override;
    bool growsTall() const override;
    void draw(Canvas& canvas, const Rect& room) const override;

private:
    Boxes m_children;
    StackAlignment m_alignment;
};

} // namespace vantel::card
