#include "hosting/card/StackBox.h"

#include <algorithm>

namespace vantel::card {

StackBox::StackBox(Boxes children, StackAlignment alignment)
    : m_children(std::move(children))
    , m_alignment(alignment) {}

int StackBox::idealWidth() const {
    int widest = 0;
    for (const BoxPointer& child : m_children)
        widest = std::max(widest, child->idealWidth());
    return widest;
}

int StackBox::height(int width) const {
    int tallest = 0;
    for (const BoxPointer& child : m_children)
        tallest = std::max(tallest, child->height(std::min(width, child->idealWidth())));
    return tallest;
}

bool StackBox::growsTall() const {
    return std::ranges::any_of(m_children, [](const BoxPointer& child) { return child->growsTall(); });
}

void StackBox::draw(Canvas& canvas, const Rect& room) const {
    for (const BoxPointer& child : m_children)
        child->draw(canvas, placed(*child, room, m_alignment));
}

} // namespace vantel::card
