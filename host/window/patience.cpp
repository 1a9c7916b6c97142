#include "host/window/patience.h"

#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>
#include <utility>

#include "host/window/qt_text.h"

namespace NolSchedCtls {

namespace {

using namespace std::chrono_literals;

// Stays until the waiting ends: the store may need a while to give up, and cannot in the middle of a commit.
class WaitingBox : public QDialog {
  public:
    WaitingBox(QWidget* parent, bool& isGivenUpA) : QDialog(parent), isGivenUp(isGivenUpA) {
        setWindowTitle(u"Schedule Entries"_s);
        setAttribute(Qt::WA_ShowWithoutActivating);  // what is typed meanwhile is for the window behind it
        auto* const column = new QVBoxLayout(this);
        column->addWidget(new QLabel(u"Waiting for the store"_s, this));
        buttons = new QDialogButtonBox(this);
        buttons->addButton(u"Cancel"_s, QDialogButtonBox::RejectRole);
        connect(buttons, &QDialogButtonBox::rejected, this, &WaitingBox::reject);
        column->addWidget(buttons);
    }
    void reject() override {
        isGivenUp = true;
        buttons->setEnabled(false);
    }

  private:
    QDialogButtonBox* buttons;
    bool& isGivenUp;
};

}  // namespace

Patience::Patience(Database& databaseA) : database(databaseA) {
    database.onWait = [this](std::chrono::milliseconds waited) { return GoesOn(waited); };
    ended = database.WaitEnded.Connect([this] { End(); });
}

Patience::~Patience() { database.onWait = nullptr; }

bool Patience::GoesOn(std::chrono::milliseconds waited) {
    if (waited < (isShort ? 100ms : 500ms)) return true;
    if (!std::exchange(isWaiting, true)) {
        isGivenUp = false;
        qApp->installEventFilter(this);
        if (!isShort) ShowBox();
    }
    QCoreApplication::processEvents(isShort ? QEventLoop::ExcludeUserInputEvents : QEventLoop::AllEvents);
    return isShort ? waited < 1s : !isGivenUp;
}

void Patience::ShowBox() {
    box = std::make_unique<WaitingBox>(QApplication::activeWindow(), isGivenUp);
    box->show();
}

void Patience::End() {
    isWaiting = false;
    qApp->removeEventFilter(this);
    box.reset();
    for (auto& [target, key] : std::exchange(heldKeys, {}))
        if (target) QCoreApplication::postEvent(target, key.release());
}

// Escape is the box's.
bool Patience::HoldKey(QObject& target, const QEvent& event) {
    if (event.type() != QEvent::KeyPress && event.type() != QEvent::KeyRelease) return false;
    const bool isEscape = static_cast<const QKeyEvent&>(event).key() == Qt::Key_Escape;
    if (isEscape && box)
        box->reject();
    else
        heldKeys.emplace_back(&target, event.clone());
    return true;
}

// No timer of a widget either: a button that is pressed by its key clicks by one. Keys come again afterwards.
bool Patience::eventFilter(QObject* target, QEvent* event) {
    const auto* const widget = qobject_cast<QWidget*>(target);
    const bool isOfBox = widget != nullptr && widget->window() == box.get();
    if (event->type() == QEvent::Timer)
        return qobject_cast<QTimer*>(target) != nullptr || (widget != nullptr && !isOfBox);
    if (widget != nullptr && !isOfBox && HoldKey(*target, *event)) return true;
    const bool isAct = event->isInputEvent() || event->type() == QEvent::Close ||
                       event->type() == QEvent::Shortcut || event->type() == QEvent::Quit;
    if (!isAct || isOfBox || target->isWindowType()) return false;
    event->ignore();
    return true;
}

}  // namespace NolSchedCtls
