#pragma once

#include "hosting/card/Box.h"

namespace vantel::card {

/// A box in room of its own. A width in points is the least: letters of a terminal are wider than those of a
/// window, and an hour that is cut helps nobody. Heights say nothing where a line is a row.
class FramedBox final : public Box {
public:
    FramedBox(BoxPointer content, const Frame& frame);

    int idealWidth() const override;
    int height(int width) const override;
    bool growsTall() const override;
    void draw(Canvas& canvas, const Rect& room) const override;

private:
    BoxPointer m_content;
    Frame m_frame;
};

} // namespace vantel::card
