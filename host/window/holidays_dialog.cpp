#include "host/window/holidays_dialog.h"

#include <QFileDialog>
#include <QFormLayout>
#include <QLineEdit>
#include <QTreeWidget>

#include "NolSchedCtls/toolkit/date_text.h"
#include "host/entries/holiday_file.h"
#include "host/window/date_combo.h"
#include "host/window/qt_text.h"

namespace NolSchedCtls {

namespace {

// A day by its weekday and date; what is none as it is stored.
QTreeWidgetItem* ItemOf(const StoredHoliday& holiday) {
    const QString day = holiday.date ? ToQt(DateText(*holiday.date, longDateFormat))
                                     : u"%1 (no day)"_s.arg(ToVisible(holiday.day));
    auto* const item = new QTreeWidgetItem({day, ToVisible(holiday.name)});
    item->setData(0, Qt::UserRole, ToQt(holiday.day));
    return item;
}

}  // namespace

HolidaysDialog::HolidaysDialog(QWidget* parent, Workspace& workspaceA, Dialogs dialogsA)
    : RowsDialog(parent, workspaceA, std::move(dialogsA)) {
    setWindowTitle(u"Holidays"_s);
    rows->setSelectionMode(QTreeWidget::ExtendedSelection);
    field.SetDisplayFormat(longDateFormat);
    Form().addRow(u"&Day:"_s, day = new DateCombo(field, this));
    AddButton(u"&Import..."_s, false, [this] { Import(); });
    Finish({u"Day"_s, u"Name"_s});
    day->setFocus();
}

// The widget goes before its field.
HolidaysDialog::~HolidaysDialog() { delete day; }

QList<QTreeWidgetItem*> HolidaysDialog::Read() {
    QList<QTreeWidgetItem*> items;
    for (const StoredHoliday& holiday : workspace.Holidays().Stored()) items.append(ItemOf(holiday));
    return items;
}

void HolidaysDialog::Add() {
    day->Commit();
    const Holiday holiday{field.DateValue(), name->text().toStdString()};
    const auto add = [&] {
        if (!field.Refusal().empty()) throw RequestError(field.Refusal());
        if (holiday.name.empty()) throw RequestError("A holiday takes a name that is not empty.");
        workspace.Holidays().Add(holiday);
    };
    if (Do(add, ToQt(DateText(holiday.day, longDateFormat)))) name->clear();
}

void HolidaysDialog::Delete() {
    const auto chosen = Chosen();
    const QString what = chosen.size() == 1 ? u"the holiday \"%1\""_s.arg(chosen.front()->text(1))
                                            : u"%1 holidays"_s.arg(QLocale().toString(chosen.size()));
    if (!Asks(u"Delete"_s, u"Do you want to delete %1?"_s.arg(what))) return;
    Do([&] {
        Transaction transaction(workspace.Store());
        for (const QTreeWidgetItem* const item : chosen)
            workspace.Holidays().Delete(item->data(0, Qt::UserRole).toString().toStdString());
        transaction.Commit();
    });
}

void HolidaysDialog::Import() {
    const QString file =
        QFileDialog::getOpenFileName(this, u"Import Holidays"_s, {}, u"Calendars (*.ics);;All files (*)"_s,
                                     nullptr, QFileDialog::DontUseNativeDialog);
    if (file.isEmpty()) return;
    QString result;
    const auto import = [&] {
        const auto [days, passedOver] = ReadHolidays(file.toStdString());
        const int added = workspace.Holidays().Import(days);
        result = u"%1 new, %2 there already, %3 events passed over."_s.arg(added)
                     .arg(static_cast<int>(days.size()) - added)
                     .arg(passedOver);
    };
    if (Do(import)) Tell(result);
}

}  // namespace NolSchedCtls
