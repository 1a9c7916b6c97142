#include "host/window/options.h"

#include <CLI/CLI.hpp>

namespace NolSchedCtls {

EditorOptions ReadOptions(const std::vector<std::string>& given) {
    EditorOptions options;
    const auto app =
        MakeApp("nolsched-editor", "nolsched-editor lists schedule entries and edits them.", options);
    app->add_flag("--dark", options.isDark, "Light text on a dark ground");
    app->add_option("--screenshots", options.screenshots,
                    "Writes pictures of all pages to this folder and leaves; needs no display")
        ->type_name("DIR");
    AddId(*app, options.id, "Opens this entry at once, or draws its pages alone");
    app->footer(
        "Exit status: 0 done, 2 a wrong command line or no display, 3 the store or the output failed.");
    ReadArguments(*app, given, options);
    return options;
}

}  // namespace NolSchedCtls
