#include "host/window/shift_box.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QSpinBox>

#include "host/window/qt_text.h"
#include "host/window/run_counts.h"

namespace NolSchedCtls {

namespace {

constexpr int mostDays = 99'999;  // the page tells what it takes
constexpr int mostHours = 23;

QSpinBox* AddNumber(QFormLayout& form, const QString& caption, int most, int value) {
    auto* const number = new QSpinBox;
    number->setRange(-most, most);
    number->setValue(value);
    number->selectAll();
    form.addRow(caption, number);
    return number;
}

}  // namespace

std::optional<DateTime> AskShift(QWidget* parent, const QString& whose) {
    QDialog box(parent);
    box.setWindowTitle(u"Shift Start"_s);
    auto* const form = new QFormLayout(&box);
    auto* const text =
        new QLabel(u"The start of %1 moves by so much; below zero it moves back."_s.arg(whose));
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(true);
    form->addRow(text);
    const QSpinBox& days = *AddNumber(*form, u"&Days:"_s, mostDays, 1);
    const QSpinBox& hours = *AddNumber(*form, u"&Hours:"_s, mostHours, 0);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &box, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &box, &QDialog::reject);
    form->addRow(buttons);
    if (box.exec() != QDialog::Accepted || (days.value() == 0 && hours.value() == 0)) return {};
    return days.value() + hours.value() / static_cast<double>(hoursOfDay);
}

}  // namespace NolSchedCtls
