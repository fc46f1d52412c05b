#include "host/app/Palette.h"

#include <QApplication>
#include <QPalette>
#include <optional>

namespace vantel {

namespace {

bool isDark(const QPalette& palette) {
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

/// Windows are lighter than the cards, which would not be seen in the gallery otherwise.
QPalette darkPalette() {
    const QColor window(0x2C, 0x2C, 0x2F);
    const QColor ink(0xF2, 0xF2, 0xF0);
    QPalette palette;
    for (const auto role : {QPalette::Window, QPalette::Base, QPalette::ToolTipBase})
        palette.setColor(role, window);
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText})
        palette.setColor(role, ink);
    palette.setColor(QPalette::Button, QColor(0x3A, 0x3A, 0x3E));
    palette.setColor(QPalette::AlternateBase, QColor(0x34, 0x34, 0x38));
    palette.setColor(QPalette::BrightText, Qt::white);
    palette.setColor(QPalette::PlaceholderText, QColor(0x9A, 0x9A, 0x98));
    palette.setColor(QPalette::Light, QColor(0x56, 0x56, 0x5B));
    palette.setColor(QPalette::Midlight, QColor(0x48, 0x48, 0x4D));
    palette.setColor(QPalette::Mid, QColor(0x4A, 0x4A, 0x4F));
    palette.setColor(QPalette::Dark, QColor(0x5A, 0x5A, 0x5F));
    palette.setColor(QPalette::Shadow, Qt::black);
    palette.setColor(QPalette::Highlight, QColor(0x3D, 0x8B, 0xFD));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(0x6C, 0xAB, 0xFF));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(0x86, 0x86, 0x88));
    return palette;
}

/// The shade of the desktop's own palette, while ours is in its place.
std::optional<bool>& darknessInPlace() {
    static std::optional<bool> isDesktopDark;
    return isDesktopDark;
}

} // namespace

bool isDesktopPaletteDark() {
    return darknessInPlace().value_or(isDark(QApplication::palette()));
}

void usePalette(Shade shade) {
    const bool wantsDark = shade == Shade::dark;
    if (isDark(QApplication::palette()) == wantsDark)
        return;
    if (darknessInPlace() == wantsDark) {
        QApplication::setPalette(QPalette());
        darknessInPlace().reset();
    } else {
        darknessInPlace() = !wantsDark;
        QApplication::setPalette(wantsDark ? darkPalette() : QPalette(QColor(0xEF, 0xEF, 0xEF)));
    }
}

} // namespace vantel
