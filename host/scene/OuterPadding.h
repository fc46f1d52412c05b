#pragma once

#include "hosting/Element.h"

#include <cstddef>

namespace vantel::scene {

/// The room that an element keeps around itself, and the size that it asks for.
struct Edges {
    Padding padding;
    Frame frame;
};

Edges edges(const Element& element);

/// The same for a child of the outermost row, whose padding at the edges of the card is part of the card's
/// margins, not added to them, so that all cards keep one margin.
Edges edgesInOutermostRow(const Element& child, std::size_t index, std::size_t count);

} // namespace vantel::scene
