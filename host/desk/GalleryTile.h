#pragma once

#include <QAbstractButton>

namespace vantel {

/// A widget's preview that is pressed to place it: by a click, or with Enter or Space where it has the focus.
/// The preview itself is disabled: it takes no clicks and no focus.
class GalleryTile final : public QAbstractButton {
    Q_OBJECT

public:
    /// Owns the preview, whose size it has, and the room for the focus ring around it.
    GalleryTile(QWidget* preview, double scale, QWidget* parent = nullptr);

    /// Where the preview is, in this widget.
    QRect card() const;

    /// The room around the preview, in logical pixels.
    static int ringRoom(double scale);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;

private:
    void drawRing(const QColor& color);

    QWidget* m_preview;
    double m_scale;
};

} // namespace vantel
