#include "host/window/options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace NolSchedCtls {

namespace {

struct QtOption {
    std::string_view name;
    bool takesText = true;
};

constexpr auto qtOptions = std::to_array<QtOption>({{"display"},
                                                    {"geometry"},
                                                    {"platform"},
                                                    {"platformpluginpath"},
                                                    {"platformtheme"},
                                                    {"plugin"},
                                                    {"qwindowgeometry"},
                                                    {"qwindowicon"},
                                                    {"qwindowtitle"},
                                                    {"reverse", false},
                                                    {"session"},
                                                    {"style"},
                                                    {"stylesheet"}});

// With one "-" before it or two, as Qt takes it.
const QtOption* QtOptionOf(std::string_view argument) {
    if (!argument.starts_with('-')) return nullptr;
    argument.remove_prefix(argument.starts_with("--") ? 2 : 1);
    const auto* const found =
        std::ranges::find(qtOptions, argument.substr(0, argument.find('=')), &QtOption::name);
    return found == qtOptions.end() ? nullptr : found;
}

// Takes the options that are Qt's out of the arguments. The style is set by the window, which has one of its
// own.
void TakeQtOptions(const CLI::App& app, std::vector<std::string>& given, EditorOptions& options) {
    std::vector<std::string> others;
    const std::vector<bool> places = OptionPlaces(app, given);
    for (std::size_t i = 0; i < given.size(); ++i) {
        const QtOption* const option = places[i] ? QtOptionOf(given[i]) : nullptr;
        if (option == nullptr) {
            others.push_back(given[i]);
            continue;
        }
        const std::size_t equals = given[i].find('=');
        std::vector<std::string> taken{'-' + std::string(option->name)};
        if (option->takesText && equals == std::string::npos && i + 1 == given.size())
            throw UsageError("The option " + taken.front() + " lacks its text.");
        if (option->takesText)
            taken.push_back(equals == std::string::npos ? given[++i] : given[i].substr(equals + 1));
        if (option->name == "style")
            options.style = taken.back();
        else
            options.ofQt.insert(options.ofQt.end(), taken.begin(), taken.end());
    }
    given = std::move(others);
}

}  // namespace

EditorOptions ReadOptions(std::vector<std::string> given) {
    EditorOptions options;
    const auto app =
        MakeApp("nolsched-editor", "nolsched-editor lists schedule entries and edits them.", options);
    app->add_flag("--dark", options.isDark, "Light text on a dark ground");
    app->add_option("--screenshots", options.screenshots,
                    "Writes pictures of all pages to this folder and leaves; needs no display")
        ->type_name("DIR");
    AddId(*app, options.id, "Opens this entry at once, or draws its pages alone");
    app->footer(
        "Options of Qt, as -style, -platform and -geometry, are passed on to it.\n"
        "Exit status: 0 done, 2 a wrong command line or no display, 3 the store or the output failed.");
    TakeQtOptions(*app, given, options);
    ReadArguments(*app, given, options);
    return options;
}

}  // namespace NolSchedCtls
