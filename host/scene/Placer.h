#pragma once

#include "host/scene/Scene.h"

namespace vantel::scene {

/// Collects what boxes draw. Rectangles come in as if all was written from left to right; the placer mirrors
/// them where the user's script runs the other way.
class Placer {
public:
    Placer(Scene& scene, Qt::LayoutDirection direction);

    /// Text whose lines stand at the leading edge, in the middle or at the trailing edge of the rectangle.
    void addText(const QRectF& rectangle, TextPiece piece, HorizontalAlignment alignment);
    void add(const QRectF& rectangle, std::variant<TextPiece, SymbolPiece, ShapePiece> drawing);

    void addTarget(const QRectF& rectangle, std::variant<Url, IntentCall> action, const QString& label);
    void addSpoken(const QRectF& rectangle, const QString& text);
    void addCountdown(Instant date) { m_scene.countdowns.push_back(date); }

    /// What is placed until `leaveRow` belongs to a new row.
    std::optional<std::size_t> enterRow();
    void leaveRow(std::optional<std::size_t> outerRow) { m_row = outerRow; }

    /// Until `unsilence`, texts are part of something that speaks for them.
    void silence() { ++m_silence; }
    void unsilence() { --m_silence; }

private:
    QRectF mirrored(const QRectF& rectangle) const;

    Scene& m_scene;
    Qt::LayoutDirection m_direction;
    std::optional<std::size_t> m_row;
    std::size_t m_rowCount = 0;
    int m_silence = 0;
};

} // namespace vantel::scene
