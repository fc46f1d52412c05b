#pragma once

#include "hosting/Element.h"
#include "hosting/card/Canvas.h"

#include <memory>
#include <vector>

namespace vantel::card {

/// The ideal width of what takes all the columns there are.
inline constexpr int allColumns = 1'000'000;

/// An element in a terminal. A box is measured first, the width before the height, and then drawn into the
/// room that its container decides on, which may be less than it asked for.
class Box {
public:
    virtual ~Box() = default;

    /// The columns it would take if there were no end of them.
    virtual int idealWidth() const = 0;

    /// The rows it needs when it has so many columns.
    virtual int height(int width) const = 0;

    /// Whether it takes rows that are left over, whatever its container.
    virtual bool growsTall() const { return false; }

    /// Whether it takes what is left over in the direction of its container.
    virtual bool isSpacer() const { return false; }

    /// Whether it looks like a gap at its end, so that its container needs none there.
    virtual bool endsInGap() const { return false; }

    virtual void draw(Canvas& canvas, const Rect& room) const = 0;
};

using BoxPointer = std::unique_ptr<const Box>;
using Boxes = std::vector<BoxPointer>;

/// Where in `room` a box stands that is smaller.
Rect placed(const Box& box, const Rect& room, StackAlignment alignment);

} // namespace vantel::card
