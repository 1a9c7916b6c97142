// The command line of `nolsched-editor`.
#pragma once

#include "host/entries/arguments.h"

namespace NolSchedCtls {

struct EditorOptions : HostArguments {
    std::optional<std::int32_t> id;
    std::string screenshots;  // the folder for pictures; empty: the window
    bool isDark = false;
    std::string style;              // Qt's name of one; empty: the window's own
    std::vector<std::string> ofQt;  // options and their texts, for QApplication
};

// Throws UsageError.
EditorOptions ReadOptions(std::vector<std::string> given);

}  // namespace NolSchedCtls
