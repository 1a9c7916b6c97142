// The row of the schedule page that reads as a sentence, its widgets flush by the fields' Left and Width.
// Left counts from where reading begins: the other edge, where that is from right to left.
#pragma once

#include <QWidget>
#include <vector>

#include "NolSchedCtls/toolkit/view_field.h"

namespace NolSchedCtls {

// How many pixels make a twip at the widget's font and style, so that no text of the row is cut in any mode;
// and how wide the row is then in the widest mode.
struct RowScale {
    double pixelsPerTwip = 0;
    int width = 0;

    int Pixels(float twips) const { return qRound(pixelsPerTwip * static_cast<double>(twips)); }
};
RowScale RowScaleOf(const QWidget& widget);

class SentenceRow : public QWidget {
  public:
    SentenceRow(UserControl& control, QWidget* parent);

    // The widget, which becomes a child, stands where the field says, and moves when the field does.
    void Add(ViewField& field, QWidget* widget);
    const RowScale& Scale() const { return scale; }
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    struct Place {
        const ViewField* field;
        QWidget* widget;
    };
    void Put(const Place& place) const;

    RowScale scale;
    std::vector<Place> places;
    ScopedConnection fieldChanged;
};

}  // namespace NolSchedCtls
