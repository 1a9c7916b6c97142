#include "host/window/appearance.h"

#include <QApplication>
#include <QIcon>
#include <QLocale>
#include <QPalette>
#include <QStyleFactory>

#include "host/window/qt_text.h"

namespace NolSchedCtls {

namespace {

struct Shade {
    QPalette::ColorRole role;
    QRgb light;
    QRgb dark;
};

constexpr Shade shades[] = {
    {QPalette::Window, 0xf3f4f6, 0x2b2d31},
    {QPalette::WindowText, 0x1d2126, 0xe4e6ea},
    {QPalette::Base, 0xffffff, 0x1f2124},
    {QPalette::AlternateBase, 0xf7f8fa, 0x26282c},
    {QPalette::Text, 0x1d2126, 0xe4e6ea},
    {QPalette::Button, 0xf0f1f3, 0x383b41},
    {QPalette::ButtonText, 0x1d2126, 0xe4e6ea},
    {QPalette::ToolTipBase, 0xffffff, 0x383b41},
    {QPalette::ToolTipText, 0x1d2126, 0xe4e6ea},
    {QPalette::BrightText, 0xc62828, 0xff8a80},
    {QPalette::Link, 0x1f62ad, 0x7ab7ff},
    {QPalette::Highlight, 0x2f6fb7, 0x2f6fb7},
    {QPalette::HighlightedText, 0xffffff, 0xffffff},
    {QPalette::PlaceholderText, 0x7c838c, 0x8b9098},
};

QPalette PaletteOf(bool isDark) {
    const auto shadeOf = [isDark](const Shade& shade) { return QColor(isDark ? shade.dark : shade.light); };
    QPalette palette{shadeOf(shades[0])};
    for (const Shade& shade : shades) palette.setColor(shade.role, shadeOf(shade));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(isDark ? 0x777c84 : 0x8f959d));
    palette.setColor(QPalette::Disabled, QPalette::Base, palette.color(QPalette::Window));
    return palette;
}

}  // namespace

// English, as the names of months and days in the date fields are.
void SetAppearance(bool isDark) {
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
    QApplication::setPalette(PaletteOf(isDark));
    QApplication::setWindowIcon(QIcon::fromTheme(u"nolsched-editor"_s));
}

}  // namespace NolSchedCtls
