#include "host/window/entry_editor.h"

#include <QCloseEvent>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QTabBar>
#include <QTabWidget>
#include <optional>
#include <utility>

#include "NolSchedCtls/toolkit/x_marlet.h"
#include "host/entries/entry_differences.h"
#include "host/window/accessibility.h"
#include "host/window/appearance.h"
#include "host/window/bindings.h"
#include "host/window/field_text.h"
#include "host/window/outlook_line.h"
#include "host/window/page_view.h"
#include "host/window/qt_text.h"
#include "host/window/typed_line.h"

namespace NolSchedCtls {

EntryEditor::EntryEditor(std::unique_ptr<EntrySession> sessionA, Dialogs dialogsA)
    : session(std::move(sessionA)), dialogs(std::move(dialogsA)) {
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowFlags(Qt::Window);
    session->Load();
    Make();
    reloading.setSingleShot(true);
    connect(&reloading, &QTimer::timeout, this, &EntryEditor::Reload);
    // The outlook may take two lines.
    FitToScreen(*this, sizeHint() + QSize(0, fontMetrics().lineSpacing()));
}

void EntryEditor::Make() {
    auto* const column = new QVBoxLayout(this);
    MakeHeader();
    column->addWidget(pages = MakePages(*session).release());
    column->addWidget(outlook = new OutlookLine(*session, this));
    MakeButtons();
    column->setSpacing(column->spacing() * 3 / 2);
    TellPurposeAtF1(*this);
    for (const auto& [keys, step] : {std::pair{u"Ctrl+Tab"_s, 1}, std::pair{u"Ctrl+Shift+Tab"_s, -1},
                                     std::pair{u"Ctrl+PgDown"_s, 1}, std::pair{u"Ctrl+PgUp"_s, -1}}) {
        const auto turn = [this, by = step] {
            pages->setCurrentIndex((pages->currentIndex() + by + pages->count()) % pages->count());
        };
        new QShortcut(QKeySequence(keys), this, this, turn);
    }
    Follow();
}

void EntryEditor::Follow() {
    CPaviseNotify& notifier = session->Notifier();
    connections.emplace_back(notifier.Changed.Connect([this] { ShowState(); }));
    connections.emplace_back(
        notifier.TabShown.Connect([this](const std::string& tabName) { ShowPage(tabName); }));
    connections.emplace_back(
        session->Home().Telling.Connect([this](Message& message) { NameAskedPage(message); }));
    for (auto* const widget : findChildren<QWidget*>())
        if ((widget->focusPolicy() & Qt::TabFocus) != 0) widget->installEventFilter(this);
    ShowState();
}

// The connections and the pages go before what they listen to.
EntryEditor::~EntryEditor() {
    connections.clear();
    delete pages;
}

void EntryEditor::MakeHeader() {
    name = new QLineEdit(ToQt(session->Record().EditorName), this);
    name->setObjectName(u"name"_s);
    Explain(*name, u"Name"_s, u"The entry's name in the list and in the titles of messages."_s);
    connect(name, &QLineEdit::textEdited, this, [this](const QString& text) {
        session->Record().EditorName = text.toStdString();
        session->Notifier().MarkChanged();
    });
    if (session->Record().IsNew) name->selectAll();
    auto* const form = new QFormLayout;
    form->addRow(u"&Name:"_s, name);
    static_cast<QVBoxLayout*>(layout())->addLayout(form);
}

std::unique_ptr<QTabWidget> EntryEditor::MakePages(EntrySession& of) {
    auto made = std::make_unique<QTabWidget>();
    Explain(*made->tabBar(), u"Pages"_s, u"The pages of the entry; the arrow keys turn them."_s);
    for (const Page& page : of.Pages()) made->addTab(new PageView(*page.tab, made.get()), ToQt(page.title));
    for (const auto* const line : made->findChildren<TypedLine*>()) {
        connect(line, &TypedLine::textEdited, this, &EntryEditor::ShowState);
        connect(line, &TypedLine::Shown, this, &EntryEditor::ShowState);
    }
    return made;
}

// Without mnemonics: the pages use the letters.
void EntryEditor::MakeButtons() {
    using Box = QDialogButtonBox;
    buttons = new Box(Box::Ok | Box::Cancel | Box::Apply, this);
    buttons->button(Box::Ok)->setText(u"OK"_s);
    buttons->button(Box::Cancel)->setText(u"Cancel"_s);
    buttons->button(Box::Apply)->setText(u"Apply"_s);
    for (auto* const button : buttons->buttons()) button->setIcon({});
    Explain(*buttons->button(Box::Ok), {}, u"Saves the entry and closes it."_s);
    Explain(*buttons->button(Box::Cancel), {}, u"Closes the entry without a save."_s);
    Explain(*buttons->button(Box::Apply), {}, u"Saves the entry, which stays open."_s);
    buttons->button(Box::Apply)->setShortcut(QKeySequence::Save);
    connect(buttons, &Box::accepted, this, &EntryEditor::accept);
    connect(buttons, &Box::rejected, this, &EntryEditor::reject);
    connect(buttons->button(Box::Apply), &QPushButton::clicked, this, &EntryEditor::Save);
    layout()->addWidget(buttons);
}

QPushButton* EntryEditor::Button(QDialogButtonBox::StandardButton which) const {
    return buttons->button(which);
}

// What is typed may be taken yet, or is refused and would be lost.
bool EntryEditor::IsUnsaved() const {
    const auto lines = pages->findChildren<TypedLine*>();
    return session->IsUnsaved() ||
           std::any_of(lines.begin(), lines.end(), std::mem_fn(&TypedLine::IsUntaken));
}

void EntryEditor::ShowState() {
    const CNolSchedData& record = session->Record();
    if (const QString text = ToQt(record.EditorName); name->text() != text) name->setText(text);
    const QString title = ToVisible(record.EditorName).replace(u"[*]"_s, u"[*][*]"_s);
    setWindowTitle(
        (record.IsOverride() ? u"%1[*] - Immediate Entry"_s : u"%1[*] - Schedule Entry"_s).arg(title));
    setWindowModified(IsUnsaved());
    Describe(*this, isWindowModified() ? u"Unsaved changes"_s : QString());
    Button(QDialogButtonBox::Apply)->setEnabled(IsUnsaved() || record.IsNew);
    outlook->Follow();
}

void EntryEditor::FollowStored() {
    bool isOvertaken = false;
    if (!IsUnsaved()) Succeeds([&] { isOvertaken = session->IsOvertaken(); });
    if (isOvertaken) Reload();
}

void EntryEditor::RereadOutlook() {
    outlook->Reread();
    try {
        for (const Page& page : session->Pages())
            for (ViewField* const field : page.tab->Fields())
                if (auto* const picker = FieldAs<XMarlet>(*field)) picker->Reread();
    } catch (const StoreError&) {
        return;  // the list, which is read anew with this, tells it
    }
}

PageView& EntryEditor::PageOf(const Page& page) const {
    return *static_cast<PageView*>(pages->widget(static_cast<int>(&page - session->Pages().data())));
}

void EntryEditor::ShowPage(std::string_view pageName) {
    const Page* const page = session->FindPage(pageName);
    if (page != nullptr) pages->setCurrentWidget(&PageOf(*page));
}

// The page comes forward before the box does, so that the user sees what it is about.
void EntryEditor::NameAskedPage(Message& message) {
    const Page* const page = session->AskedPage();
    if (page == nullptr) return;
    ShowPage(page->name);
    message.title += " - " + std::string(page->title);
}

bool EntryEditor::IsNamed() {
    if (!name->text().trimmed().isEmpty()) return true;
    Succeeds([] { throw RequestError("An entry needs a name."); });
    name->setFocus();
    return false;
}

bool EntryEditor::Save() {
    CommitEdits(*pages);
    return IsNamed() && SaveBy([this] { return session->Save(); });
}

QString EntryEditor::DifferencesText() const {
    constexpr std::size_t mostTold = 8;
    const auto differences = DifferencesFromStored(*session);
    QString text;
    for (std::size_t i = 0; i < differences.size() && i < mostTold; ++i) {
        const auto& [page, field, own, shown, stored] = differences[i];
        const QString place =
            own != nullptr ? QString::fromUtf8(own) : ToQt(page->title) + u", "_s + TextOf(*field).name;
        text += u"\n%1: \"%2\" is stored, \"%3\" is here"_s.arg(place, ToVisible(stored), ToVisible(shown));
    }
    if (differences.size() > mostTold) text += u"\n... and %1 more"_s.arg(differences.size() - mostTold);
    return text.isEmpty() ? text : u"\n"_s + text;
}

bool EntryEditor::SettleOvertaken(const QString& text) {
    using Box = QMessageBox;
    std::optional<QString> differences;  // none where it is deleted, as the text says
    Succeeds([&] {
        try {
            differences = DifferencesText();
        } catch (const RequestError&) {
        }
    });
    const auto answer =
        dialogs.ask(this, {ToQt(session->Record().EditorName),
                           text + differences.value_or(QString()),
                           (differences ? Box::Retry : Box::NoButton) | Box::Save | Box::Cancel,
                           Box::Cancel,
                           {{Box::Retry, u"Reload"_s}, {Box::Save, u"Save as a Copy"_s}}});
    if (answer == Box::Retry) reloading.start(0);
    return answer == Box::Save && SaveBy([this] { return session->SaveAsCopy(); });
}

// What may fail comes first: the editor stays as it is then. The buttons follow the pages in the order of
// Tab.
void EntryEditor::Reload() {
    Succeeds([this] {
        auto stored = std::make_unique<EntrySession>(session->Home(), session->Record().Id);
        stored->Load();
        auto made = MakePages(*stored);
        const int front = pages->currentIndex();
        const QWidget* const focused = focusWidget();
        const QString field = focused == nullptr ? QString() : focused->objectName();
        connections.clear();
        delete layout()->replaceWidget(pages, made.get());
        delete std::exchange(pages, made.release());
        auto* const line = new OutlookLine(*stored, this);
        delete layout()->replaceWidget(outlook, line);
        delete std::exchange(outlook, line);
        delete buttons;
        MakeButtons();
        session = std::move(stored);
        Follow();
        pages->setCurrentIndex(front);
        for (QWidget* const place : {pages->currentWidget(), static_cast<QWidget*>(this)})
            if (auto* const widget = field.isEmpty() ? nullptr : place->findChild<QWidget*>(field))
                return widget->setFocus();
    });
}

bool EntryEditor::SaveBy(const std::function<EntrySession::SaveResult()>& save) {
    EntrySession::SaveResult result;
    std::optional<QString> overtaken;
    const bool isDone = Succeeds([&] {
        try {
            result = save();
        } catch (const OvertakenError& error) {
            overtaken = ToQt(error.what());
        }
    });
    if (overtaken) return SettleOvertaken(*overtaken);
    if (!isDone) return false;
    if (const Page* const page = result.refusedBy) {
        ShowPage(page->name);
        PageOf(*page).TakeFocus();
        return false;
    }
    ShowState();
    Q_EMIT Saved(session->Record().Id);
    return true;
}

void EntryEditor::accept() {
    CommitEdits(*pages);
    if ((IsUnsaved() || session->Record().IsNew) && !Save()) return;
    close();
}

bool EntryEditor::MayClose() {
    CommitEdits(*pages);
    if (!IsUnsaved()) return true;
    using Box = QMessageBox;
    const auto answer = dialogs.ask(this, {ToQt(session->Record().EditorName),
                                           u"The entry has unsaved changes. Do you want to save them?"_s,
                                           Box::Save | Box::Discard | Box::Cancel, Box::Save});
    return answer == Box::Discard || (answer == Box::Save && Save());
}

// A dialog's place is the middle, with no title in sight on a small screen: there the window manager finds
// it.
void EntryEditor::showEvent(QShowEvent* event) {
    const QSize room = screen()->availableSize() * 4 / 5;
    if (width() <= room.width() && height() <= room.height()) QDialog::showEvent(event);
}

// A letter with Alt was meant for a field that is not there; a line would write it.
bool EntryEditor::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
    const auto& key = static_cast<const QKeyEvent&>(*event);
    constexpr auto held = Qt::ControlModifier | Qt::AltModifier;
    const bool isText = !key.text().isEmpty() && key.text().at(0).isPrint();
    return isText && (key.modifiers() & held) == Qt::AltModifier;
}

void EntryEditor::closeEvent(QCloseEvent* event) { event->setAccepted(MayClose()); }

}  // namespace NolSchedCtls
