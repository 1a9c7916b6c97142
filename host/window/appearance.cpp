#include "host/window/appearance.h"

#include <QApplication>
#include <QIcon>
#include <QLocale>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QScreen>
#include <QStyleOption>
#include <QWidget>

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
    {QPalette::Mid, 0x757b84, 0x9ba1a9},  // edges
};

// Fusion draws the edge of a box or a field a little darker than the window, which in the dark is as good as
// none, and in the light is little.
class ClearEdges : public QProxyStyle {
  public:
    explicit ClearEdges(QObject* parent) : QProxyStyle(u"Fusion"_s) { setParent(parent); }

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override {
        const auto draw = [&](const QStyleOption& drawn) {
            QProxyStyle::drawPrimitive(element, &drawn, painter, widget);
        };
        if (element == PE_IndicatorCheckBox || element == PE_IndicatorRadioButton)
            return DrawClearly<QStyleOptionButton>(*option, draw);
        if (element == PE_FrameLineEdit) return DrawClearly<QStyleOptionFrame>(*option, draw);
        draw(*option);
    }

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override {
        const auto draw = [&](const QStyleOptionComplex& drawn) {
            QProxyStyle::drawComplexControl(control, &drawn, painter, widget);
        };
        if (control == CC_ComboBox) return DrawClearly<QStyleOptionComboBox>(*option, draw);
        if (control == CC_SpinBox) return DrawClearly<QStyleOptionSpinBox>(*option, draw);
        draw(*option);
    }

    // English reads from left to right wherever it stands; else "End Date:" would begin with its colon.
    void drawItemText(QPainter* painter, const QRect& rect, int flags, const QPalette& palette,
                      bool isEnabled, const QString& text, QPalette::ColorRole role) const override {
        const auto place =
            visualAlignment(painter->layoutDirection(), Qt::Alignment::fromInt(flags & placeBits));
        const int reading = text.isRightToLeft() ? 0 : Qt::TextForceLeftToRight;
        QProxyStyle::drawItemText(painter, rect,
                                  (flags & ~placeBits) | static_cast<int>(place.toInt()) | reading, palette,
                                  isEnabled, text, role);
    }

    // Fusion's is black, on a dark bar, too.
    QIcon standardIcon(StandardPixmap which, const QStyleOption* option,
                       const QWidget* widget) const override {
        if (which != SP_ToolBarHorizontalExtensionButton)
            return QProxyStyle::standardIcon(which, option, widget);
        const QPalette palette = option == nullptr ? QGuiApplication::palette() : option->palette;
        const auto direction = option == nullptr ? QGuiApplication::layoutDirection() : option->direction;
        constexpr int side = 16;
        QPixmap picture(QSize(side, side) * qApp->devicePixelRatio());
        picture.setDevicePixelRatio(qApp->devicePixelRatio());
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        painter.setPen(palette.color(QPalette::ButtonText));
        painter.drawText(QRect(0, 0, side, side), Qt::AlignCenter,
                         direction == Qt::RightToLeft ? u"«"_s : u"»"_s);
        painter.end();
        return picture;
    }

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* answer) const override {
        if (hint == SH_Table_GridLineColor && option != nullptr)
            return static_cast<int>(option->palette.color(QPalette::Disabled, QPalette::Mid).rgb());
        return QProxyStyle::styleHint(hint, option, widget, answer);
    }

  private:
    static constexpr int darkened = 140;  // by Fusion, in percent
    static constexpr int placeBits = Qt::AlignHorizontal_Mask | Qt::AlignVertical_Mask;

    template <class Option>
    static void DrawClearly(const QStyleOption& option, const auto& draw) {
        const auto* const known = qstyleoption_cast<const Option*>(&option);
        if (known == nullptr) return;
        Option clear = *known;
        clear.palette.setColor(QPalette::Window, clear.palette.color(QPalette::Mid).lighter(darkened));
        draw(clear);
    }
};

QPalette PaletteOf(bool isDark) {
    const auto shadeOf = [isDark](const Shade& shade) { return QColor(isDark ? shade.dark : shade.light); };
    QPalette palette{shadeOf(shades[0])};
    for (const Shade& shade : shades) palette.setColor(shade.role, shadeOf(shade));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(isDark ? 0x777c84 : 0x8f959d));
    palette.setColor(QPalette::Disabled, QPalette::Mid, QColor(isDark ? 0x62666d : 0xbcc0c6));
    palette.setColor(QPalette::Disabled, QPalette::Base, palette.color(QPalette::Window));
    return palette;
}

}  // namespace

// English, as the names of months and days in the date fields are.
void SetAppearance(bool isDark) {
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    QApplication::setStyle(new ClearEdges(qApp));
    QApplication::setPalette(PaletteOf(isDark));
    QApplication::setWindowIcon(QIcon::fromTheme(u"nolsched-editor"_s));
}

void FitToScreen(QWidget& window, QSize wanted) {
    window.resize(wanted.boundedTo(window.screen()->availableSize() * 19 / 20));  // the frame takes the rest
}

}  // namespace NolSchedCtls
