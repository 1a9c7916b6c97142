#include "host/window/bindings.h"

#include <QAbstractItemView>
#include <QButtonGroup>
#include <QCheckBox>
#include <QCompleter>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QRadioButton>
#include <QRegularExpression>

#include <limits>

#include "NolSchedCtls/toolkit/fields.h"
#include "host/window/accessibility.h"
#include "host/window/date_combo.h"
#include "host/window/dialogs.h"
#include "host/window/field_link.h"
#include "host/window/qt_text.h"
#include "host/window/step_box.h"
#include "host/window/typed_line.h"

namespace NolSchedCtls {

namespace {

// Its letter clicks it at once. Qt's own way shows the click for a while first, and the keys that come
// meanwhile go to another field.
class LetteredBox : public QCheckBox {
  public:
    using QCheckBox::QCheckBox;

  protected:
    bool event(QEvent* event) override {
        if (event->type() != QEvent::Shortcut) return QCheckBox::event(event);
        setFocus(Qt::ShortcutFocusReason);
        click();
        return true;
    }
};

QWidget* Bind(CheckBox& field, QWidget* parent) {
    auto* const box = new LetteredBox(Trimmed(field.Caption()), parent);
    auto* const link = FieldLink::Tie(field, *box, [&field, box] { box->setChecked(field.Value() != 0); });
    QObject::connect(box, &QCheckBox::clicked, link, [&field, link] { link->Act([&] { field.Click(); }); });
    return box;
}

void ShowEntries(const DropDownList& field, QComboBox& list) {
    const auto& entries = field.Entries();
    bool isSame = entries.size() == static_cast<std::size_t>(list.count());
    for (std::size_t i = 0; isSame && i < entries.size(); ++i)
        isSame = list.itemText(static_cast<int>(i)) == ToQt(entries[i]);
    if (!isSame) {
        const Silence silence;
        list.clear();
        for (const auto& entry : entries) list.addItem(ToQt(entry));
    }
    list.setCurrentIndex(field.ListIndex());
}

QWidget* Bind(DropDownList& field, QWidget* parent) {
    auto* const list = new QComboBox(parent);
    list->setMaxVisibleItems(15);
    auto* const link = FieldLink::Tie(field, *list, [&field, list] { ShowEntries(field, *list); });
    QObject::connect(list, &QComboBox::activated, link,
                     [&field, link](int index) { link->Act([&] { field.PickIndex(index); }); });
    return list;
}

// Takes keys before a widget does; the filter tells which it may have.
class KeyFilter : public QObject {
  public:
    KeyFilter(QWidget& widget, std::function<bool(char32_t)> passesA)
        : QObject(&widget), passes(std::move(passesA)) {
        widget.installEventFilter(this);
    }

  protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        for (const char32_t key : KeysOf(*event))
            if (!passes(key)) return true;
        return false;
    }

  private:
    static QList<uint> KeysOf(const QEvent& event) {
        if (event.type() == QEvent::InputMethod)
            return static_cast<const QInputMethodEvent&>(event).commitString().toUcs4();
        if (event.type() != QEvent::KeyPress) return {};
        const auto& key = static_cast<const QKeyEvent&>(event);
        if (key.key() == Qt::Key_Backspace) return {keyBackspace};
        const bool isCommand =
            (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) == Qt::ControlModifier;
        const bool isText =
            !isCommand && !key.text().isEmpty() && key.text().at(0).category() != QChar::Other_Control;
        return isText ? key.text().toUcs4() : QList<uint>();
    }

    std::function<bool(char32_t)> passes;
};

// A stored text may be longer than a user's may.
void ShowText(const QString& text, std::size_t limit, QLineEdit& edit) {
    if (limit > 0) edit.setMaxLength(std::max(static_cast<int>(limit), static_cast<int>(text.size())));
    if (edit.text() != text) edit.setText(text);
}

// Steps a whole number, of no text from 0 on, within so many letters and so much; another text stays.
std::string Stepped(const std::string& text, int steps, std::size_t letters,
                    qint64 most = std::numeric_limits<qint64>::max()) {
    bool isNumber = true;
    const qint64 number = text.empty() ? 0 : ToQt(text).toLongLong(&isNumber);
    const std::string stepped = std::to_string(std::clamp<qint64>(number + steps, 0, std::max(most, number)));
    return isNumber && stepped.size() <= letters ? stepped : text;
}

// A field that refuses letters is a number's.
QWidget* Bind(TextBox& field, QWidget* parent) {
    auto* const edit = new QLineEdit(parent);
    QWidget* widget = edit;
    if (field.FilterKey(U'x') == 0)
        widget = new StepBox(
            edit,
            [&field](int steps) {
                Succeeds([&] { field.Edit(Stepped(field.Text(), steps, field.MaxLength())); });
            },
            parent);
    auto* const link = FieldLink::Tie(field, *widget, [&field, edit] {
        edit->setReadOnly(field.Locked());
        ShowText(ToQt(field.Text()), field.MaxLength(), *edit);
    });
    new KeyFilter(*widget, [&field](char32_t key) { return field.Locked() || field.FilterKey(key) != 0; });
    QObject::connect(edit, &QLineEdit::textEdited, link, [&field, link](const QString& text) {
        link->Act([&] { field.Edit(text.toStdString()); });
    });
    return widget;
}

// What the design tells apart by runs of blanks are lines.
QString LabelText(const Label& field) {
    static const QRegularExpression runOfBlanks(u" {10,}"_s);
    return Trimmed(field.Caption()).replace(runOfBlanks, u"\n"_s);
}

QWidget* Bind(Label& field, QWidget* parent) {
    auto* const label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    FieldLink::Tie(field, *label, [&field, label] { label->setText(LabelText(field)); });
    return label;
}

QWidget* Bind(Frame& field, QWidget* parent) {
    auto* const group = new QGroupBox(Trimmed(field.Caption()), parent);
    FieldLink::Tie(field, *group, {});
    return group;
}

QWidget* Bind(SSDateCombo& field, QWidget* parent) { return new DateCombo(field, parent); }

QWidget* Bind(DTPicker& field, QWidget* parent) {
    auto* const line = new TimeLine(field, nullptr);
    auto* const box = new StepBox(
        line, [line](int steps) { line->Step(steps); }, parent);
    FieldLink::Tie(field, *box, [line] { line->ShowField(); });
    return box;
}

// Asks the store anew whenever it opens: others add documents.
class PickerCombo : public QComboBox {
  public:
    PickerCombo(XMarlet& fieldA, QWidget* parent) : QComboBox(parent), field(fieldA) {
        setEditable(true);
        setInsertPolicy(NoInsert);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        lineEdit()->setPlaceholderText(u"None"_s);
        auto* const typeAhead = new QCompleter(model(), this);
        typeAhead->setFilterMode(Qt::MatchContains);
        typeAhead->setCaseSensitivity(Qt::CaseInsensitive);
        setCompleter(typeAhead);
        // Going through its offers puts each into the line, past what the line tells of typing.
        connect(typeAhead, qOverload<const QString&>(&QCompleter::highlighted), this,
                [this](const QString& text) { TakeOffer(text); });
        link = FieldLink::Tie(field, *this, [this] { Show(); });
        connect(lineEdit(), &QLineEdit::textEdited, this,
                [this](const QString& text) { link->Act([&] { field.Paste(text.toStdString()); }); });
        connect(this, &QComboBox::activated, this, [this](int index) {
            if (index >= 0) link->Act([&] { field.Pick(itemText(index).toStdString()); });
        });
    }

    // A part of a name that one document alone has is that document's.
    void Commit() {
        if (field.Document() || field.Text().empty()) return;
        const QString text = ToQt(field.Text());
        const int same = findText(text, Qt::MatchFixedString);
        completer()->setCompletionPrefix(text);
        const bool isOne = completer()->completionCount() == 1;
        if (same < 0 && !isOne) return;
        const QString name = same >= 0 ? itemText(same) : completer()->currentCompletion();
        link->Act([&] { field.Pick(name.toStdString()); });
    }

    void showPopup() override {
        link->Act([this] { Fill(); });
        QComboBox::showPopup();
        const int last = findData(field.LastDocumentId());
        if (!field.Document() && last >= 0) view()->setCurrentIndex(model()->index(last, 0));
    }

  protected:
    void focusOutEvent(QFocusEvent* event) override {
        QComboBox::focusOutEvent(event);
        if (LeavesField(*event)) Commit();
    }

  private:
    void Fill() {
        const auto documents = field.Entries();
        clear();
        for (const auto& document : documents) addItem(ToQt(document->Name), document->Id);
        setCurrentIndex(-1);
    }

    // What cannot be read is told where the user asks for it.
    void TryFill() {
        try {
            Fill();
        } catch (const NolSchedError&) {
            clear();
        }
    }

    // The line shows the offer by itself; another write to it would end the way through the offers.
    void TakeOffer(const QString& offer) {
        const QPointer<QObject> self(this);  // a handler may close the page
        isOffering = true;
        link->Act([&] { field.Paste(offer.toStdString()); });
        if (self) isOffering = false;
    }

    void Show() {
        if (isOffering) return;
        const QString text = ToQt(field.Text());
        const auto place = [this] { return field.Document() ? findData(field.Document()->Id) : -1; };
        if (count() == 0 || (field.Document() && itemText(place()) != text)) TryFill();
        const int index = place();
        if (currentIndex() != index) setCurrentIndex(index);
        if (lineEdit()->text() != text) setEditText(text);
    }

    XMarlet& field;
    FieldLink* link = nullptr;
    bool isOffering = false;
};

QWidget* Bind(XMarlet& field, QWidget* parent) { return new PickerCombo(field, parent); }

// A field of several widgets in a row, each of which takes the focus by itself.
class Parts : public QWidget {
  public:
    explicit Parts(QWidget* parent) : QWidget(parent), row(new QHBoxLayout(this)) {
        row->setContentsMargins(0, 0, 0, 0);
    }

    QHBoxLayout* const row;
};

QWidget* Bind(XAmbitPurge& field, QWidget* parent) {
    auto* const widget = new Parts(parent);
    auto* const box = new QCheckBox(u"Purge automatically after"_s, widget);
    auto* const days = new QLineEdit;
    auto* const daysBox = new StepBox(
        days,
        [&field](int steps) {
            Succeeds([&] {
                field.EditDays(Stepped(field.DaysText(), steps, XAmbitPurge::maxLength, field.MaximumDays()));
            });
        },
        widget);
    auto* const unit = new QLabel(widget);
    daysBox->setObjectName(u"days"_s);
    daysBox->setAccessibleName(u"Purge interval in days"_s);
    daysBox->setFixedWidth(daysBox->fontMetrics().horizontalAdvance(u"0000000000"_s));
    widget->row->addWidget(box);
    widget->row->addWidget(daysBox);
    widget->row->addWidget(unit, 1);
    auto* const link = FieldLink::Tie(field, *widget, [&field, box, days, unit] {
        box->setChecked(field.IsOn());
        ShowText(ToQt(field.DaysText()), XAmbitPurge::maxLength, *days);
        unit->setText(u"days (at most %1)"_s.arg(field.MaximumDays()));
    });
    link->AddFocusPart(*box);
    link->AddFocusPart(*daysBox);
    LeaveWheelToPage(*daysBox);
    new KeyFilter(*daysBox, [&field](char32_t key) { return field.FilterKey(key) != 0; });
    QObject::connect(box, &QCheckBox::clicked, link, [&field, link] { link->Act([&] { field.Click(); }); });
    QObject::connect(days, &QLineEdit::textEdited, link, [&field, link](const QString& text) {
        link->Act([&] { field.EditDays(text.toStdString()); });
    });
    return widget;
}

// None is on for a mode that has no text: a group that is exclusive would not let it be.
void ShowMode(const XAmbitDownload& field, QButtonGroup& modes) {
    modes.setExclusive(false);
    for (auto* mode : modes.buttons()) mode->setChecked(mode->text() == ToQt(field.Text()));
    modes.setExclusive(true);
}

QWidget* Bind(XAmbitDownload& field, QWidget* parent) {
    auto* const widget = new Parts(parent);
    auto* const modes = new QButtonGroup(widget);
    for (const auto& entry : downloadModes) {
        auto* const mode = new QRadioButton(ToQt(entry.text), widget);
        modes->addButton(mode);
        widget->row->addWidget(mode);
    }
    widget->row->addStretch();
    auto* const link = FieldLink::Tie(field, *widget, [&field, modes] { ShowMode(field, *modes); });
    for (auto* mode : modes->buttons()) {
        link->AddFocusPart(*mode);
        QObject::connect(mode, &QRadioButton::clicked, link, [&field, link, mode] {
            link->Act([&] { field.Pick(mode->text().toStdString()); });
        });
    }
    return widget;
}

}  // namespace

QWidget* BindField(ViewField& field, QWidget* parent) {
    return VisitField(field, [parent](auto& kind) { return Bind(kind, parent); });
}

void CommitEdits(QWidget& page) {
    for (auto* const line : page.findChildren<TypedLine*>()) line->Commit();
    for (auto* const combo : page.findChildren<QComboBox*>())
        if (auto* const picker = dynamic_cast<PickerCombo*>(combo)) picker->Commit();
}

QList<QWidget*> TabStops(QWidget& bound) {
    if (dynamic_cast<Parts*>(&bound) == nullptr) return {&bound};
    QList<QWidget*> stops;
    for (auto* part : bound.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
        if ((part->focusPolicy() & Qt::TabFocus) != 0) stops.append(part);
    return stops;
}

}  // namespace NolSchedCtls
