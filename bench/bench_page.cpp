// The schedule page in a window, beside the same page written by hand.
#include <QApplication>
#include <QScrollArea>

#include "NolSchedCtls/tabs/schedule/nol_schedule_tab.h"
#include "bench/claims.h"
#include "bench/hand_page.h"
#include "bench/open_entry.h"
#include "host/window/appearance.h"
#include "host/window/page_view.h"

namespace {

using namespace NolSchedCtls;
using namespace NolSchedCtls::Bench;

constexpr int weekly = 3;
constexpr int monthly = 4;

struct FieldPage {
    FieldPage() {
        tab.LoadData(StoredRecord(), "", std::make_shared<CPaviseNotify>());
        page = std::make_unique<PageView>(tab, nullptr);
        period = qobject_cast<QComboBox*>(page->WidgetOf(tab.cboPeriod));
    }
    QWidget& Page() { return *page; }

    XNolScheduleTab tab;
    std::unique_ptr<PageView> page;
    QComboBox* period = nullptr;
};

struct WrittenPage {
    QWidget& Page() { return page; }

    HandPage page;
    QComboBox* period = page.period;
};

// Scrolls on a small screen, as ours does: a third of the time goes into Qt's area. To switch the mode there
// takes Qt three times as long, so that row has the page without it.
struct ScrolledPage {
    ScrolledPage() {
        area.setWidgetResizable(true);
        area.setFrameShape(QFrame::NoFrame);
        area.setWidget(new HandPage);
    }
    QWidget& Page() { return area; }

    QScrollArea area;
};

void Show(QWidget& page) {
    page.show();
    QApplication::processEvents();
}

// As a user does: the list's own signals follow each other in this order.
void Choose(QComboBox& list, int index) {
    list.setCurrentIndex(index);
    Q_EMIT list.activated(index);
    QApplication::processEvents();
}

template <class Built, class Opened>
void MeasurePage(const std::string& name) {
    Measure("build " + name, [] {
        Built opened;
        Show(opened.Page());
    });
    const auto opened = std::make_shared<Opened>();
    Show(opened->Page());
    Measure("switch " + name, [opened] {
        Choose(*opened->period, monthly);
        Choose(*opened->period, weekly);
    });
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    SetAppearance(false);
    UseMemory();
    MeasurePage<FieldPage, FieldPage>("fields");
    MeasurePage<ScrolledPage, WrittenPage>("hand");
    return RunClaims(
        argc, argv,
        {{"schedule page: build and show / written by hand", "build fields", "build hand", 1.2},
         {"schedule page: switch the mode, there and back / by hand", "switch fields", "switch hand", 1.2}});
}
