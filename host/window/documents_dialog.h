// The documents of one type that a store keeps: its study groups, or its scenarios.
#pragma once

#include "NolSchedCtls/services/caddis.h"
#include "host/window/rows_dialog.h"

namespace NolSchedCtls {

class DocumentsDialog : public RowsDialog {
    Q_OBJECT

  public:
    // What one of them is called: "study group". Throws StoreError.
    DocumentsDialog(QWidget* parent, Workspace& workspaceA, Dialogs dialogsA, CaddisDocumentType typeA,
                    QString wordA);

  private:
    QList<QTreeWidgetItem*> Read() override;
    void Add() override;
    void Rename();
    void Delete() override;
    bool DeletesUsed(const std::string& document, const std::vector<std::string>& users);

    CaddisDocumentType type;
    QString word;
};

}  // namespace NolSchedCtls
