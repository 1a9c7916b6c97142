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
    constexpr int widths[] = {8, 22, 17, 48, 23, 20, 12, 22, 24, 14, 14};
    for (int column = 0; column < EntryRow::Saved; ++column)
        setColumnWidth(column, character * widths[column]);
    header->setStretchLastSection(true);
    setSortingEnabled(true);
    header->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(header, &QWidget::customContextMenuRequested, this, &EntryTable::OfferColumns);
}

// As the menu key does, which not every keyboard has.
void EntryTable::OfferActs() {
    const QPoint at = viewport()->mapToGlobal(visualRect(currentIndex()).center());
    QContextMenuEvent event(QContextMenuEvent::Keyboard, mapFromGlobal(at), at);
    QCoreApplication::sendEvent(this, &event);
}

// The name stays: without any column no row could be told from another.
void EntryTable::OfferColumns(const QPoint& at) {
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (int column = 0; column < EntryRow::columnCount; ++column) {
        if (column == EntryRow::Name) continue;
        auto* const action =
            menu->addAction(list.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString());
        action->setCheckable(true);
        action->setChecked(!isColumnHidden(column));
        connect(action, &QAction::toggled, this,
                [this, column](bool isShown) { setColumnHidden(column, !isShown); });
    }
    menu->popup(horizontalHeader()->mapToGlobal(at));
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

EntryRows EntryTable::ChosenRows() const {
    EntryRows rows;
    for (const int place : ChosenPlaces()) rows.push_back(list.RowAt(place));
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

void EntryTable::ChooseNone() {
    clearSelection();
    isNoneChosen = true;
}

QString EntryTable::ChosenText() const {
    std::vector<int> shown;
    for (int column = 0; column < EntryRow::columnCount; ++column)
        if (!isColumnHidden(column)) shown.push_back(column);
    const auto line = [&shown](const auto& textOf) {
        QStringList texts;
        for (const int column : shown) texts.append(textOf(column));
        return texts.join(u'\t') + u'\n';
    };
    QString text = line(
        [this](int column) { return list.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString(); });
    for (const auto& row : ChosenRows())
        text += line([&row](int column) { return row->texts[static_cast<std::size_t>(column)]; });
    return text;
}

void EntryTable::RestoreColumns(const QSettings& settings) {
    horizontalHeader()->restoreState(settings.value(ColumnsKey()).toByteArray());
}

void EntryTable::SaveColumns(QSettings& settings) const {
    settings.setValue(ColumnsKey(), horizontalHeader()->saveState());
}

}  // namespace NolSchedCtls
