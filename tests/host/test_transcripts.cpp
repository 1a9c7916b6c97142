// Each transcript runs twice, as text and as JSON, against its reference outputs. NOLSCHED_UPDATE=1 writes
// them anew.
//
// A line "$ COMMAND" runs nolsched with what follows up to the next such line as standard input; "$ sql
// STATEMENT" runs a statement past it, as another program would; after "$ prompt COMMAND" the lines are typed
// at a prompt; the lines after "$ watch" are run unheard while it watches; "\xHH" in a line stands for a byte
// ("\\xHH" in a command).
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <set>

#include "tests/host/run.h"
#include "tests/host/store.h"

namespace NolSchedCtls::Testing {

namespace {

std::string WithBytes(std::string line) {
    for (std::size_t at = 0; (at = line.find("\\x", at)) != std::string::npos; ++at)
        line.replace(at, 4, 1, static_cast<char>(std::stoi(line.substr(at + 2, 2), nullptr, 16)));
    return line;
}

std::string Run(const TemporaryStore& store, const std::string& command, const std::string& input,
                bool isJson) {
    if (command.starts_with("sql ")) return store.Sql(command.substr(4));
    const bool isAtPrompt = command.starts_with("prompt ");
    std::vector<std::string> arguments;
    if (isJson) arguments.emplace_back("--json");
    std::istringstream words(command.substr(isAtPrompt ? 7 : 0));
    for (std::string word; words >> std::quoted(word);) arguments.push_back(WithBytes(word));
    std::istringstream acts(input);
    const auto actOfAnother = [&](std::chrono::milliseconds wait) {
        std::string act;
        if (wait.count() == 0) return true;
        if (std::getline(acts, act)) Run(store, act, "", false);
        if (TemporaryStore::IsServer()) usleep(100'000);  // what is announced comes a moment later
        return !act.empty();
    };
    return RunCommandLine(store.Address(), arguments, input, isAtPrompt, actOfAnother);
}

std::string Play(const std::filesystem::path& transcript, bool isJson) {
    std::filesystem::current_path(transcript.parent_path());
    const TemporaryStore store;
    std::string played;
    std::ifstream file(transcript);
    std::string line;
    std::getline(file, line);
    while (file) {
        const std::string command = line.substr(2);
        std::string input;
        while (std::getline(file, line) && !line.starts_with("$ ")) input += WithBytes(line) + '\n';
        played += "$ " + command + '\n' + Run(store, command, input, isJson);
    }
    return played;
}

class Transcripts : public testing::TestWithParam<std::filesystem::path> {};

TEST_P(Transcripts, AreAsTheirReferences) {
    for (const bool isJson : {false, true}) {
        const std::string played = Play(GetParam(), isJson);
        auto reference = GetParam();
        reference.replace_extension(isJson ? ".json.out" : ".out");
        if (std::getenv("NOLSCHED_UPDATE") != nullptr) std::ofstream(reference) << played;
        EXPECT_EQ(played, ReadFile(reference)) << reference;
    }
}

std::set<std::filesystem::path> AllTranscripts() {
    std::set<std::filesystem::path> paths;
    for (const auto& file : std::filesystem::directory_iterator(TRANSCRIPTS))
        if (file.path().extension() == ".txt") paths.insert(file.path());
    return paths;
}

INSTANTIATE_TEST_SUITE_P(All, Transcripts, testing::ValuesIn(AllTranscripts()),
                         [](const auto& transcript) { return transcript.param.stem().string(); });

}  // namespace

}  // namespace NolSchedCtls::Testing
