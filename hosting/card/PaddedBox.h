#pragma once

#include "hosting/card/Box.h"

namespace vantel::card {

/// A box with room around it.
class PaddedBox final : public Box {
public:
    PaddedBox(BoxPointer content, const Padding& padding);

    int idealWidth() const override;
    int height(int width) const override;
    bool growsTall() const override { return m_content->growsTall(); }
    void draw(Canvas& canvas, const Rect& room) const override;

private:
    BoxPointer m_content;
    int m_top, m_bottom, m_leading, m_trailing;
};

} // namespace vantel::card
