// Texts that many entries have in common: groups, sentences, states.
#pragma once

#include <QString>
#include <string_view>

namespace NolSchedCtls {

// As small as a pointer. Each text is kept once, until the program ends. Made on the thread of the windows,
// read on any.
class SharedText {
  public:
    SharedText() = default;  // empty
    // What is stored, as it is shown.
    explicit SharedText(std::string_view stored);

    const QString& Text() const { return kept->text; }
    // Counts the texts from 0 on.
    std::size_t Number() const { return kept->number; }

  private:
    struct Kept {
        QString text;
        std::size_t number = 0;
    };
    static const Kept empty;

    const Kept* kept = &empty;
};

}  // namespace NolSchedCtls
