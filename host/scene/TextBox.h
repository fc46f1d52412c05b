#pragma once

#include "host/scene/Box.h"
#include "host/scene/ShapedText.h"

namespace vantel::scene {

/// Text in one style: broken at words, as far as its line limit and its room allow, and cut with an ellipsis;
/// a text that may shrink does so first.
class TextBox final : public Box {
public:
    TextBox(std::shared_ptr<const ShapedText> text, HorizontalAlignment alignment);

    double firstBaseline(const QSizeF&) const override { return m_text->metrics().ascent; }
    void place(const QRectF& rectangle, Placer& placer) const override;

protected:
    QSizeF measured(const Proposal& proposal) const override;

private:
    double leastWidth() const;

    std::shared_ptr<const ShapedText> m_text;
    HorizontalAlignment m_alignment;
};

} // namespace vantel::scene
