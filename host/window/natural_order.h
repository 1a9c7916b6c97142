// The order in which people look texts up.
#pragma once

#include <QStringView>

namespace NolSchedCtls {

// Below, at or above zero: numbers by their value ("every 2" before "every 10"), letters without regard to
// case.
int CompareNaturally(QStringView left, QStringView right);

}  // namespace NolSchedCtls
