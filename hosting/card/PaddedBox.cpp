#include "hosting/card/PaddedBox.h"

#include <algorithm>

namespace vantel::card {

PaddedBox::PaddedBox(BoxPointer content, const Padding& padding)
    : m_content(std::move(content))
    , m_top(rowsIn(padding.top))
    , m_bottom(rowsIn(padding.bottom))
    , m_leading(columnsIn(padding.leading))
    , m_trailing(columnsIn(padding.trailing)) {}

int PaddedBox::idealWidth() const {
    return std::min(allColumns, m_content->idealWidth() + m_leading + m_trailing);
}

int PaddedBox::height(int width) const {
    return m_content->height(std::max(0, width - m_leading - m_trailing)) + m_top + m_bottom;
}

void PaddedBox::draw(Canvas& canvas, const Rect& room) const {
    const Rect inner = room.from(m_leading).below(m_top);
    m_content->draw(canvas, {inner.x, inner.y, std::max(0, inner.width - m_trailing),
                             std::max(0, inner.height - m_bottom)});
}

} // namespace vantel::card
