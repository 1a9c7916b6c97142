// How the whole application looks: one style on every desktop.
#pragma once

#include <QSize>

class QWidget;

namespace NolSchedCtls {

// Call once, after the making of the application.
void SetAppearance(bool isDark);

// Resizes the window as wanted, or as the screen lets it.
void FitToScreen(QWidget& window, QSize wanted);

}  // namespace NolSchedCtls
