#pragma once

#include <QRectF>
#include <QSizeF>
#include <memory>
#include <optional>
#include <vector>

namespace vantel::scene {

class Placer;

/// The room that a container offers a box, in points. Without a length the box takes what it likes best.
struct Proposal {
    std::optional<double> width;
    std::optional<double> height;

    bool operator==(const Proposal&) const = default;
};

/// More than any card has: the offer that asks a box how far it would grow.
inline constexpr double unbounded = 1e6;

/// An element with a size, on its way to a place. Boxes live as long as one layout takes.
class Box {
public:
    virtual ~Box() = default;

    /// The size that the box takes when it is offered that much. Asked many times, measured once.
    QSizeF size(const Proposal& proposal) const;

    /// From the top of a box of that size to the baseline of its first line; without text, its lower edge.
    virtual double firstBaseline(const QSizeF& size) const { return size.height(); }

    /// Puts the box and what is inside it where they are drawn.
    virtual void place(const QRectF& rectangle, Placer& placer) const = 0;

    /// The least length of a box that takes what the others leave; absent for every other box.
    virtual std::optional<double> spacing() const { return std::nullopt; }

protected:
    virtual QSizeF measured(const Proposal& proposal) const = 0;

private:
    struct Measure {
        Proposal proposal;
        QSizeF size;
    };
    mutable std::vector<Measure> m_measures;
};

using BoxPointer = std::unique_ptr<const Box>;
using Boxes = std::vector<BoxPointer>;

} // namespace vantel::scene
