#include "host/window/calendar_interface.h"

#include <QAccessibleWidget>
#include <QCalendarWidget>
#include <QHash>

#include "host/window/qt_text.h"
#include "host/window/run_calendar.h"
#include "host/window/run_text.h"

namespace NolSchedCtls {

namespace {

const QCalendarWidget& CalendarOf(const QTableView& view) {
    return *qobject_cast<const QCalendarWidget*>(view.parentWidget());
}

// One place of the grid, which begins with the names of the weekdays. The headers, which no calendar shows,
// count as places before its first row and column.
class PlaceInterface : public QAccessibleInterface {
  public:
    PlaceInterface(QTableView& viewA, int rowA, int columnA, QDate dayA)
        : view(viewA), row(rowA), column(columnA), day(dayA) {}

    bool isValid() const override { return true; }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(&view); }
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
    QAccessible::Role role() const override { return QAccessible::ListItem; }

    QString text(QAccessible::Text kind) const override {
        if (kind != QAccessible::Name || !IsShown()) return {};
        if (!day.isValid()) return view.model()->index(row, column).data().toString();
        const QString date = CalendarOf(view).locale().toString(day, QLocale::LongFormat);
        const auto* const runs = dynamic_cast<const RunCalendar*>(&CalendarOf(view));
        return runs == nullptr ? date : date + u": "_s + CountText(runs->CountOf(day));
    }
    QRect rect() const override {
        if (!IsShown()) return {};
        const QRect place = view.visualRect(view.model()->index(row, column));
        return {view.viewport()->mapToGlobal(place.topLeft()), place.size()};
    }
    QAccessible::State state() const override {
        QAccessible::State state;
        const bool isChosen = day.isValid() && day == CalendarOf(view).selectedDate();
        state.invisible = IsShown() ? 0 : 1;
        state.focusable = state.selectable = day.isValid() ? 1 : 0;
        state.selected = isChosen ? 1 : 0;
        state.focused = isChosen && view.hasFocus() ? 1 : 0;
        return state;
    }

  private:
    bool IsShown() const { return row >= 0 && column >= 0; }

    QTableView& view;
    int row;
    int column;
    QDate day;  // none of a weekday's name
};

class CalendarInterface : public QAccessibleWidget {
  public:
    explicit CalendarInterface(QTableView& viewA)
        : QAccessibleWidget(&viewA, QAccessible::List), view(viewA) {}
    ~CalendarInterface() override { Forget(); }

    int childCount() const override { return (view.model()->rowCount() + 1) * Columns(); }
    // As the view counts them where it tells of the current one.
    QAccessibleInterface* child(int index) const override {
        if (index < 0 || index >= childCount()) return nullptr;
        ForgetOthers();
        if (!places.contains(index))  // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks): owned there
            places[index] = QAccessible::registerAccessibleInterface(MakePlace(index));
        return QAccessible::accessibleInterface(places[index]);
    }
    int indexOfChild(const QAccessibleInterface* sought) const override {
        for (auto place = places.cbegin(); place != places.cend(); ++place)
            if (QAccessible::accessibleInterface(place.value()) == sought) return place.key();
        return -1;
    }
    QAccessibleInterface* focusChild() const override {
        for (int index = 0; index < childCount(); ++index)
            if (child(index)->state().focused) return child(index);
        return nullptr;
    }

  private:
    int Columns() const { return view.model()->columnCount() + 1; }
    QAccessibleInterface* MakePlace(int index) const {
        const int row = index / Columns() - 1;
        const int column = index % Columns() - 1;
        const bool isDay = row > 0 && column >= 0;
        return new PlaceInterface(view, row, column,
                                  isDay ? grid.first.addDays((row - 1) * 7 + column) : QDate());
    }
    void ForgetOthers() const {
        const auto shown = std::pair(FirstShown(CalendarOf(view)), Columns());
        if (std::exchange(grid, shown) != shown) Forget();
    }
    void Forget() const {
        for (const QAccessible::Id id : std::as_const(places)) QAccessible::deleteAccessibleInterface(id);
        places.clear();
    }

    QTableView& view;
    mutable std::pair<QDate, int> grid;  // that the places are of: its first day, and its columns
    mutable QHash<int, QAccessible::Id> places;
};

}  // namespace

QAccessibleInterface* MakeCalendarInterface(QTableView& view) { return new CalendarInterface(view); }

}  // namespace NolSchedCtls
