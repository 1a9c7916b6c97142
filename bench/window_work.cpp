// The main window over a store: loads, filters and sorts as a user makes it, and writes what each took into a
// file, "value name" a line. Beats measure how long the windows stand still, by a watch: waiting counts, too.
#include <sys/resource.h>

#include <QApplication>
#include <QLineEdit>
#include <QTimer>
#include <chrono>
#include <ctime>
#include <fstream>

#include "host/window/appearance.h"
#include "host/window/main_window.h"
#include "host/window/outlook_pane.h"
#include "host/window/qt_text.h"

namespace {

using namespace NolSchedCtls;

double Seconds(clockid_t clock) {
    timespec time{};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

double PeakMegabytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024;
}

// The longest time from one beat to the next.
class Beats {
  public:
    Beats() {
        timer.callOnTimeout([this] { Beat(); });
        timer.start(1);
    }

    double TakeLongest() { return Beat(), std::exchange(longest, 0); }

  private:
    void Beat() {
        const double now = Seconds(CLOCK_MONOTONIC);
        longest = std::max(longest, now - std::exchange(last, now));
    }

    QTimer timer;
    double last = Seconds(CLOCK_MONOTONIC);
    double longest = 0;
};

void WaitWhile(const auto& isBusy) {
    while (isBusy()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void Rest() {
    QTimer timer;
    timer.setSingleShot(true);
    timer.start(300);
    WaitWhile([&timer] { return timer.isActive(); });
}

class Work {
  public:
    Work(Workspace& workspace, const char* file) : window(workspace, UserDialogs()), results(file) {
        list = window.findChild<EntryList*>();
        table = window.findChild<EntryTable*>();
        window.show();
    }

    void Load() {
        WaitWhile([this] { return window.IsLoading(); });
        Tell("load", Seconds(CLOCK_PROCESS_CPUTIME_ID));
        Tell("peak", PeakMegabytes());
        WaitWhile([this] { return window.Pane().IsCounting(); });
        Tell("load gap", beats.TakeLongest() * 1e3);
    }

    void Filter() {
        for (const QString& word : {u"7"_s, u"week"_s, u"77 am"_s}) FilterBy(word);
        Tell("filter", filterTimes / 3 * 1e3);
        FilterBy({});
        Tell("filter gap", beats.TakeLongest() * 1e3);
    }

    void Sort() {
        const double start = Seconds(CLOCK_PROCESS_CPUTIME_ID);
        table->sortByColumn(EntryRow::Name, Qt::AscendingOrder);
        WaitWhile([this] { return list->IsArranging(); });
        Tell("sort", (Seconds(CLOCK_PROCESS_CPUTIME_ID) - start) * 1e3);
        for (const auto column : {EntryRow::State, EntryRow::NextRun}) {
            table->sortByColumn(column, Qt::DescendingOrder);
            WaitWhile([this] { return list->IsArranging(); });
        }
        // Each gives up the one before it.
        for (const auto column : {EntryRow::Name, EntryRow::Group, EntryRow::Id}) {
            table->sortByColumn(column, Qt::AscendingOrder);
            PaintAndSettle();
        }
        WaitWhile([this] { return list->IsArranging(); });
        Rest();
        Tell("sort gap", beats.TakeLongest() * 1e3);
    }

    void Scroll() {
        for (int key = 0; key < 20; ++key) {
            table->setCurrentIndex(list->index(key % 2 == 0 ? list->rowCount() - 1 : 0, EntryRow::Name));
            PaintAndSettle();
        }
        Tell("scroll gap", beats.TakeLongest() * 1e3);
        Tell("last peak", PeakMegabytes());
    }

  private:
    static void PaintAndSettle() {
        for (int turn = 0; turn < 5; ++turn) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

    // From the end of the filter bar's own delay on.
    void FilterBy(const QString& word) {
        auto* const bar = window.findChild<FilterBar*>();
        bar->findChild<QLineEdit*>()->setText(word);
        bool isShown = false;
        const auto shown = QObject::connect(list, &EntryList::Filtered, [&isShown] { isShown = true; });
        const double start = Seconds(CLOCK_PROCESS_CPUTIME_ID);
        Q_EMIT bar->Changed();
        WaitWhile([&isShown] { return !isShown; });
        table->viewport()->repaint();
        filterTimes += Seconds(CLOCK_PROCESS_CPUTIME_ID) - start;
        QObject::disconnect(shown);
        Rest();  // the delay ends, and filters once more
    }

    void Tell(const char* name, double value) { results << value << ' ' << name << '\n'; }

    Beats beats;
    MainWindow window;
    EntryList* list;
    EntryTable* table;
    std::ofstream results;
    double filterTimes = 0;
};

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    SetAppearance(false);
    Workspace workspace({.address = argv[1], .user = {}, .showMessage = {}, .now = {}});
    Work work(workspace, argv[2]);
    work.Load();
    work.Filter();
    work.Sort();
    work.Scroll();
    return 0;
}
