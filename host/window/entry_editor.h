// The window of one open entry: six pages, OK, Cancel and Apply.
#pragma once

#include <QDialog>
#include <QDialogButtonBox>
#include <QTabWidget>
#include <QTimer>
#include <functional>
#include <memory>

#include "host/entries/entry_session.h"
#include "host/window/dialogs.h"

class QLineEdit;

namespace NolSchedCtls {

class OutlookLine;
class PageView;

// Deletes itself when it is closed. Nothing that the user entered is thrown away without a question; a save
// that is refused or fails is told, and everything stays as it was entered.
class EntryEditor : public QDialog {
    Q_OBJECT

  public:
    // Loads the session. Throws what EntrySession::Load does.
    EntryEditor(std::unique_ptr<EntrySession> sessionA, Dialogs dialogsA);
    ~EntryEditor() override;

    EntrySession& Session() { return *session; }
    PageView& PageOf(const Page& page) const;
    QPushButton* Button(QDialogButtonBox::StandardButton which) const;
    // Brings the page forward, by its short name or its title.
    void ShowPage(std::string_view pageName);

    // False if a page or the store refused; the user has been told.
    bool Save();
    void accept() override;
    void reject() override { close(); }
    // The line tells by the holidays and settings as they are now, the pickers by the documents.
    void RereadOutlook();
    bool IsUnsaved() const;
    // Shows the entry as others have saved it meanwhile, unless the user has changed it here.
    void FollowStored();

  Q_SIGNALS:
    void Saved(int id);

  protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    void Make();
    void Follow();  // the session
    void MakeHeader();
    std::unique_ptr<QTabWidget> MakePages(EntrySession& of);
    void MakeButtons();
    void ShowState();
    // What `save` does, or the user's way out where another user was faster.
    bool SaveBy(const std::function<EntrySession::SaveResult()>& save);
    bool SettleOvertaken(const QString& text);
    QString DifferencesText() const;
    bool IsNamed();
    void NameAskedPage(Message& message);
    // What the user entered is gone then.
    void Reload();
    bool MayClose();

    std::unique_ptr<EntrySession> session;
    Dialogs dialogs;
    QLineEdit* name = nullptr;
    QTabWidget* pages = nullptr;
    OutlookLine* outlook = nullptr;
    QDialogButtonBox* buttons = nullptr;
    QTimer reloading;  // once the act that asks for it has returned
    std::vector<ScopedConnection> connections;
};

}  // namespace NolSchedCtls
