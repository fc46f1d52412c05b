#include "host/scene/Symbols.h"

#include <QFile>
#include <QPainter>
#include <QPainterPath>
#include <QSvgRenderer>
#include <map>
#include <memory>
#include <tuple>

/// A static library's resources join a program when they are named.
// NOLINTNEXTLINE(misc-use-anonymous-namespace): the macro names a function of the global namespace.
static void useSymbols() {
    Q_INIT_RESOURCE(scene);
}

namespace vantel::scene {

namespace {

/// A symbol in a colour, as it is kept.
using Key = std::tuple<QByteArray, QByteArray, SymbolRendering>;

/// Symbols are drawn in black, their lesser parts paler; the colour is put in the place of the black.
QByteArray tinted(QByteArray drawing, const Key& key) {
    const auto& [name, color, rendering] = key;
    if (rendering == SymbolRendering::monochrome)
        drawing.replace(R"( opacity=".55")", "");
    return drawing.replace("#000", color);
}

/// A view names few symbols in few colours, so every renderer is kept.
QSvgRenderer* renderer(const Key& key) {
    static std::map<Key, std::unique_ptr<QSvgRenderer>> renderers;
    auto& found = renderers[key];
    if (!found) {
        useSymbols();
        QFile file(QStringLiteral(":/vantel/symbols/%1.svg").arg(QString::fromLatin1(std::get<0>(key))));
        const bool isThere = file.open(QFile::ReadOnly);
        found = std::make_unique<QSvgRenderer>(isThere ? tinted(file.readAll(), key) : QByteArray());
    }
    return found->isValid() ? found.get() : nullptr;
}

} // namespace

void drawSymbol(QPainter& painter, std::string_view name, const QRectF& rectangle, const QColor& color,
                SymbolRendering rendering) {
    const QByteArray file(name.data(), static_cast<qsizetype>(name.size()));
    QSvgRenderer* svg = renderer({file, color.name(QColor::HexRgb).toLatin1(), rendering});
    if (svg == nullptr)
        return;
    painter.save();
    painter.setOpacity(painter.opacity() * color.alphaF());
    svg->render(&painter, rectangle);
    painter.restore();
}

void drawFilledCircle(QPainter& painter, const QRectF& rectangle, const QColor& disc, const QColor& check) {
    const double unit = rectangle.width() / 12;
    const auto at = [&](double x, double y) { return rectangle.topLeft() + QPointF(x, y) * unit; };
    QPainterPath mark(at(3.5, 6.3));
    mark.lineTo(at(5.3, 8.2));
    mark.lineTo(at(8.6, 4.1));
    painter.setPen(Qt::NoPen);
    painter.setBrush(disc);
    painter.drawEllipse(rectangle);
    painter.strokePath(mark, QPen(check, 1.3 * unit, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

} // namespace vantel::scene
