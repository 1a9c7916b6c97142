#include "host/cli/line_editor.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "NolSchedCtls/base/text.h"
#include "host/cli/libedit.h"
#include "host/entries/arguments.h"
#include "host/entries/visible_text.h"

namespace NolSchedCtls {

namespace {

using namespace Libedit;

using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

// Answers may go to a file while a person types.
File OpenScreen() {
    for (const int descriptor : {STDERR_FILENO, STDOUT_FILENO, STDIN_FILENO})
        if (isatty(descriptor) == 1) return {fdopen(dup(descriptor), "w"), &std::fclose};
    return {nullptr, &std::fclose};
}

bool HasCursor() {
    const char* const terminal = std::getenv("TERM");
    return terminal != nullptr && *terminal != '\0' && std::strcmp(terminal, "dumb") != 0;
}

// What all begin with, in whole letters.
std::string_view CommonStart(const std::vector<std::string>& words) {
    std::string_view common = words.front();
    for (const std::string& word : words)
        common = common.substr(
            0, static_cast<std::size_t>(std::ranges::mismatch(common, word).in1 - common.begin()));
    const auto isInsideLetter = [&](std::size_t at) {
        return at < words.front().size() && (words.front()[at] & 0xC0) == 0x80;
    };
    while (isInsideLetter(common.size())) common.remove_suffix(1);
    return common;
}

class LineEditor : public LineReader {
  public:
    LineEditor(File screenA, Complete completeA);
    ~LineEditor() override;

    std::optional<std::string> Read(const std::string& prompt) override;
    void Remember(const std::string& line) override;

  private:
    static LineEditor& Of(EditLine* editor);
    static char* PromptOf(EditLine* editor) { return Of(editor).shownPrompt.data(); }
    static unsigned char OnTab(EditLine* editor, int key);
    // A dropped line, or none: when reading has ended so.
    std::optional<std::string> ReadNone(int trouble);
    unsigned char CompleteLine();
    void BindKeys();

    File screen;
    Complete complete;
    std::string shownPrompt;
    EditLine* editor;
    History* lines;
};

LineEditor::LineEditor(File screenA, Complete completeA)
    : screen(std::move(screenA)),
      complete(std::move(completeA)),
      editor(el_init("nolsched", stdin, screen.get(), screen.get())),
      lines(history_init()) {
    HistEvent event{};
    history(lines, &event, H_SETSIZE, 1000);
    history(lines, &event, H_SETUNIQUE, 1);
    el_set(editor, EL_CLIENTDATA, this);
    el_set(editor, EL_PROMPT, &LineEditor::PromptOf);
    el_set(editor, EL_HIST, HistoryFunction(), lines);
    el_set(editor, EL_SIGNAL,
           1);  // else a program that is stopped leaves the terminal as it was while editing
    BindKeys();
}

// What a person has bound in ~/.editrc comes last.
void LineEditor::BindKeys() {
    el_set(editor, EL_EDITOR, "emacs");
    el_wset(editor, EL_ADDFN, L"complete", L"Completes the word", &LineEditor::OnTab);  // el_set leaks them
    el_set(editor, EL_BIND, "^I", "complete", nullptr);
    el_source(editor, nullptr);
}

LineEditor::~LineEditor() {
    history_end(lines);
    el_end(editor);
}

LineEditor& LineEditor::Of(EditLine* editor) {
    void* self = nullptr;
    el_get(editor, EL_CLIENTDATA, &self);
    return *static_cast<LineEditor*>(self);
}

std::optional<std::string> LineEditor::ReadNone(int trouble) {
    const bool isDropped = trouble == EINTR;
    std::fputs(isDropped ? "^C\n" : "\n", screen.get());
    std::fflush(screen.get());
    if (isDropped) return "";
    if (trouble == 0) return {};
    throw UsageError("The input cannot be read: " + std::string(std::strerror(trouble)) + ".");
}

std::optional<std::string> LineEditor::Read(const std::string& prompt) {
    shownPrompt = prompt;
    int length = 0;
    el_set(editor, EL_PREP_TERM, 1);  // before the prompt is seen: else a quick key shows twice
    const char* const typed = el_gets(editor, &length);
    if (typed == nullptr) return ReadNone(length < 0 ? errno : 0);
    std::string line = typed;
    if (line.ends_with('\n')) line.pop_back();
    return line;
}

void LineEditor::Remember(const std::string& line) {
    HistEvent event{};
    if (!Trimmed(line).empty()) history(lines, &event, H_ENTER, line.c_str());
}

// The library in between is no place for an exception to pass.
unsigned char LineEditor::OnTab(EditLine* editor, int /*key*/) {
    try {
        return Of(editor).CompleteLine();
    } catch (const std::exception&) {
        return CC_ERROR;
    }
}

unsigned char LineEditor::CompleteLine() {
    const LineInfo* const line = el_line(editor);
    const std::string typed(line->buffer, line->cursor);
    const auto [from, words] = complete(typed);
    if (words.empty()) return CC_ERROR;
    const std::string more(CommonStart(words).substr(typed.size() - from));
    if (!more.empty()) return el_insertstr(editor, more.c_str()) == 0 ? CC_REFRESH : CC_ERROR;
    if (words.size() == 1) return CC_NORM;
    std::fprintf(screen.get(), "\n%s\n",
                 Joined(
                     words, [](const std::string& word) { return Visible(Trimmed(word)); }, "  ")
                     .c_str());
    return CC_REDISPLAY;
}

}  // namespace

std::unique_ptr<LineReader> MakeLineEditor(Complete complete) try {
    File screen = HasCursor() ? OpenScreen() : File(nullptr, &std::fclose);
    if (!screen) return nullptr;
    std::setlocale(LC_CTYPE, "C.UTF-8");
    return std::make_unique<LineEditor>(std::move(screen), std::move(complete));
} catch (const NolSchedError&) {  // no library
    return nullptr;
}

}  // namespace NolSchedCtls
