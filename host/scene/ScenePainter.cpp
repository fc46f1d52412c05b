#include "host/scene/ScenePainter.h"

#include "host/scene/Symbols.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace vantel::scene {

namespace {

constexpr double pendingOpacity = 0.4;
constexpr double ringOpacity = 0.14;
constexpr double leastContrast = 1.3;
constexpr double readableContrast = 7; ///< for who asks for high contrast
constexpr float opacityStep = 0.02F;

double linear(double component) {
    return component <= 0.04045 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color) {
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor& a, const QColor& b) {
    const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

/// What a colour looks like on another one, which is opaque.
QColor over(const QColor& color, const QColor& background) {
    const auto mixed = [share = color.alphaF()](float above, float below) {
        return share * above + (1 - share) * below;
    };
    return QColor::fromRgbF(mixed(color.redF(), background.redF()),
                            mixed(color.greenF(), background.greenF()),
                            mixed(color.blueF(), background.blueF()));
}

/// As opaque as it takes to be read with ease, where the colour leaves that to opacity.
QColor readable(QColor color, const QColor& background) {
    while (color.alphaF() < 1 && contrast(over(color, background), background) < readableContrast)
        color.setAlphaF(std::min(color.alphaF() + opacityStep, 1.0F));
    return color;
}

bool isHighContrast(const Look& look) {
    static const Appearance light = Appearance::highContrastAqua();
    static const Appearance dark = Appearance::highContrastDarkAqua();
    return look.appearance == light || look.appearance == dark;
}

/// The point nearest to where a whole device pixel begins.
QPointF onPixel(const QPainter& painter, const QPointF& point) {
    const QTransform& device = painter.deviceTransform();
    const QPointF mapped = device.map(point);
    return device.inverted().map(QPointF(std::round(mapped.x()), std::round(mapped.y())));
}

QRectF onPixels(const QPainter& painter, const QRectF& rectangle) {
    const QTransform& device = painter.deviceTransform();
    QRectF mapped = device.mapRect(rectangle);
    mapped = {std::round(mapped.x()), std::round(mapped.y()), std::max(1.0, std::round(mapped.width())),
              std::max(1.0, std::round(mapped.height()))};
    return device.inverted().mapRect(mapped);
}

/// Draws the pieces of one scene, one function per kind.
class PiecePainter {
public:
    PiecePainter(QPainter& painter, const Scene& scene, const Look& look, const PaintState& state)
        : m_painter(painter)
        , m_background(painted(Color(scene.background), look))
        , m_look(look)
        , m_state(state) {}

    void draw(const Piece& piece) {
        m_piece = &piece;
        std::visit(*this, piece.drawing);
    }

    void operator()(const TextPiece& text) {
        m_painter.setOpacity(isPending() && text.invalidatable ? pendingOpacity : 1);
        m_painter.setPen(legible(text.color));
        m_painter.save();
        if (text.isTurned)
            turnAround(m_piece->rectangle.center().x());
        for (std::size_t i = 0; i < text.block.lines.size(); ++i)
            drawLine(m_painter, onBaseline(text.baselines[i]), text.block.lines[i]);
        m_painter.restore();
        m_painter.setOpacity(1);
    }

    void operator()(const SymbolPiece& symbol) {
        const QColor color = legible(symbol.color);
        if (isPending() && symbol.name == "circle")
            drawFilledCircle(m_painter, m_piece->rectangle, painted(PrimaryColor{}, m_look), m_background);
        else
            drawSymbol(m_painter, symbol.name, m_piece->rectangle, color, symbol.rendering);
    }

    void operator()(const ShapePiece& shape) {
        const QColor color = painted(shape.color, m_look);
        const QRectF& rectangle = m_piece->rectangle;
        m_painter.setPen(Qt::NoPen);
        m_painter.setBrush(color);
        if (shape.isHairline) {
            m_painter.fillRect(onPixels(m_painter, rectangle), color);
            return;
        }
        m_painter.save();
        m_painter.translate(rectangle.center());
        m_painter.rotate(shape.rotation);
        const QRectF centered({-rectangle.width() / 2, -rectangle.height() / 2}, rectangle.size());
        if (shape.isCapsule && contrast(color, m_background) < leastContrast)
            m_painter.setPen(QPen(painted(PrimaryColor{ringOpacity}, m_look), 1));
        drawRounded(centered, shape.cornerRadius);
        m_painter.restore();
    }

private:
    QColor legible(const Color& color) const {
        const QColor given = painted(color, m_look);
        return m_isHighContrast ? readable(given, m_background) : given;
    }

    bool isPending() const {
        return m_piece->row &&
               std::ranges::find(m_state.pendingRows, *m_piece->row) != m_state.pendingRows.end();
    }

    void turnAround(double x) {
        m_painter.translate(2 * x, 0);
        m_painter.scale(-1, 1);
    }

    /// Glyphs are crisp where their baseline lies between two rows of pixels.
    QPointF onBaseline(const QPointF& point) const { return {point.x(), onPixel(m_painter, point).y()}; }

    void drawRounded(const QRectF& rectangle, double radius) {
        const double most = std::min(rectangle.width(), rectangle.height()) / 2;
        m_painter.drawRoundedRect(rectangle, std::min(radius, most), std::min(radius, most));
    }

    QPainter& m_painter;
    QColor m_background;
    const Look& m_look;
    const PaintState& m_state;
    bool m_isHighContrast = isHighContrast(m_look);
    const Piece* m_piece = nullptr;
};

} // namespace

ResolvedColor primaryColor(const Look& look) {
    constexpr DynamicColor usual{0x1B1A17, 0xFFFFFF};
    constexpr DynamicColor strongest{0x000000, 0xFFFFFF};
    return resolve(isHighContrast(look) ? strongest : usual, look.appearance);
}

QColor painted(const Color& color, const Look& look) {
    const ResolvedColor resolved = resolve(color, look.appearance, primaryColor(look));
    const auto component = [](double value) { return static_cast<float>(std::clamp(value, 0.0, 1.0)); };
    return QColor::fromRgbF(component(resolved.red), component(resolved.green), component(resolved.blue),
                            component(resolved.alpha));
}

void paint(QPainter& painter, const Scene& scene, const Look& look, const PaintState& state) {
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(painted(Color(scene.background), look));
    painter.drawRoundedRect(QRectF({0, 0}, scene.size), cardCornerRadius, cardCornerRadius);
    PiecePainter pieces(painter, scene, look, state);
    for (const Piece& piece : scene.pieces)
        pieces.draw(piece);
}

} // namespace vantel::scene
