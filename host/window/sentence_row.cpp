#include "host/window/sentence_row.h"

#include <QEvent>
#include <QLabel>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <optional>

#include "NolSchedCtls/tabs/schedule/nol_schedule_tab.h"
#include "host/window/qt_text.h"

namespace NolSchedCtls {

namespace {

int TextWidth(const QWidget& widget, const QString& text) {
    return widget.fontMetrics().horizontalAdvance(text);
}

QList<QString> TextsOf(ViewField& field) {
    QList<QString> texts = {ToQt(field.PlainCaption())};
    if (const auto* list = FieldAs<DropDownList>(field))
        for (const auto& entry : list->Entries()) texts.append(ToQt(entry));
    if (FieldAs<DTPicker>(field) != nullptr) texts.append(u"12:59 AM"_s);
    return texts;
}

// A label's text keeps a little air on both sides, since its neighbours stand flush.
int NeededBy(const QWidget& widget, ViewField& field) {
    int width = 0;
    for (const QString& text : TextsOf(field)) width = std::max(width, TextWidth(widget, text));
    if (FieldAs<Label>(field) != nullptr) return width + TextWidth(widget, u"n"_s);
    QStyleOptionComboBox option;
    option.initFrom(&widget);
    const QSize content(width, widget.fontMetrics().height());
    return widget.style()->sizeFromContents(QStyle::CT_ComboBox, &option, content, &widget).width();
}

void FitMode(const QWidget& widget, const XNolScheduleTab& tab, RowScale& scale, float& widest) {
    for (ViewField* field : tab.Fields()) {
        if (field->Container() != &tab.Frame2 || !field->Visible()) continue;
        scale.pixelsPerTwip =
            std::max(scale.pixelsPerTwip, NeededBy(widget, *field) / static_cast<double>(field->Width()));
        widest = std::max(widest, field->Left() + field->Width());
    }
}

// A tab of its own goes through the modes, so that nothing here knows their texts.
RowScale MeasuredScale(const QWidget& widget) {
    XNolScheduleTab tab;
    RowScale scale;
    float widest = 0;
    for (int mode = 0; tab.cboPeriod.PickIndex(mode); ++mode) FitMode(widget, tab, scale, widest);
    scale.width = scale.Pixels(widest) + 1;
    return scale;
}

}  // namespace

// All pages of a program look alike: what the last one has measured serves the next.
RowScale RowScaleOf(const QWidget& widget) {
    struct Look {
        QFont font;
        const QStyle* style;
        int dotsPerInch;
        bool operator==(const Look&) const = default;
    };
    static std::optional<std::pair<Look, RowScale>> last;
    const Look look{widget.font(), widget.style(), widget.logicalDpiX()};
    if (!last || last->first != look) last = {look, MeasuredScale(widget)};
    return last->second;
}

SentenceRow::SentenceRow(UserControl& control, QWidget* parent) : QWidget(parent), scale(RowScaleOf(*this)) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    fieldChanged = control.FieldChanged.Connect([this](const ViewField& field, FieldPart part) {
        if (part != FieldPart::Geometry) return;
        for (const Place& place : places)
            if (place.field == &field) Put(place);
    });
}

void SentenceRow::Add(ViewField& field, QWidget* widget) {
    const bool isHidden = widget->isHidden();
    widget->setParent(this);
    widget->setVisible(!isHidden);
    if (auto* const label = qobject_cast<QLabel*>(widget)) label->setAlignment(Qt::AlignCenter);
    places.push_back({&field, widget});
    Put(places.back());
}

// Both edges are rounded, so that neighbours touch at every scale.
void SentenceRow::Put(const Place& place) const {
    const int left = scale.Pixels(place.field->Left());
    const int right = scale.Pixels(place.field->Left() + place.field->Width());
    place.widget->setGeometry(
        QStyle::visualRect(layoutDirection(), rect(), QRect(left, 0, right - left, height())));
}

QSize SentenceRow::sizeHint() const {
    int height = 0;
    for (const Place& place : places) height = std::max(height, place.widget->sizeHint().height());
    return {scale.width, height};
}

void SentenceRow::resizeEvent(QResizeEvent* /*event*/) {
    for (const Place& place : places) Put(place);
}

void SentenceRow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        scale = RowScaleOf(*this);
    else if (event->type() != QEvent::LayoutDirectionChange)
        return;
    for (const Place& place : places) Put(place);
    updateGeometry();
}

}  // namespace NolSchedCtls
