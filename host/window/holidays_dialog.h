// The days that a store keeps as holidays.
#pragma once

#include "NolSchedCtls/toolkit/ss_date_combo.h"
#include "host/window/rows_dialog.h"

namespace NolSchedCtls {

class DateCombo;

class HolidaysDialog : public RowsDialog {
    Q_OBJECT

  public:
    // Throws StoreError.
    HolidaysDialog(QWidget* parent, Workspace& workspaceA, Dialogs dialogsA);
    ~HolidaysDialog() override;

  private:
    QList<QTreeWidgetItem*> Read() override;
    void Add() override;
    void Delete() override;
    void Import();

    UserControl control;
    SSDateCombo field{control, "day"};
    DateCombo* day = nullptr;
};

}  // namespace NolSchedCtls
