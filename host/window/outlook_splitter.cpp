#include "host/window/outlook_splitter.h"

#include <QAction>

namespace NolSchedCtls {

OutlookSplitter::OutlookSplitter(QAction& shownA, QWidget* parent) : QSplitter(parent), shown(shownA) {
    setChildrenCollapsible(false);
    connect(&shown, &QAction::toggled, this, [this](bool isShown) { widget(1)->setVisible(isShown); });
}

// A list of which less is to be seen is of no use.
bool OutlookSplitter::HasRoom() const {
    constexpr int charactersOfList = 36;
    return width() >= widget(1)->minimumWidth() + fontMetrics().averageCharWidth() * charactersOfList;
}

void OutlookSplitter::resizeEvent(QResizeEvent* event) {
    QSplitter::resizeEvent(event);
    if (HasRoom() == hasRoom) return;
    hasRoom = !hasRoom;
    if (!hasRoom) wasShown = shown.isChecked();
    shown.setChecked(hasRoom && (wasShown || shown.isChecked()));
}

}  // namespace NolSchedCtls
