// The command line of `nolsched-editor`.
#pragma once

#include <QString>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "NolSchedCtls/base/date_time.h"

namespace NolSchedCtls {

struct EditorOptions {
    std::string address = "nolsched.db";
    std::function<DateTime()> now;  // empty for the system's clock
    std::optional<std::int32_t> id;
    QString screenshots;  // empty: the window
    bool isDark = false;
    bool wantsHelp = false;
    bool wantsVersion = false;
};

// Raises NolSchedError that names what is wrong.
EditorOptions ReadOptions(const std::vector<std::string>& arguments);

extern const char* const editorUsage;

}  // namespace NolSchedCtls
