#pragma once

#include "hosting/card/Box.h"

namespace vantel::card {

/// Boxes side by side. When room is short the widest give way first; when some is left, the spacers share it.
class RowBox final : public Box {
public:
    RowBox(Boxes children, VerticalAlignment alignment, std::optional<double> spacing);

    int idealWidth() const override;
    int height(int width) const override;
    bool growsTall() const override;
    void draw(Canvas& canvas, const Rect& room) const override;

private:
    int gapAfter(std::size_t index) const;
    int gaps() const;
    std::vector<int> widths(int width) const;
    Rect roomFor(const Box& child, const Rect& room) const;

    Boxes m_children;
    VerticalAlignment m_alignment;
    std::optional<double> m_spacing;
    std::vector<std::size_t> m_spacers;
};

} // namespace vantel::card
