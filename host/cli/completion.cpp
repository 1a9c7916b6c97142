#include "host/cli/completion.h"

#include <CLI/CLI.hpp>

#include "NolSchedCtls/base/text.h"
#include "host/cli/words.h"
#include "host/entries/entry_outlook.h"

namespace NolSchedCtls {

namespace {

// Bash splits a line also at "=", ":" and "@". What the line cannot tell is asked of the store that it names,
// in the environment, which other users do not see.
constexpr const char* acts = R"(
_nolsched_ask() { NOLSCHED_DB=${store:-${NOLSCHED_DB-}} "$program" "$@" </dev/null 2>/dev/null; }

# The texts of a kind, one a line.
_nolsched_offer() {
    case $1 in
    ID) _nolsched_ask list | sed -n 's/^\([0-9][0-9]*\) .*/\1/p' ;;
    GROUP) _nolsched_ask documents | sed -n 's/^[0-9]* *NOL Group  *//p' | sed 's/\\\\/\\/g' ;;
    TAB) _nolsched_ask fields | sed 's/\..*//' | uniq ;;
    STATE) _nolsched_states ;;
    WORD=TEXT) _nolsched_words ;;
    OPTION) printf '%s\n' $options | sed 's/=.*//' ;;
    COMMAND) _nolsched_at "$topic" && printf '%s\n' $commands ;;
    *'|'*) printf '%s\n' "${1//|/$'\n'}" ;;
    esac
}

# The kind of text that an option takes; nothing for one that takes none.
_nolsched_kind() {
    local option
    for option in $options; do [[ $option != "$1="* ]] || printf %s "${option#*=}"; done
}

_nolsched() {
    local program=${1/#\~/$HOME} store= path= topic= kind= option= commands options places piece word offer
    local -a line=() kinds
    local -i place=0
    for piece in "${COMP_WORDS[@]:1:COMP_CWORD}"; do
        if [[ ${#line[@]} -gt 0 && ($piece == [:@=]* || ${line[-1]} == *[:@=]) ]]; then
            line[-1]+=$piece
        else
            line+=("$piece")
        fi
    done
    local current=${line[-1]}
    unset 'line[-1]'

    _nolsched_at ''
    for word in "${line[@]}"; do
        if [[ $kind ]]; then
            [[ $option != --db ]] || store=${word//[\"\'\\]/}
            kind=
        elif [[ $word == --*=* ]]; then
            [[ $word != --db=* ]] || store=${word#*=} store=${store//[\"\'\\]/}
        elif [[ $word == -* ]]; then
            option=$word kind=$(_nolsched_kind "$word")
        elif [[ $path != help && " $commands " == *" $word "* ]]; then
            path+=${path:+ }$word
            _nolsched_at "$path"
        else
            topic+=${topic:+ }$word
            place+=1
        fi
    done

    COMPREPLY=()
    if [[ ! $kind && $current == --*=* ]]; then
        kind=$(_nolsched_kind "${current%%=*}")
        current=${current#*=}
    elif [[ ! $kind && $current == -* ]]; then
        kind=OPTION
    elif [[ ! $kind && $commands ]]; then
        kind=COMMAND topic=$path
    elif [[ ! $kind && $current != *=* ]]; then
        kinds=($places)
        kind=${kinds[place]-}
        [[ $kind || $places != *... ]] || kind=${kinds[-1]}
    fi
    _nolsched_reply "${kind%...}" "$current"
}

# Quoted as the line is. Files where nothing else is meant.
_nolsched_reply() {
    local begin=${2//\\/} kind
    [[ $2 != [\"\']* ]] || begin=${2:1}
    while IFS= read -r offer; do
        [[ $offer && $offer == "$begin"* ]] || continue
        [[ $2 == [\"\']* ]] || printf -v offer %q "$offer"
        COMPREPLY+=("$offer")
    done < <(for kind in ${1//,/ }; do _nolsched_offer "$kind"; done)
    if [[ ${#COMPREPLY[@]} -eq 0 && ,$1, =~ ,(FILE|SCRIPT|DB), ]]; then
        mapfile -t COMPREPLY < <(compgen -f -- "$begin")
        compopt -o filenames 2>/dev/null
    fi
    [[ ${COMPREPLY[0]-} != *= ]] || compopt -o nospace 2>/dev/null
}

complete -F _nolsched nolsched
)";

std::string InSingleQuotes(std::string_view text) { return '\'' + std::string(text) + '\''; }

// "--state=STATE", or "--all" for a flag.
std::string OptionsOf(const CLI::App& app) {
    std::string told;
    for (const auto* option : app.get_options([](const CLI::Option* one) { return one->nonpositional(); })) {
        if (app.get_parent() != nullptr && option == app.get_help_ptr()) continue;
        const std::string kind =
            option->get_option_text().empty() ? option->get_type_name() : option->get_option_text();
        told += ' ' + option->get_name() + (option->get_items_expected_max() > 0 ? '=' + kind : "");
    }
    return told;
}

// "ID,WORD=TEXT..." for "ID or WORD=TEXT", any number of them.
std::string PlacesOf(const CLI::App& app) {
    std::vector<std::string> kinds;
    for (const auto* place : app.get_options([](const CLI::Option* one) { return one->get_positional(); })) {
        const bool takesMore = place->get_expected_max() >= CLI::detail::expected_max_vector_size;
        kinds.push_back(CLI::detail::find_and_replace(place->get_name(true), " or ", ",") +
                        (takesMore ? "..." : ""));
    }
    return Joined(kinds, {}, " ");
}

// A line for the command and each under it.
std::string Table(const CLI::App& host, const CLI::App& app, const std::string& path) {
    const auto commands = app.get_subcommands({});
    std::string lines =
        "    " + InSingleQuotes(path) +
        ") commands=" + InSingleQuotes(Joined(commands, &CLI::App::get_name, " ")) +
        " options=" + InSingleQuotes(OptionsOf(host) + (&host == &app ? "" : OptionsOf(app))) +
        " places=" + InSingleQuotes(PlacesOf(app)) + " ;;\n";
    for (const auto* command : commands)
        lines += Table(host, *command, path + (path.empty() ? "" : " ") + command->get_name());
    return lines;
}

}  // namespace

std::string CompletionOf(const CLI::App& app) {
    return "_nolsched_at() {\n    case $1 in\n" + Table(app, app, "") +
           "    *) commands= options= places= ;;\n    esac\n}\n_nolsched_states() { printf '%s\\n' " +
           Joined(AllStates(), InSingleQuotes, " ") + "; }\n_nolsched_words() { printf '%s=\\n' " +
           Joined(Words(), &Word::name, " ") + "; }\n" + acts;
}

}  // namespace NolSchedCtls
