#include "host/window/filter_bar.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QShortcut>

#include "host/entries/entry_outlook.h"
#include "host/window/accessibility.h"
#include "host/window/field_link.h"
#include "host/window/qt_text.h"

namespace NolSchedCtls {

namespace {

constexpr int delayMilliseconds = 150;
constexpr int fewestLetters = 12;  // of each part, in the narrowest window

QLineEdit* MakeWords(QWidget* parent) {
    auto* const words = new QLineEdit(parent);
    words->setPlaceholderText(u"Filter"_s);
    Explain(*words, u"Filter"_s, u"Shows the entries that hold all of these words."_s);
    // With the first letter: its picture is the first one that the window needs, and Qt loads much for it.
    QObject::connect(words, &QLineEdit::textChanged, words, [words] { words->setClearButtonEnabled(true); });
    words->setMinimumWidth(words->fontMetrics().averageCharWidth() * fewestLetters);
    return words;
}

QComboBox* MakeState(QWidget* parent) {
    auto* const state = new QComboBox(parent);
    Explain(*state, u"State"_s, u"Shows the entries in this state."_s);
    state->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    state->setMinimumContentsLength(fewestLetters);
    LeaveWheelToPage(*state);
    state->addItem(u"Any state"_s);
    for (const std::string& text : AllStates()) state->addItem(ToQt(text), ToQt(text));
    return state;
}

}  // namespace

FilterBar::FilterBar(QWidget* parent) : QWidget(parent), words(MakeWords(this)), state(MakeState(this)) {
    auto* const row = new QHBoxLayout(this);
    const int gap = row->contentsMargins().left() / 2;
    row->setContentsMargins(gap, gap, gap, gap);
    row->addWidget(words, 1);
    row->addWidget(state);
    delay.setSingleShot(true);
    delay.setInterval(delayMilliseconds);
    connect(words, &QLineEdit::textChanged, &delay, qOverload<>(&QTimer::start));
    connect(state, &QComboBox::currentIndexChanged, &delay, qOverload<>(&QTimer::start));
    connect(&delay, &QTimer::timeout, this, &FilterBar::Changed);
    connect(words, &QLineEdit::returnPressed, this, &FilterBar::Accepted);
    const auto bind = [this](Qt::Key key, const auto& act) {
        connect(new QShortcut(key, words, nullptr, nullptr, Qt::WidgetShortcut), &QShortcut::activated, this,
                act);
    };
    bind(Qt::Key_Escape, [this] { words->clear(); });
    bind(Qt::Key_Down, [this] { Q_EMIT Accepted(); });
}

QString FilterBar::Words() const { return words->text(); }

QString FilterBar::State() const { return state->currentData().toString(); }

void FilterBar::TakeFocus() {
    words->setFocus(Qt::ShortcutFocusReason);
    words->selectAll();
}

}  // namespace NolSchedCtls
