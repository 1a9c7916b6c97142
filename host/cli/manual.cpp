#include "host/cli/manual.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cctype>

namespace NolSchedCtls {

namespace {

// So that nothing of it is a command to troff, and a "-" can be copied to a shell.
std::string Escaped(const std::string& text) {
    std::string escaped;
    bool isLineBegin = true;
    for (const char letter : text) {
        if (isLineBegin && (letter == '.' || letter == '\'')) escaped += "\\&";
        if (letter == '\\' || letter == '-') escaped += '\\';
        escaped += letter == '\\' ? 'e' : letter;
        isLineBegin = letter == '\n';
    }
    return escaped;
}

std::string Heading(std::string text) {
    std::ranges::transform(text, text.begin(), [](unsigned char letter) { return std::toupper(letter); });
    return ".SH " + text + '\n';
}

// As it stands, line by line.
std::string Literal(const std::string& text) {
    return text.empty() ? "" : ".PP\n.nf\n" + Escaped(text) + "\n.fi\n";
}

const CLI::Formatter& FormatterOf(const CLI::App& app) {
    return dynamic_cast<const CLI::Formatter&>(*app.get_formatter());
}

// The host's own -h stands for those of all its commands.
std::string OptionsOf(const CLI::App& app) {
    const CLI::Formatter& formatter = FormatterOf(app);
    auto options = app.get_options({});
    std::stable_partition(options.begin(), options.end(),
                          [](const CLI::Option* option) { return option->get_positional(); });
    std::string told;
    for (const auto* option : options) {
        if (app.get_parent() != nullptr && option == app.get_help_ptr()) continue;
        told += ".TP\n\\fB" + Escaped(formatter.make_option_name(option, option->get_positional())) + "\\fR" +
                Escaped(formatter.make_option_opts(option)) + '\n' + Escaped(option->get_description()) +
                '\n';
    }
    return told;
}

// "nolsched list [OPTIONS] [ID...]" from "Usage: nolsched ...".
std::string UsageOf(const CLI::App& app, const std::string& path) {
    const std::string usage = FormatterOf(app).make_usage(&app, path);
    return Escaped(usage.substr(usage.find(' ') + 1));
}

std::string CommandsOf(const CLI::App& app, const std::string& path, std::string group) {
    std::string told;
    for (const auto* command : app.get_subcommands({})) {
        if (app.get_parent() == nullptr && command->get_group() != group)
            told += Heading(group = command->get_group());
        const std::string name = path + ' ' + command->get_name();
        told += ".SS " + UsageOf(*command, name) + Escaped(command->get_description()) + '\n' +
                OptionsOf(*command) + Literal(command->get_footer()) + CommandsOf(*command, name, group);
    }
    return told;
}

}  // namespace

std::string ManualOf(const CLI::App& app) {
    const std::string& name = app.get_name();
    return ".TH " + name + " 1 \"\" \"" + app.version() + "\"\n" + Heading("Name") + name + " \\-" +
           Escaped(app.get_description().substr(name.size())) + '\n' + Heading("Synopsis") +
           UsageOf(app, name) + Heading("Options") + OptionsOf(app) + CommandsOf(app, name, "") +
           Heading("Notes") + Literal(app.get_footer());
}

}  // namespace NolSchedCtls
