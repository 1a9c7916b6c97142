// Pictures of the window, for documents and for a look without a display.
#pragma once

#include <QString>

#include "host/entries/workspace.h"

namespace NolSchedCtls {

// Writes list.png and a picture of each page in each state worth one. Nothing in the store changes. Raises
// NolSchedError for a file that cannot be written.
void WriteScreenshots(Workspace& workspace, const QString& folder);

}  // namespace NolSchedCtls
