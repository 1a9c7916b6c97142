// A store, its workspace, and editors over it whose widgets a test drives like a user.
#pragma once

#include <gtest/gtest.h>

#include <QTest>
#include <QtWidgets>

#include "NolSchedCtls/tabs/general/nol_sched_gen_tab.h"
#include "NolSchedCtls/tabs/schedule/nol_schedule_tab.h"
#include "host/window/bindings.h"
#include "host/window/entry_editor.h"
#include "host/window/page_view.h"
#include "host/window/qt_text.h"
#include "tests/host/store.h"

namespace NolSchedCtls::Testing {

using Keys = std::vector<std::pair<std::string, const char*>>;  // what is typed, by "page.field"

// What a widget shows; one of several parts shows them in a row.
inline std::string Shown(const QWidget& widget) {
    QStringList shown;
    for (const char* property : {"checked", "text", "currentText", "title"})
        if (widget.property(property).isValid()) shown.append(widget.property(property).toString());
    if (shown.isEmpty())
        for (const auto* part : widget.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
            shown.append(ToQt(Shown(*part)));
    return shown.join(u' ').toStdString();
}

// What a screen reader says of a widget that has the focus: its label, name, value and unit. Its purpose is
// what F1 tells.
inline QString Heard(QWidget& widget) {
    const QAccessibleInterface& told = *QAccessible::queryAccessibleInterface(&widget);
    QString heard = told.text(QAccessible::Name);
    if (const QString value = told.text(QAccessible::Value); !value.isEmpty()) heard += u'=' + value;
    for (const auto& [other, relation] : told.relations(QAccessible::Label))
        if (other->role() == QAccessible::StaticText)
            heard.prepend(other->text(QAccessible::Name) + u" > "_s);
    const QString purpose = widget.whatsThis();
    if (const qsizetype unit = purpose.indexOf(u"Unit: "); unit >= 0)
        heard += u" (%1)"_s.arg(purpose.mid(unit + 6));
    const bool isWhole = told.role() != QAccessible::Client && told.state().focused && !purpose.isEmpty() &&
                         told.text(QAccessible::Description) == purpose;
    return isWhole ? heard : heard + u" lacks a part"_s;
}

// What it says first where the focus comes from elsewhere.
inline QString HeardAround(QWidget& widget) {
    const QAccessibleInterface* around = QAccessible::queryAccessibleInterface(&widget)->parent();
    while (around->text(QAccessible::Name).isEmpty()) around = around->parent();
    return around->text(QAccessible::Name);
}

class Windows : public testing::Test {
  protected:
    explicit Windows(Region regionA = {}) : region(regionA) {}

    std::unique_ptr<EntrySession> NewSession(const std::string& name = "Nightly", int group = 1) {
        return std::make_unique<EntrySession>(workspace, EntrySession::NewEntry{false, group, name});
    }
    // Shown and active. Deleted with the test, unless it was closed before.
    EntryEditor& OpenNew(int group = 1) {
        editors.emplace_back(new EntryEditor(NewSession("Nightly", group), dialogs));
        Activate(*editors.back());
        return *editors.back();
    }
    void Store(const std::string& name = "Nightly") { EntryEditor(NewSession(name), dialogs).Save(); }
    void TearDown() override { qDeleteAll(editors); }

    static void Activate(QWidget& window) {
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    // By "page.field"; the page is brought to the front.
    static QWidget& Find(EntryEditor& editor, const std::string& name) {
        const std::size_t dot = name.find('.');
        const Page& page = *editor.Session().FindPage(name.substr(0, dot));
        editor.ShowPage(page.name);
        return *editor.PageOf(page).WidgetOf(*page.tab->FindField(name.substr(dot + 1)));
    }
    // Into the last part of a field of several.
    static void Type(EntryEditor& editor, const Keys& keys) {
        for (const auto& [name, text] : keys) {
            QWidget& widget = *TabStops(Find(editor, name)).last();
            widget.setFocus();
            QTest::keyClicks(&widget, QString::fromUtf8(text));
        }
    }
    static void Press(QWidget& at, const char* keys) { QTest::keySequence(&at, {QString::fromUtf8(keys)}); }

    const Region region;
    TemporaryStore store;
    std::string told;       // messages and questions, each in a line
    std::string toldUnder;  // the title of the last message
    std::function<void()> onMessage;
    std::vector<Question> asked;
    QMessageBox::StandardButton answer = QMessageBox::Discard;
    QList<QMessageBox::StandardButton> next;  // come first
    DateTime now = 46083;                     // 3/2/2026
    int choice = 1;                           // of what is offered; -1 for none
    const Dialogs dialogs{[this](QWidget*, const Question& question) {
                              told += question.text.toStdString() + '\n';
                              asked.push_back(question);
                              return next.isEmpty() ? answer : next.takeFirst();
                          },
                          [this](QWidget*, const auto&, const auto&, const auto& offered, int) {
                              return offered.value(choice);
                          }};
    Workspace workspace{{store.Address(), "tester",
                         [this](const Message& m) {
                             told += m.text + '\n';
                             toldUnder = m.title;
                             if (onMessage) onMessage();
                         },
                         [this] { return now; }, region}};
    std::string failing;  // statements that hold this fail
    int spared = 0;       // but for so many
    const ScopedConnection fault = workspace.Store().Statement.Connect([this](std::string_view statement) {
        if (failing.empty() || statement.find(failing) == std::string_view::npos) return;
        if (spared-- <= 0) throw StoreError("The store fails.");
    });
    std::vector<QPointer<EntryEditor>> editors;
};

}  // namespace NolSchedCtls::Testing
