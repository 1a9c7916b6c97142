// Which entries hold what the user looks for.
#pragma once

#include <QStringList>
#include <memory>
#include <stop_token>
#include <vector>

#include "NolSchedCtls/services/date_settings.h"
#include "host/window/entry_row.h"

namespace NolSchedCtls {

// Passes the rows that hold each of the words in some column, and are in that state, if there is one. Made on
// the thread of the windows; a copy of its own serves any thread.
class EntryFilter {
  public:
    explicit EntryFilter(const QString& words = {}, const QString& stateA = {});

    bool Passes(const EntryRow& row);
    // What comes after a stop is of no use.
    EntryRows Passing(const EntryRows& rows, const std::stop_token& stop);

  private:
    // Answers for what many rows share, by its number.
    class Answers {
      public:
        template <class Find>
        bool Get(std::size_t number, const Find& find) {
            if (number >= known.size()) known.resize(number + 1, unknown);
            if (known[number] == unknown) known[number] = find() ? yes : no;
            return known[number] == yes;
        }

      private:
        enum Answer : char { unknown, no, yes };
        std::vector<Answer> known;
    };
    struct Word {
        QString text;  // its case folded
        bool isNumber = false;
        Answers texts = {};
        Answers savers = {};
        Answers days = {};
        Answers ends = {};
        Answers minutes = {};
    };

    bool Holds(Word& word, const EntryRow& row) const;
    bool HoldsDates(Word& word, const EntryRow& row) const;
    bool HoldsDay(Word& word, DateTime day) const;
    bool HoldsEnd(Word& word, DateTime end) const;
    static bool HoldsTime(Word& word, DateTime moment);
    static bool HoldsSaver(Word& word, const SharedText& saver);

    std::vector<Word> words;
    QString state;
    std::shared_ptr<IDateSettings> dates;  // a thread has no services
};

}  // namespace NolSchedCtls
