// Each transcript runs twice, as text and as JSON, against its reference outputs. NOLSCHED_UPDATE=1 writes
// them anew.
//
// A line "$ COMMAND" runs nolsched with what follows up to the next such line as standard input; "$ sql
// STATEMENT" runs a statement past it, as another program would; "\xHH" in a line stands for a byte
// ("\\xHH" in a command).
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "tests/host/run.h"
#include "tests/host/store.h"

namespace NolSchedCtls::Testing {

namespace {

const std::filesystem::path folder = TRANSCRIPTS;

std::string ReadFile(const std::filesystem::path& path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> Words(const std::string& line) {
    std::vector<std::string> words;
    std::istringstream stream(line);
    for (std::string word; stream >> std::quoted(word);) words.push_back(word);
    return words;
}

std::string WithBytes(std::string line) {
    for (std::size_t at = 0; (at = line.find("\\x", at)) != std::string::npos; ++at)
        line.replace(at, 4, 1, static_cast<char>(std::stoi(line.substr(at + 2, 2), nullptr, 16)));
    return line;
}

class Player {
  public:
    explicit Player(bool isJsonA) : isJson(isJsonA) {}

    std::string Play(const std::filesystem::path& path) {
        std::ifstream file(path);
        std::string command;
        std::string input;
        for (std::string line; std::getline(file, line);) {
            if (!line.starts_with("$ ")) {
                input += WithBytes(line) + '\n';
                continue;
            }
            if (!command.empty()) Run(command, input);
            command = line.substr(2);
            input.clear();
        }
        Run(command, input);
        return played;
    }

  private:
    void Run(const std::string& command, const std::string& input) {
        played += "$ " + command + '\n';
        if (command.starts_with("sql ")) {
            played += store.Sql(command.substr(4));
            return;
        }
        std::vector<std::string> arguments = {"--db", store.Address(), "--now", "2026-03-02T09:05"};
        if (isJson) arguments.emplace_back("--json");
        for (const auto& word : Words(command)) arguments.push_back(WithBytes(word));
        played += Masked(RunCommandLine(arguments, input));
    }

    std::string Masked(std::string text) const {
        for (std::size_t at = 0; (at = text.find(store.Address(), at)) != std::string::npos;)
            text.replace(at, store.Address().size(), "t.db");
        return text;
    }

    bool isJson;
    TemporaryStore store;
    std::string played;
};

class Transcripts : public testing::TestWithParam<std::filesystem::path> {};

void PlayAndCompare(std::filesystem::path path, bool isJson) {
    const std::string played = Player(isJson).Play(path);
    const auto reference = path.replace_extension(isJson ? ".json.out" : ".out");
    if (std::getenv("NOLSCHED_UPDATE") != nullptr) std::ofstream(reference) << played;
    EXPECT_EQ(played, ReadFile(reference)) << reference;
}

TEST_P(Transcripts, Text) { PlayAndCompare(GetParam(), false); }

TEST_P(Transcripts, Json) { PlayAndCompare(GetParam(), true); }

std::vector<std::filesystem::path> AllTranscripts() {
    std::vector<std::filesystem::path> paths;
    for (const auto& file : std::filesystem::directory_iterator(folder))
        if (file.path().extension() == ".txt") paths.push_back(file.path());
    std::sort(paths.begin(), paths.end());
    return paths;
}

INSTANTIATE_TEST_SUITE_P(All, Transcripts, testing::ValuesIn(AllTranscripts()),
                         [](const auto& transcript) { return transcript.param.stem().string(); });

}  // namespace

}  // namespace NolSchedCtls::Testing
