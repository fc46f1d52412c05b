#pragma once

#include "hosting/card/Box.h"

namespace vantel::card {

/// Boxes under each other. Rows that are left over go to the spacers, or else to the children that grow.
class ColumnBox final : public Box {
public:
    ColumnBox(Boxes children, HorizontalAlignment alignment, std::optional<double> spacing);

    int idealWidth() const override;
    int height(int width) const override;
    bool growsTall() const override { return !m_growing.empty(); }
    void draw(Canvas& canvas, const Rect& room) const override;

private:
    int gaps() const;
    std::vector<int> heights(int width) const;
    Rect roomFor(const Box& child, const Rect& room) const;

    Boxes m_children;
    HorizontalAlignment m_alignment;
    int m_gap;
    std::vector<std::size_t> m_growing;
};

} // namespace vantel::card
