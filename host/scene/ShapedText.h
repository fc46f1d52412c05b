#pragma once

#include "host/scene/TextBlock.h"

#include <memory>
#include <optional>
#include <vector>

namespace vantel::scene {

/// A text in one style, which remembers how it was broken: containers ask for its size again and again, and
/// nothing else of a layout takes as long.
///
/// A text that was cut, or made smaller, to fit a room keeps its lines in the room that these then take; else
/// it would lose another letter each time it is asked. So lines depend on the rooms before, but on those of
/// the same layout alone: what is drawn never depends on what was drawn earlier.
class ShapedText {
public:
    ShapedText(QString text, const TextStyle& style, const Look& look);

    const QString& text() const { return m_text; }
    const TextStyle& style() const { return m_style; }
    const LineMetrics& metrics() const { return m_metrics; }

    /// The whole text on one line, in points.
    double width() const { return m_whole.lines.front().width; }

    /// As many lines as its style and the height allow, cut with an ellipsis; a text that may shrink does so
    /// first. Valid until the next call.
    const TextBlock& block(double width, std::optional<double> height) const;

    /// Keeps for the next layout the rooms of this one, and no others.
    void endLayout() const;

private:
    struct Broken {
        TextRoom room;
        TextBlock block;
    };

    int lineLimit(std::optional<double> height) const;
    double fraction(double width) const;
    Broken brokenEarlierOrNow(const TextRoom& room) const;
    TextBlock broken(const TextRoom& room) const;
    QString beginning(const TextRoom& room) const;

    QString m_text;
    TextStyle m_style;
    Look m_look;
    SceneFont m_font;
    LineMetrics m_metrics;
    TextBlock m_whole;                     ///< on one line, which is nearly always what is drawn
    mutable std::vector<Broken> m_earlier; ///< in the last layout
    mutable std::vector<Broken> m_current;
};

/// The texts of a card, kept from one layout to the next: as a minute passes, only the time left is new.
class ShapedTexts {
public:
    std::shared_ptr<const ShapedText> shaped(const QString& text, const TextStyle& style, const Look& look);

    /// Forgets the texts that have not been asked for since the last call.
    void endLayout();

    void clear();

private:
    using Texts = std::vector<std::shared_ptr<const ShapedText>>;

    Texts m_earlier;
    Texts m_current;
};

} // namespace vantel::scene
