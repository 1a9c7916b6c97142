// A store, its workspace, and editors over it whose widgets a test drives like a user.
#pragma once

#include <gtest/gtest.h>

#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <deque>

#include "host/window/entry_editor.h"
#include "host/window/page_view.h"
#include "host/window/qt_text.h"
#include "tests/host/store.h"

namespace NolSchedCtls::Testing {

inline constexpr DateTime today = 46083.0;  // Monday, March 02, 2026

class Windows : public testing::Test {
  protected:
    Windows()
        : workspace(
              {store.Address(), "tester", [this](const Message& m) { show(m); }, [] { return today; }}) {}

    std::unique_ptr<EntrySession> NewSession() {
        return std::make_unique<EntrySession>(workspace, EntrySession::NewEntry{false, 1, "Nightly"});
    }
    std::unique_ptr<EntrySession> StoredSession(std::int32_t id = 1) {
        return std::make_unique<EntrySession>(workspace, id);
    }
    // Shown and active. Deleted with the test, unless it was closed before.
    EntryEditor& Open(std::unique_ptr<EntrySession> session) {
        const Dialogs dialogs{[this](QWidget*, const Question& question) {
                                  asked.append(question.text);
                                  return answer;
                              },
                              {}};
        auto* const editor = new EntryEditor(std::move(session), dialogs);
        editors.push_back(editor);
        Activate(*editor);
        return *editor;
    }
    static void Activate(QWidget& window) {
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    // By "page.field"; the page is brought to the front.
    template <class Widget = QWidget>
    static Widget& Find(EntryEditor& editor, const std::string& name) {
        const std::size_t dot = name.find('.');
        editor.ShowPage(name.substr(0, dot));
        const Page& page = *editor.Session().FindPage(name.substr(0, dot));
        return *dynamic_cast<Widget*>(
            editor.PageOf(page).WidgetOf(page.tab->Field<ViewField>(name.substr(dot + 1))));
    }
    static void Press(EntryEditor& editor, QDialogButtonBox::StandardButton which) {
        QTest::mouseClick(editor.Button(which), Qt::LeftButton);
    }
    static void Type(EntryEditor& editor, const std::string& name, const char* keys) {
        QWidget& widget = Find(editor, name);
        widget.setFocus();
        QTest::keyClicks(&widget, QString::fromUtf8(keys));
    }
    static void Press(EntryEditor& editor, const std::string& name, Qt::Key key) {
        QWidget& widget = Find(editor, name);
        widget.setFocus();
        QTest::keyClick(&widget, key);
    }

    TemporaryStore store;
    QStringList messages;
    std::function<void(const Message&)> show = [this](const Message& m) { messages.append(ToQt(m.text)); };
    QStringList asked;
    QMessageBox::StandardButton answer = QMessageBox::Discard;
    Workspace workspace;

  private:
    struct Closer {
        ~Closer() {
            for (const auto& editor : list) delete editor;
        }
        std::deque<QPointer<EntryEditor>> list;
    };
    Closer closer;
    std::deque<QPointer<EntryEditor>>& editors = closer.list;
};

}  // namespace NolSchedCtls::Testing
