// A line with two arrows, for what can be counted up and down.
#pragma once

#include <QAbstractSpinBox>
#include <QLineEdit>
#include <functional>

namespace NolSchedCtls {

// The arrows, the wheel and the keys Up, Down, Page Up and Page Down step. The line is the box's own.
class StepBox : public QAbstractSpinBox {
  public:
    StepBox(QLineEdit* line, std::function<void(int steps)> stepA, QWidget* parent)
        : QAbstractSpinBox(parent), step(std::move(stepA)) {
        setLineEdit(line);
        setAccelerated(true);
    }

    QLineEdit& Line() const { return *lineEdit(); }
    void stepBy(int steps) override { step(steps); }

  protected:
    StepEnabled stepEnabled() const override {
        return isReadOnly() ? StepNone : StepEnabled(StepUpEnabled | StepDownEnabled);
    }

  private:
    std::function<void(int)> step;
};

}  // namespace NolSchedCtls
