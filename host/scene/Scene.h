#pragma once

#include "host/scene/Look.h"
#include "host/scene/ShapedText.h"
#include "hosting/WidgetView.h"

#include <QRectF>
#include <QString>
#include <optional>
#include <variant>
#include <vector>

namespace vantel::scene {

/// Shaped text. `lines` stand one below the other, each from its own place inside the rectangle.
struct TextPiece {
    TextBlock block;
    std::vector<QPointF> baselines; ///< where each line begins, in points
    Color color;
    bool invalidatable = false;
    bool isTurned = false; ///< drawn the other way round, as an arrow is where the layout is mirrored

    bool operator==(const TextPiece&) const = default;
};

struct SymbolPiece {
    std::string_view name;
    Color color;
    SymbolRendering rendering;

    bool operator==(const SymbolPiece&) const = default;
};

/// A filled rectangle with round corners.
struct ShapePiece {
    Color color;
    double cornerRadius = 0;
    double rotation = 0;
    bool isHairline = false; ///< keeps to whole device pixels, so that it is never a blur
    bool isCapsule = false;  ///< gets an outline where it has the colour of what is behind it

    bool operator==(const ShapePiece&) const = default;
};

/// One thing to draw, where it stands on its card, in points.
struct Piece {
    QRectF rectangle;
    std::variant<TextPiece, SymbolPiece, ShapePiece> drawing;
    std::optional<std::size_t> row; ///< the innermost row that holds it

    bool operator==(const Piece&) const = default;
};

/// A place that does something when it is clicked.
struct Target {
    QRectF rectangle;
    std::variant<Url, IntentCall> action;
    QString label; ///< what it says, for people who hear the screen
    std::optional<std::size_t> row;
};

/// A text that is read out and does nothing.
struct Spoken {
    QRectF rectangle;
    QString text;
};

/// A view laid out on its card: what to draw, from the bottom up, and what can be reached, in reading order.
struct Scene {
    QSizeF size;
    TokenColor background{"", PrimaryColor{}};
    std::vector<Piece> pieces;
    std::vector<std::variant<Target, Spoken>> reading;
    std::vector<Instant> countdowns; ///< the moments that a time left on the card counts down to
};

/// What a layout depends on besides the view.
struct SceneContext {
    const Look& look;
    const Formats& formats;
    Instant now;
    Qt::LayoutDirection direction = Qt::LeftToRight;
};

/// Lays out a view inside the content margins of its card. Nothing stands outside them.
Scene laidOut(const WidgetView& view, const SceneContext& context);

/// The same, with the texts of earlier layouts at hand, which were made for the same fonts.
Scene laidOut(const WidgetView& view, const SceneContext& context, ShapedTexts& texts);

} // namespace vantel::scene
