#include "host/window/entry_editor.h"

#include <QCloseEvent>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>

#include "NolSchedCtls/toolkit/x_marlet.h"
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
    auto* const column = new QVBoxLayout(this);
    MakeHeader();
    MakePages();
    column->addWidget(outlook = new OutlookLine(*session, this));
    MakeButtons();
    column->setSpacing(column->spacing() * 3 / 2);
    CPaviseNotify& notifier = session->Notifier();
    connections.emplace_back(notifier.Changed.Connect([this] { ShowState(); }));
    connections.emplace_back(
        notifier.TabShown.Connect([this](const std::string& tabName) { ShowPage(tabName); }));
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
    name->setAccessibleDescription(u"The entry's name in the list and in the titles of messages."_s);
    connect(name, &QLineEdit::textEdited, this, [this](const QString& text) {
        session->Record().EditorName = text.toStdString();
        session->Notifier().MarkChanged();
    });
    auto* const form = new QFormLayout;
    form->addRow(u"&Name:"_s, name);
    static_cast<QVBoxLayout*>(layout())->addLayout(form);
}

void EntryEditor::MakePages() {
    pages = new QTabWidget(this);
    for (const Page& page : session->Pages()) pages->addTab(new PageView(*page.tab, pages), ToQt(page.title));
    layout()->addWidget(pages);
    for (const auto* const line : findChildren<TypedLine*>()) {
        connect(line, &TypedLine::textEdited, this, &EntryEditor::ShowState);
        connect(line, &TypedLine::Shown, this, &EntryEditor::ShowState);
    }
}

// Without mnemonics: the pages use the letters.
void EntryEditor::MakeButtons() {
    using Box = QDialogButtonBox;
    buttons = new Box(Box::Ok | Box::Cancel | Box::Apply, this);
    buttons->button(Box::Ok)->setText(u"OK"_s);
    buttons->button(Box::Cancel)->setText(u"Cancel"_s);
    buttons->button(Box::Apply)->setText(u"Apply"_s);
    for (auto* const button : buttons->buttons()) button->setIcon({});
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
    return session->HasUnsavedChanges() ||
           std::any_of(lines.begin(), lines.end(), std::mem_fn(&TypedLine::IsUntaken));
}

void EntryEditor::ShowState() {
    const CNolSchedData& record = session->Record();
    const QString title = ToVisible(record.EditorName).replace(u"[*]"_s, u"[*][*]"_s);
    setWindowTitle(
        (record.IsOverride() ? u"%1[*] - Immediate Entry"_s : u"%1[*] - Schedule Entry"_s).arg(title));
    setWindowModified(IsUnsaved());
    Button(QDialogButtonBox::Apply)->setEnabled(IsUnsaved() || record.IsNew);
    outlook->Follow();
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

void EntryEditor::CommitEdits() {
    for (auto* const line : findChildren<TypedLine*>()) line->Commit();
}

bool EntryEditor::Save() {
    CommitEdits();
    EntrySession::SaveResult result;
    if (!Succeeds([&] { result = session->Save(); })) return false;
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
    CommitEdits();
    if ((IsUnsaved() || session->Record().IsNew) && !Save()) return;
    close();
}

bool EntryEditor::MayClose() {
    CommitEdits();
    if (!IsUnsaved()) return true;
    using Box = QMessageBox;
    const auto answer = dialogs.ask(this, {ToQt(session->Record().EditorName),
                                           u"The entry has unsaved changes. Do you want to save them?"_s,
                                           Box::Save | Box::Discard | Box::Cancel, Box::Save});
    return answer == Box::Discard || (answer == Box::Save && Save());
}

void EntryEditor::closeEvent(QCloseEvent* event) { event->setAccepted(MayClose()); }

}  // namespace NolSchedCtls
