#include "hosting/card/FramedBox.h"

#include <algorithm>

namespace vantel::card {

namespace {

constexpr int gapAfterTooMuch = 1;

} // namespace

FramedBox::FramedBox(BoxPointer content, const Frame& frame)
    : m_content(std::move(content))
    , m_frame(frame) {}

int FramedBox::idealWidth() const {
    if (m_frame.fill == FrameFill::both)
        return allColumns;
    const int natural = std::max(m_content->idealWidth(), columnsIn(m_frame.minWidth.value_or(0)));
    if (!m_frame.width)
        return natural;
    const int imposed = columnsFor(*m_frame.width);
    return imposed > natural ? imposed : std::min(allColumns, natural + gapAfterTooMuch);
}

int FramedBox::height(int width) const {
    return m_content->height(std::min(width, m_content->idealWidth()));
}

bool FramedBox::growsTall() const {
    return m_frame.fill == FrameFill::both || m_content->growsTall();
}

void FramedBox::draw(Canvas& canvas, const Rect& room) const {
    m_content->draw(canvas, placed(*m_content, room, m_frame.alignment));
}

} // namespace vantel::card
