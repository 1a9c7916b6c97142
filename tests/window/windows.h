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

using Box = QDialogButtonBox;
using Keys = std::vector<std::pair<std::string, const char*>>;  // what is typed, by "page.field"

// What a widget shows; one of several parts shows them in a row.
inline std::string Shown(const QWidget& widget) {
    QStringList shown;
    for (const char* property : {"checked", "text", "currentText", "title"})
        if (widget.property(property).isValid()) shown.append(widget.property(property).toString());
    if (shown.isEmpty())
        for (const auto* part : widget.findChildren<QWidget*>()) shown.append(ToQt(Shown(*part)));
    return shown.join(u' ').toStdString();
}

class Windows : public testing::Test {
  protected:
    // Shown and active. Deleted with the test, unless it was closed before.
    EntryEditor& Open(std::unique_ptr<EntrySession> session) {
        editors.emplace_back(new EntryEditor(std::move(session), dialogs));
        Activate(*editors.back());
        return *editors.back();
    }
    EntryEditor& OpenNew() { return Open(NewSession()); }
    EntryEditor& OpenStored() { return Open(std::make_unique<EntrySession>(workspace, 1)); }
    std::unique_ptr<EntrySession> NewSession(const std::string& name = "Nightly") {
        return std::make_unique<EntrySession>(workspace, EntrySession::NewEntry{false, 1, name});
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
    static void Press(QWidget& widget, const char* keys) {
        QTest::keySequence(&widget, QKeySequence(QString::fromUtf8(keys)));
    }
    static void Press(EntryEditor& editor, Box::StandardButton which) {
        QTest::mouseClick(editor.Button(which), Qt::LeftButton);
    }

    TemporaryStore store;
    std::string told;  // messages and questions, each in a line
    std::function<void(const Message&)> show = [this](const Message& m) { told += m.text + '\n'; };
    QMessageBox::StandardButton answer = QMessageBox::Discard;
    const Dialogs dialogs{
        [this](QWidget*, const Question& question) {
            told += question.text.toStdString() + '\n';
            return answer;
        },
        [](QWidget*, const QString&, const QString&, const QStringList& offered, int) { return offered[1]; }};
    Workspace workspace{
        {store.Address(), "tester", [this](const Message& m) { show(m); }, [] { return 46083.0; }}};
    std::vector<QPointer<EntryEditor>> editors;
};

}  // namespace NolSchedCtls::Testing
