// What chooses the entries that the list shows: words, and a state.
#pragma once

#include <QTimer>
#include <QWidget>

class QComboBox;
class QLineEdit;

namespace NolSchedCtls {

class FilterBar : public QWidget {
    Q_OBJECT

  public:
    explicit FilterBar(QWidget* parent);

    QString Words() const;
    QString State() const;  // empty for any
    void TakeFocus();

  Q_SIGNALS:
    // A moment after the last key.
    void Changed();
    // The user goes on to the entries.
    void Accepted();

  private:
    QLineEdit* words;
    QComboBox* state;
    QTimer delay;
};

}  // namespace NolSchedCtls
