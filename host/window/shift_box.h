// Asks by how much a start is to be shifted.
#pragma once

#include <optional>

#include <QString>

#include "NolSchedCtls/base/date_time.h"

class QWidget;

namespace NolSchedCtls {

// In days and parts of a day; nothing if the user has changed their mind, or for no shift at all.
std::optional<DateTime> AskShift(QWidget* parent, const QString& whose);

}  // namespace NolSchedCtls
