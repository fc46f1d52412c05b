#pragma once

#include "hosting/card/Box.h"

namespace vantel::card {

/// Room that grows. In a row it is never less than a gap; in a column it may vanish.
class SpacerBox final : public Box {
public:
    explicit SpacerBox(const Spacer& spacer)
        : m_least(columnsFor(spacer.minLength.value_or(0))) {}

    int idealWidth() const override { return m_least; }
    int height(int) const override { return 0; }
    bool isSpacer() const override { return true; }
    void draw(Canvas&, const Rect&) const override {}

private:
    int m_least;
};

} // namespace vantel::card
