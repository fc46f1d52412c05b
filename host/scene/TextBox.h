#pragma once

#include "host/scene/Box.h"
#include "host/scene/Scene.h"

namespace vantel::scene {

/// Text in one style: broken at words, as far as its line limit and its room allow, and cut with an ellipsis;
/// a text that may shrink does so first.
class TextBox final : public Box {
public:
    TextBox(QString text, const TextStyle& style, const Look& look, HorizontalAlignment alignment);

    double firstBaseline(const QSizeF&) const override { return m_metrics.ascent; }
    void place(const QRectF& rectangle, Placer& placer) const override;

protected:
    QSizeF measured(const Proposal& proposal) const override;

private:
    TextBlock block(double width, std::optional<double> height) const;
    int lineLimit(std::optional<double> height) const;
    double fraction(double width) const;
    double leastWidth() const;

    QString m_text;
    TextStyle m_style;
    const Look& m_look;
    HorizontalAlignment m_alignment;
    SceneFont m_font;
    LineMetrics m_metrics;
    TextLine m_line; ///< the whole text, which is nearly always what is drawn
};

} // namespace vantel::scene
