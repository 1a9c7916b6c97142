// The schedule page as one would write it in Qt alone: the same widgets, signals and a mode switch, without
// view fields. Opens in "Weekly".
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTimeEdit>

namespace NolSchedCtls::Bench {

class HandPage : public QWidget {
  public:
    HandPage();

    QComboBox* const period = new QComboBox;

  private:
    QLayout* MakeDuration();
    QLayout* MakeFrequency();
    QLayout* MakeExclude();
    void SetMode(int mode);
    void SetEnd();
    void DayNameChosen();
    void DayNumChosen();

    QComboBox* const start = new QComboBox;  // a date as a text, with a calendar under the arrow
    QCheckBox* const hasEnd = new QCheckBox(QStringLiteral("&End Date:"));
    QComboBox* const end = new QComboBox;
    QLineEdit* const noEnd = new QLineEdit(QStringLiteral("No End Date"));
    QLabel* const onThe = new QLabel(QStringLiteral("on the"));
    QComboBox* const dayNum = new QComboBox;
    QLabel* const on = new QLabel(QStringLiteral("on"));
    QComboBox* const dayName = new QComboBox;
    QLabel* const every = new QLabel(QStringLiteral("every"));
    QLabel* const ofEvery = new QLabel(QStringLiteral("of every"));
    QComboBox* const frequency = new QComboBox;
    QLabel* const unit = new QLabel(QStringLiteral("month(s)"));
    QTimeEdit* const time = new QTimeEdit;
    QList<QCheckBox*> excluded;
};

}  // namespace NolSchedCtls::Bench
