#include "host/window/entry_table.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QSettings>
#include <QShortcut>
#include <QStyledItemDelegate>
#include <QVBoxLayout>
#include <algorithm>
#include <unordered_set>
#include <utility>

#include "host/window/accessibility.h"
#include "host/window/qt_text.h"

namespace NolSchedCtls {

namespace {

// Of their number: another version of the program may have had others.
QString ColumnsKey() { return u"listColumns%1"_s.arg(int{EntryRow::columnCount}); }

// The choice is a whole row; no cell of it is marked on its own.
class RowDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        option->state.setFlag(QStyle::State_HasFocus, false);
    }
};

}  // namespace

EntryTable::EntryTable(EntryList& listA, QWidget* parent) : QTableView(parent), list(listA) {
    setModel(&list);
    setItemDelegate(new RowDelegate(this));
    Explain(*this, u"Entries"_s, u"The entries; Enter opens the chosen one."_s);
    setContextMenuPolicy(Qt::ActionsContextMenu);
    const auto* const menuKey = new QShortcut(QKeySequence(u"Shift+F10"_s), this);
    connect(menuKey, &QShortcut::activated, this, &EntryTable::OfferActs);
    SetLook();
    MakeHeader();
    MakeHint();
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        if (selectionModel()->hasSelection()) isNoneChosen = false;
    });
}

void EntryTable::SetLook() {
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setAlternatingRowColors(true);
    setShowGrid(false);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setFrameShape(NoFrame);
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 9 / 5);
}

void EntryTable::MakeHeader() {
    QHeaderView* const header = horizontalHeader();
    header->setHighlightSections(false);
    header->setMinimumHeight(verticalHeader()->defaultSectionSize());
    header->setSortIndicator(EntryRow::Id, Qt::AscendingOrder);
    const int character = fontMetrics().averageCharWidth();
    constexpr int widths[] = {11, 22, 17, 48, 23, 20, 12, 22, 24, 14, 14};
    for (int column = 0; column < EntryRow::Saved; ++column)
        setColumnWidth(column, character * widths[column]);
    header->setStretchLastSection(true);
    setSortingEnabled(true);
    header->setContextMenuPolicy(Qt::CustomContextMenu);
}

// As the menu key does, which not every keyboard has.
void EntryTable::OfferActs() {
    const QPoint at = viewport()->mapToGlobal(visualRect(currentIndex()).center());
    QContextMenuEvent event(QContextMenuEvent::Keyboard, mapFromGlobal(at), at);
    QCoreApplication::sendEvent(this, &event);
}

// The name stays: without any column no row could be told from another.
void EntryTable::FillColumns(QMenu& menu) {
    menu.clear();
    for (int column = 0; column < EntryRow::columnCount; ++column) {
        if (column == EntryRow::Name) continue;
        auto* const action =
            menu.addAction(list.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString());
        action->setCheckable(true);
        action->setChecked(!isColumnHidden(column));
        connect(action, &QAction::toggled, this,
                [this, column](bool isShown) { setColumnHidden(column, !isShown); });
    }
}

void EntryTable::AddMenus(QMenu& menu) {
    QMenu* const order = menu.addMenu(u"&Sort by"_s);
    for (int column = 0; column < EntryRow::columnCount; ++column)
        connect(order->addAction(list.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString()),
                &QAction::triggered, this, [this, column] {
                    const auto* const header = horizontalHeader();
                    const bool isTurned = header->sortIndicatorSection() == column &&
                                          header->sortIndicatorOrder() == Qt::AscendingOrder;
                    sortByColumn(column, isTurned ? Qt::DescendingOrder : Qt::AscendingOrder);
                });
    QMenu* const columns = menu.addMenu(u"&Columns"_s);
    connect(columns, &QMenu::aboutToShow, this, [this, columns] { FillColumns(*columns); });
    connect(horizontalHeader(), &QWidget::customContextMenuRequested, columns,
            [this, columns](const QPoint& at) { columns->popup(horizontalHeader()->mapToGlobal(at)); });
}

void EntryTable::MakeHint() {
    hint = new QLabel(this);
    hint->setAlignment(Qt::AlignCenter);
    hint->setEnabled(false);
    hint->setWordWrap(true);
    auto* const over = new QVBoxLayout(this);
    over->addWidget(hint);
    hint->setAttribute(Qt::WA_TransparentForMouseEvents);
}

void EntryTable::ShowHint(const QString& text) {
    hint->setVisible(!text.isEmpty());
    hint->setText(text);
    Describe(*this, text.isEmpty() ? whatsThis() : text);
}

std::vector<int> EntryTable::ChosenPlaces() const {
    std::vector<int> places;
    for (const QItemSelectionRange& range : selectionModel()->selection())
        for (int place = range.top(); place <= range.bottom(); ++place) places.push_back(place);
    std::sort(places.begin(), places.end());
    places.erase(std::unique(places.begin(), places.end()), places.end());
    return places;
}

// Many rows are chosen in one piece.
EntryRows EntryTable::ChosenRows() const {
    const QItemSelection selection = selectionModel()->selection();
    if (selection.size() == 1) return list.Shown().mid(selection.front().top(), selection.front().height());
    EntryRows rows;
    for (const int place : ChosenPlaces()) rows.append(list.RowAt(place));
    return rows;
}

std::int32_t EntryTable::OnlyId() const {
    const QItemSelection chosen = selectionModel()->selection();
    if (chosen.size() != 1 || chosen.front().height() != 1) return 0;
    const std::int64_t id = list.IdAt(chosen.front().top());
    return std::in_range<std::int32_t>(id) ? static_cast<std::int32_t>(id) : 0;
}

std::int64_t EntryTable::CurrentId() const {
    const QModelIndex current = currentIndex();
    return current.isValid() ? list.IdAt(current.row()) : 0;
}

// The table's own way obeys the keys that are held down.
void EntryTable::Choose(std::int64_t id) {
    using Model = QItemSelectionModel;
    if (const int place = list.PlaceOf(id); place >= 0)
        selectionModel()->setCurrentIndex(list.index(place, EntryRow::Name),
                                          Model::ClearAndSelect | Model::Rows);
}

void EntryTable::ChooseOrFirst(std::int64_t id) {
    const bool isNoneWanted = isNoneChosen;
    Choose(list.PlaceOf(id) < 0 && list.rowCount() > 0 ? list.IdAt(0) : id);
    if (isNoneWanted) ChooseNone();
}

std::vector<std::int64_t> EntryTable::ChosenIds() const {
    std::vector<std::int64_t> ids;
    for (const int place : ChosenPlaces()) ids.push_back(list.IdAt(place));
    return ids;
}

void EntryTable::ChooseAll(const std::vector<std::int64_t>& ids) {
    const std::unordered_set<std::int64_t> wanted(ids.begin(), ids.end());
    QItemSelection chosen;
    for (int place = 0; place < list.rowCount(); ++place) {
        if (!wanted.contains(list.IdAt(place))) continue;
        int last = place;
        while (last + 1 < list.rowCount() && wanted.contains(list.IdAt(last + 1))) ++last;
        chosen.append({list.index(place, 0), list.index(last, EntryRow::columnCount - 1)});
        place = last;
    }
    using Model = QItemSelectionModel;
    if (chosen.isEmpty()) return;
    selectionModel()->setCurrentIndex(list.index(chosen.front().top(), EntryRow::Name), Model::NoUpdate);
    selectionModel()->select(chosen, Model::ClearAndSelect);
}

void EntryTable::ChooseNone() {
    clearSelection();
    isNoneChosen = true;
}

QString EntryTable::ChosenText() const {
    std::vector<int> shown;
    for (int column = 0; column < EntryRow::columnCount; ++column)
        if (!isColumnHidden(column)) shown.push_back(column);
    QString text;
    const auto add = [&](const auto& textOf) {
        for (const int column : shown) text += textOf(column) + (column == shown.back() ? u'\n' : u'\t');
    };
    add(HeadingOf);
    for (const auto& row : ChosenRows()) add([&row](int column) { return row->Text(column); });
    return text;
}

void EntryTable::RestoreColumns(const QSettings& settings) {
    horizontalHeader()->restoreState(settings.value(ColumnsKey()).toByteArray());
}

void EntryTable::SaveColumns(QSettings& settings) const {
    settings.setValue(ColumnsKey(), horizontalHeader()->saveState());
}

}  // namespace NolSchedCtls
