// Lets the user choose a study group.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "host/window/dialogs.h"

namespace NolSchedCtls {

struct GroupChoice {
    std::int32_t id = 0;
    std::string name;
};

// Nothing if the user has changed their mind. Throws RequestError where there is none, and StoreError.
std::optional<GroupChoice> ChooseGroup(QWidget* parent, const Dialogs& dialogs, const QString& title,
                                       const QString& label, const QString& current = {});

}  // namespace NolSchedCtls
