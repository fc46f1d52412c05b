#include "hosting/card/ColumnBox.h"

#include "hosting/card/Shares.h"

#include <algorithm>
#include <numeric>

namespace vantel::card {

namespace {

template <typename Matches>
std::vector<std::size_t> indexes(const Boxes& boxes, Matches matches) {
    std::vector<std::size_t> result;
    for (std::size_t i = 0; i < boxes.size(); ++i)
        if (matches(*boxes[i]))
            result.push_back(i);
    return result;
}

std::vector<std::size_t> growingAmong(const Boxes& boxes) {
    auto spacers = indexes(boxes, [](const Box& box) { return box.isSpacer(); });
    return spacers.empty() ? indexes(boxes, [](const Box& box) { return box.growsTall(); }) : spacers;
}

int offset(HorizontalAlignment alignment, int free) {
    if (alignment == HorizontalAlignment::center)
        return free / 2;
    return alignment == HorizontalAlignment::trailing ? free : 0;
}

} // namespace

ColumnBox::ColumnBox(Boxes children, HorizontalAlignment alignment, std::optional<double> spacing)
    : m_children(std::move(children))
    , m_alignment(alignment)
    , m_gap(rowsIn(spacing.value_or(0)))
    , m_growing(growingAmong(m_children)) {}

int ColumnBox::idealWidth() const {
    int widest = 0;
    for (const BoxPointer& child : m_children)
        widest = std::max(widest, child->idealWidth());
    return widest;
}

int ColumnBox::height(int width) const {
    const std::vector<int> rows = heights(width);
    return std::accumulate(rows.begin(), rows.end(), gaps());
}

void ColumnBox::draw(Canvas& canvas, const Rect& room) const {
    std::vector<int> rows = heights(room.width);
    addEvenly(rows, m_growing, room.height - std::accumulate(rows.begin(), rows.end(), gaps()));
    Rect rest = room;
    for (std::size_t i = 0; i < m_children.size(); ++i) {
        const int height = std::min(rows[i], rest.height);
        m_children[i]->draw(canvas, roomFor(*m_children[i], {rest.x, rest.y, rest.width, height}));
        rest = rest.below(std::min(rows[i] + m_gap, rest.height));
    }
}

int ColumnBox::gaps() const {
    return m_children.empty() ? 0 : m_gap * (static_cast<int>(m_children.size()) - 1);
}

std::vector<int> ColumnBox::heights(int width) const {
    std::vector<int> result;
    for (const BoxPointer& child : m_children)
        result.push_back(child->height(std::min(width, child->idealWidth())));
    return result;
}

Rect ColumnBox::roomFor(const Box& child, const Rect& room) const {
    const int width = std::min(room.width, child.idealWidth());
    return {room.x + offset(m_alignment, room.width - width), room.y, width, room.height};
}

} // namespace vantel::card
