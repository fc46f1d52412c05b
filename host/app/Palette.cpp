#include "host/app/Palette.h"

#include <QApplication>
#include <QPalette>

namespace vantel {

namespace {

bool isDark(const QPalette& palette) {
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

QPalette darkPalette() {
    // Lighter than the cards, which would not be seen in the gallery otherwise.
    QPalette palette(QColor(0x3A, 0x3A, 0x3E), QColor(0x2C, 0x2C, 0x2F));
    palette.setColor(QPalette::Highlight, QColor(0x3D, 0x8B, 0xFD));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

} // namespace

void usePalette(Shade shade) {
    const bool wantsDark = shade == Shade::dark;
    if (isDark(QApplication::palette()) != wantsDark)
        QApplication::setPalette(wantsDark ? darkPalette() : QPalette(QColor(0xEF, 0xEF, 0xEF)));
}

} // namespace vantel
