#pragma once

#include "host/scene/Lengths.h"

namespace vantel::scene {

/// Boxes from top to bottom.
class ColumnBox final : public Box {
public:
    ColumnBox(Boxes boxes, HorizontalAlignment alignment, double gap);

    double firstBaseline(const QSizeF& size) const override;
    void place(const QRectF& rectangle, Placer& placer) const override;

protected:
    QSizeF measured(const Proposal& proposal) const override;

private:
    LineRoom room(std::optional<double> height, std::optional<double> width) const;

    Boxes m_boxes;
    HorizontalAlignment m_alignment;
    double m_gap;
};

/// Boxes side by side.
class RowBox final : public Box {
public:
    RowBox(Boxes boxes, VerticalAlignment alignment, double gap);

    double firstBaseline(const QSizeF& size) const override;
    void place(const QRectF& rectangle, Placer& placer) const override;

protected:
    QSizeF measured(const Proposal& proposal) const override;

private:
    struct Sizes {
        std::vector<QSizeF> sizes;
        double baseline; ///< of the row, from its top
        double height;
    };
    Sizes sizes(std::optional<double> width, std::optional<double> height) const;
    double top(const QRectF& rectangle, std::size_t index, const Sizes& sizes) const;

    Boxes m_boxes;
    VerticalAlignment m_alignment;
    double m_gap;
};

} // namespace vantel::scene
