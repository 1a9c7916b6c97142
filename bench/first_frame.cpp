// Preloaded into a Qt program: ends it as soon as its first frame is painted.
#include <QApplication>
#include <QEvent>
#include <QWidget>
#include <cstdlib>

namespace {

class FirstFrame : public QObject {
  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        const auto* widget = qobject_cast<QWidget*>(watched);  // none for the window below the widgets
        if (event->type() == QEvent::Paint && widget != nullptr && widget->isWindow())
            QMetaObject::invokeMethod(
                qApp, [] { std::_Exit(0); }, Qt::QueuedConnection);
        return false;
    }
};

void EndAtFirstFrame() { qApp->installEventFilter(new FirstFrame); }

}  // namespace

Q_COREAPP_STARTUP_FUNCTION(EndAtFirstFrame)
