// The command line of `nolsched-editor`.
#pragma once

#include "host/entries/arguments.h"

namespace NolSchedCtls {

struct EditorOptions : HostArguments {
    std::optional<std::int32_t> id;
    std::string screenshots;  // the folder for pictures; empty: the window
    bool isDark = false;
};

// Throws UsageError.
EditorOptions ReadOptions(const std::vector<std::string>& given);

}  // namespace NolSchedCtls
