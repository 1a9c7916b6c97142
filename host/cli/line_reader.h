// Where the lines of a script come from: a stream, or a person at a terminal.
#pragma once

#include <functional>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace NolSchedCtls {

class LineReader {
  public:
    LineReader() = default;
    LineReader(const LineReader&) = delete;
    LineReader& operator=(const LineReader&) = delete;
    virtual ~LineReader() = default;

    // The next line without its end; nothing when there are no more. A person sees the prompt, and a line
    // that the person drops is empty. Throws UsageError when the rest cannot be read.
    virtual std::optional<std::string> Read(const std::string& prompt) = 0;
    // The person can have the line back by a key.
    virtual void Remember(const std::string& /*line*/) {}
};

class StreamReader : public LineReader {
  public:
    // Prompts go to the second stream, if there is one.
    explicit StreamReader(std::istream& linesA, std::ostream* promptsA = nullptr)
        : lines(linesA), prompts(promptsA) {}

    // A line that breaks off, since the rest cannot be read, is none.
    std::optional<std::string> Read(const std::string& prompt) override;

  private:
    std::istream& lines;
    std::ostream* prompts;
};

// What a line may go on with: the words that can stand from a place on, as far as it is typed.
struct Completion {
    std::size_t from = 0;
    std::vector<std::string> words = {};
};
using Complete = std::function<Completion(std::string_view typed)>;

}  // namespace NolSchedCtls
