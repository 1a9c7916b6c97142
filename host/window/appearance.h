// How the whole application looks: one style on every desktop.
#pragma once

namespace NolSchedCtls {

// Call once, after the making of the application.
void SetAppearance(bool isDark);

}  // namespace NolSchedCtls
