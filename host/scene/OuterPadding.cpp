#include "host/scene/OuterPadding.h"

#include <algorithm>
#include <utility>

namespace vantel::scene {

namespace {

void narrow(Frame& frame, double by) {
    if (frame.minWidth)
        frame.minWidth = std::max(0.0, *frame.minWidth - by);
}

} // namespace

Edges edges(const Element& element) {
    return {element.padding, element.frame};
}

Edges edgesInOutermostRow(const Element& child, std::size_t index, std::size_t count) {
    Edges result = edges(child);
    Padding& padding = result.padding;
    padding.top = padding.bottom = 0;
    if (index == 0)
        narrow(result.frame, std::exchange(padding.leading, 0));
    if (index + 1 == count)
        narrow(result.frame, std::exchange(padding.trailing, 0));
    return result;
}

} // namespace vantel::scene
