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
    QRgb color;
};

constexpr Shade darkShades[] = {
    {QPalette::Window, 0x2b2d31},
    {QPalette::WindowText, 0xe4e6ea},
    {QPalette::Base, 0x1f2124},
    {QPalette::AlternateBase, 0x26282c},
    {QPalette::Text, 0xe4e6ea},
    {QPalette::Button, 0x383b41},
    {QPalette::ButtonText, 0xe4e6ea},
    {QPalette::ToolTipBase, 0x383b41},
    {QPalette::ToolTipText, 0xe4e6ea},
    {QPalette::BrightText, 0xff8a80},
    {QPalette::Link, 0x7ab7ff},
    {QPalette::Highlight, 0x2f6fb7},
    {QPalette::HighlightedText, 0xffffff},
    {QPalette::PlaceholderText, 0x8b9098},
};

constexpr Shade lightShades[] = {
    {QPalette::Window, 0xf3f4f6},
    {QPalette::WindowText, 0x1d2126},
    {QPalette::Base, 0xffffff},
    {QPalette::AlternateBase, 0xf7f8fa},
    {QPalette::Text, 0x1d2126},
    {QPalette::Button, 0xf0f1f3},
    {QPalette::ButtonText, 0x1d2126},
    {QPalette::ToolTipBase, 0xffffff},
    {QPalette::ToolTipText, 0x1d2126},
    {QPalette::BrightText, 0xc62828},
    {QPalette::Link, 0x1f62ad},
    {QPalette::Highlight, 0x2f6fb7},
    {QPalette::HighlightedText, 0xffffff},
    {QPalette::PlaceholderText, 0x7c838c},
};

template <class Shades>
QPalette PaletteOf(const Shades& shades, QRgb disabledText) {
    QPalette palette{QColor(shades[0].color)};
    for (const Shade& shade : shades) palette.setColor(shade.role, QColor(shade.color));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(disabledText));
    palette.setColor(QPalette::Disabled, QPalette::Base, palette.color(QPalette::Window));
    return palette;
}

}  // namespace

// English, as the names of months and days in the date fields are.
void SetAppearance(bool isDark) {
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
    QApplication::setPalette(isDark ? PaletteOf(darkShades, 0x777c84) : PaletteOf(lightShades, 0x8f959d));
    QApplication::setWindowIcon(QIcon::fromTheme(u"nolsched-editor"_s));
}

}  // namespace NolSchedCtls
