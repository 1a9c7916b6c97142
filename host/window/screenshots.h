// Pictures of the window, for documents and for a look without a display.
#pragma once

#include <QString>

#include "host/entries/workspace.h"

namespace NolSchedCtls {

// Writes list.png and a picture of each page in each state worth one. Nothing in the store changes. Throws
// NolSchedError for a file that cannot be written, which then stands as it was.
void WriteScreenshots(Workspace& workspace, const QString& folder);
// Writes a picture of each page of a stored entry. Throws RequestError, too.
void WriteScreenshots(Workspace& workspace, const QString& folder, std::int32_t id);

}  // namespace NolSchedCtls
