#include "hosting/card/RowBox.h"

#include "hosting/card/Shares.h"

#include <algorithm>
#include <numeric>

namespace vantel::card {

namespace {

std::vector<std::size_t> spacersAmong(const Boxes& boxes) {
    std::vector<std::size_t> result;
    for (std::size_t i = 0; i < boxes.size(); ++i)
        if (boxes[i]->isSpacer())
            result.push_back(i);
    return result;
}

int offset(VerticalAlignment alignment, int free) {
    if (alignment == VerticalAlignment::center)
        return free / 2;
    return alignment == VerticalAlignment::bottom ? free : 0;
}

} // namespace

RowBox::RowBox(Boxes children, VerticalAlignment alignment, std::optional<double> spacing)
    : m_children(std::move(children))
    , m_alignment(alignment)
    , m_spacing(spacing)
    , m_spacers(spacersAmong(m_children)) {}

int RowBox::idealWidth() const {
    int sum = m_spacers.empty() ? gaps() : allColumns;
    for (const BoxPointer& child : m_children)
        sum = std::min(allColumns, sum + child->idealWidth());
    return sum;
}

int RowBox::height(int width) const {
    const std::vector<int> columns = widths(width);
    int tallest = 0;
    for (std::size_t i = 0; i < m_children.size(); ++i)
        tallest = std::max(tallest, m_children[i]->height(columns[i]));
    return tallest;
}

bool RowBox::growsTall() const {
    return std::ranges::any_of(m_children, [](const BoxPointer& child) { return child->growsTall(); });
}

void RowBox::draw(Canvas& canvas, const Rect& room) const {
    const std::vector<int> columns = widths(room.width);
    Rect rest = room;
    for (std::size_t i = 0; i < m_children.size(); ++i) {
        const int width = std::min(columns[i], rest.width);
        m_children[i]->draw(canvas, roomFor(*m_children[i], {rest.x, rest.y, width, rest.height}));
        rest = rest.from(std::min(columns[i] + gapAfter(i), rest.width));
    }
}

/// None beside a spacer, which is a gap itself.
int RowBox::gapAfter(std::size_t index) const {
    if (index + 1 == m_children.size())
        return 0;
    const Box& box = *m_children[index];
    if (box.isSpacer() || box.endsInGap() || m_children[index + 1]->isSpacer() || m_spacing == 0)
        return 0;
    return m_spacing ? columnsFor(*m_spacing) : 1;
}

int RowBox::gaps() const {
    int sum = 0;
    for (std::size_t i = 0; i < m_children.size(); ++i)
        sum += gapAfter(i);
    return sum;
}

std::vector<int> RowBox::widths(int width) const {
    std::vector<int> wanted;
    for (const BoxPointer& child : m_children)
        wanted.push_back(child->idealWidth());
    std::vector<int> result = fairShares(wanted, width - gaps());
    addEvenly(result, m_spacers, width - gaps() - std::accumulate(result.begin(), result.end(), 0));
    return result;
}

Rect RowBox::roomFor(const Box& child, const Rect& room) const {
    if (child.growsTall())
        return room;
    const int height = std::min(room.height, child.height(room.width));
    return {room.x, room.y + offset(m_alignment, room.height - height), room.width, height};
}

} // namespace vantel::card
