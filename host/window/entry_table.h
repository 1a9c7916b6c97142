// The list of the entries as it is seen, and which of its rows are chosen.
#pragma once

#include <QTableView>

#include "host/window/entry_list.h"

class QLabel;
class QMenu;
class QSettings;

namespace NolSchedCtls {

class EntryTable : public QTableView {
    Q_OBJECT

  public:
    EntryTable(EntryList& listA, QWidget* parent);

    // In the order of the list.
    EntryRows ChosenRows() const;
    // The one that is chosen; 0 for none, for several, and for an id that no record can have.
    std::int32_t OnlyId() const;
    std::int64_t CurrentId() const;  // 0 for none
    void Choose(std::int64_t id);
    void ChooseOrFirst(std::int64_t id);  // the first one if that one is not shown
    std::vector<std::int64_t> ChosenIds() const;
    // Those of them that are shown; the choice stays as it is where none is.
    void ChooseAll(const std::vector<std::int64_t>& ids);
    void ChooseNone();
    // In the middle of the empty list; nothing for an empty text.
    void ShowHint(const QString& text);
    // What is seen of the chosen rows under the headings, for other programs.
    QString ChosenText() const;

    // Menus of what the headings offer to the mouse: the order, and which columns are shown.
    void AddMenus(QMenu& menu);
    void RestoreColumns(const QSettings& settings);
    void SaveColumns(QSettings& settings) const;

  private:
    void SetLook();
    void MakeHeader();
    void MakeHint();
    void OfferActs();
    void FillColumns(QMenu& menu);
    std::vector<int> ChosenPlaces() const;

    EntryList& list;
    QLabel* hint = nullptr;
    bool isNoneChosen = false;  // by the user's wish
};

}  // namespace NolSchedCtls
