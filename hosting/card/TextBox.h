#pragma once

#include "hosting/card/Box.h"

#include <string>

namespace vantel::card {

/// A text in as many lines as it needs, up to its line limit. A text without a limit ends after a few all the
/// same: a card is no page.
class TextBox final : public Box {
public:
    struct Style {
        Pen pen;
        std::optional<int> lineLimit = std::nullopt;
        HorizontalAlignment alignment = HorizontalAlignment::leading;
    };

    /// `text` is a card text (see Lines.h).
    TextBox(std::string_view text, const Style& style);

    int idealWidth() const override { return m_idealWidth; }
    int height(int width) const override;
    void draw(Canvas& canvas, const Rect& room) const override;

private:
    std::vector<std::string> lines(int width) const;

    std::string m_text;
    Style m_style;
    int m_idealWidth;
};

} // namespace vantel::card
