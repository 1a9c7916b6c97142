#include "bench/hand_page.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLocale>
#include <QSignalBlocker>

namespace NolSchedCtls::Bench {

namespace {

struct Mode {
    const char* name;
    const char* unit;
    int frequencies;
    bool hasDayNum;
    bool hasDayName;
    bool hasEnd;
    bool excludesDays;
};

constexpr Mode modes[] = {{"Once", "", 0, false, false, false, false},
                          {"Hourly", "Period(s)", 24, false, false, true, true},
                          {"Daily", "day(s)", 7, false, false, true, true},
                          {"Weekly", "week(s)", 52, false, true, true, false},
                          {"Monthly", "month(s)", 12, true, true, true, true}};

constexpr int weekly = 3;

constexpr const char* dayNames[] = {"Day",       "Sunday",   "Monday", "Tuesday",
                                    "Wednesday", "Thursday", "Friday", "Saturday"};

void Fill(QComboBox& list, const QStringList& entries) {
    const QSignalBlocker blocker(&list);
    list.clear();
    list.addItems(entries);
}

QStringList Numbers(int last, bool isOrdinal) {
    QStringList numbers;
    for (int number = 1; number <= last; ++number)
        numbers.append(isOrdinal ? QStringLiteral("%1th").arg(number) : QString::number(number));
    if (isOrdinal) numbers.append(QStringLiteral("Last"));
    return numbers;
}

QStringList DayNames(bool withDay) {
    QStringList names;
    for (const char* name : dayNames) names.append(QString::fromUtf8(name));
    if (!withDay) names.removeFirst();
    return names;
}

QLabel* LabelOf(const char* text, QWidget* buddy) {
    auto* const label = new QLabel(QString::fromUtf8(text));
    label->setBuddy(buddy);
    return label;
}

QGroupBox* Group(const char* title, QLayout* layout) {
    auto* const group = new QGroupBox(QString::fromUtf8(title));
    group->setLayout(layout);
    return group;
}

}  // namespace

HandPage::HandPage() {
    auto* const column = new QVBoxLayout(this);
    column->addWidget(Group("Schedule Duration", MakeDuration()));
    column->addWidget(Group("Schedule Frequency", MakeFrequency()));
    column->addWidget(Group("Exclude", MakeExclude()));
    column->addStretch();
    connect(period, &QComboBox::currentIndexChanged, this, &HandPage::SetMode);
    connect(hasEnd, &QCheckBox::clicked, this, &HandPage::SetEnd);
    connect(dayName, &QComboBox::currentIndexChanged, this, &HandPage::DayNameChosen);
    connect(dayNum, &QComboBox::currentIndexChanged, this, &HandPage::DayNumChosen);
    period->setCurrentIndex(weekly);
}

QLayout* HandPage::MakeDuration() {
    auto* const grid = new QGridLayout;
    for (QComboBox* date : {start, end}) {
        date->setEditable(true);
        date->setInsertPolicy(QComboBox::NoInsert);
        date->setCompleter(nullptr);
        date->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        date->setMinimumContentsLength(30);
        date->setEditText(QStringLiteral("Monday, March 02, 2026"));
    }
    noEnd->setReadOnly(true);
    grid->addWidget(LabelOf("&Start Date:", start), 0, 0);
    grid->addWidget(start, 0, 1);
    grid->addWidget(hasEnd, 1, 0);
    grid->addWidget(end, 1, 1);
    grid->addWidget(noEnd, 1, 1);
    grid->setColumnStretch(2, 1);
    return grid;
}

QLayout* HandPage::MakeFrequency() {
    auto* const row = new QHBoxLayout;
    row->setSpacing(0);
    for (QWidget* widget :
         std::initializer_list<QWidget*>{period, onThe, dayNum, on, dayName, every, ofEvery, frequency, unit})
        row->addWidget(widget);
    row->addStretch();
    for (const Mode& mode : modes) period->addItem(QString::fromUtf8(mode.name));
    Fill(*dayNum, Numbers(28, true));
    Fill(*dayName, DayNames(true));
    Fill(*frequency, Numbers(52, false));
    time->setDisplayFormat(QStringLiteral("h:mm AP"));
    auto* const starting = new QHBoxLayout;
    starting->addWidget(LabelOf("St&arting at:", time));
    starting->addWidget(time);
    starting->addStretch();
    auto* const column = new QVBoxLayout;
    column->addWidget(LabelOf("&Run:", period));
    column->addLayout(row);
    column->addLayout(starting);
    return column;
}

QLayout* HandPage::MakeExclude() {
    auto* const grid = new QGridLayout;
    for (int day = 0; day < 9; ++day) {
        excluded.append(
            new QCheckBox(day < 7 ? QString::fromUtf8(dayNames[day + 1]) : QStringLiteral("Holidays")));
        grid->addWidget(excluded.last(), day / 4, day % 4);
    }
    return grid;
}

void HandPage::SetMode(int index) {
    const Mode& mode = modes[index];
    for (QWidget* widget : std::initializer_list<QWidget*>{onThe, dayNum, ofEvery})
        widget->setVisible(mode.hasDayNum);
    on->setVisible(mode.hasDayName && !mode.hasDayNum);
    dayName->setVisible(mode.hasDayName);
    every->setVisible(mode.frequencies > 0 && !mode.hasDayNum);
    frequency->setVisible(mode.frequencies > 0);
    unit->setVisible(mode.frequencies > 0);
    unit->setText(QString::fromUtf8(mode.unit));
    hasEnd->setEnabled(mode.hasEnd);
    SetEnd();
    for (qsizetype day = 0; day < 9; ++day)
        excluded[day]->setEnabled(day < 7 ? mode.excludesDays : mode.frequencies > 0);
    if (mode.hasDayName) Fill(*dayName, DayNames(mode.hasDayNum));
    if (mode.frequencies > 0) Fill(*frequency, Numbers(mode.frequencies, false));
}

void HandPage::SetEnd() {
    const bool isShown = hasEnd->isChecked() && hasEnd->isEnabled();
    end->setVisible(isShown);
    noEnd->setVisible(!isShown);
    noEnd->setEnabled(hasEnd->isEnabled());
}

void HandPage::DayNameChosen() {
    const int kept = dayNum->currentIndex();
    Fill(*dayNum, Numbers(dayName->currentText() == QStringLiteral("Day") ? 28 : 4, true));
    dayNum->setCurrentIndex(kept < dayNum->count() ? kept : 0);
}

void HandPage::DayNumChosen() {
    const QString kept = dayName->currentText();
    if (dayNum->currentIndex() < 5)
        Fill(*dayName, DayNames(true));
    else
        Fill(*dayName, {QStringLiteral("Day")});
    dayName->setCurrentIndex(std::max(0, dayName->findText(kept)));
}

}  // namespace NolSchedCtls::Bench
