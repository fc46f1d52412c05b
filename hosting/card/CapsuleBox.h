#pragma once

#include "hosting/ViewText.h"
#include "hosting/card/Box.h"

namespace vantel::card {

/// A box between round ends, on a fill where there are colours.
class CapsuleBox final : public Box {
public:
    CapsuleBox(BoxPointer content, const ResolvedColor& fill, const ResolvedColor& outline,
               TerminalColors colors);

    int idealWidth() const override;
    int height(int width) const override;
    void draw(Canvas& canvas, const Rect& room) const override;

private:
    Rect roomInside(const Rect& room) const;
    void drawShape(Canvas& canvas, const Rect& room) const;

    BoxPointer m_content;
    ResolvedColor m_fill;
    ResolvedColor m_outline;
    TerminalColors m_colors;
};

} // namespace vantel::card
