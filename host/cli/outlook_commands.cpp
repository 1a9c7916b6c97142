#include "host/cli/outlook_commands.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "NolSchedCtls/base/text.h"
#include "host/entries/calendar_event.h"
#include "host/entries/entry_check.h"
#include "host/entries/entry_sentence.h"
#include "host/entries/holiday_file.h"
#include "host/entries/process.h"

namespace NolSchedCtls {

namespace {

constexpr DateTime second = 1.0 / 86400;
constexpr int usualCount = 10;

struct Span {
    DateTime from;
    DateTime to;
};

DateTime ReadMoment(const std::string& option, const std::string& text) {
    return Explained<UsageError>([&] { return ParseIso(text); }, [&] { return option + ": "; });
}

DateTime ReadDay(const std::string& text) {
    constexpr std::string_view form = "YYYY-MM-DD";
    if (text.size() != form.size())
        throw UsageError("A holiday is a day, " + std::string(form) + ", not " + Quoted(text) + ".");
    return ReadMoment("holidays", text);
}

// A day without a time counts as a whole.
Span SpanOf(const CommandLine& line, DateTime now) {
    Span span{line.from ? ReadMoment("--from", *line.from) : now + second, farthest};
    if (!line.to) return span;
    span.to = ReadMoment("--to", *line.to);
    if (line.to->size() == IsoDayText(span.to).size()) span.to += 1 - second;
    if (span.from > span.to)
        throw UsageError(line.from ? "--from " + *line.from + " lies after --to " + *line.to + "."
                                   : "--to " + *line.to + " has passed; --from tells where to begin.");
    return span;
}

void TellLeftOut(const CommandRun& run, const ListedEntry& entry, const EntryState& state) {
    const std::string reason = state.next ? "next " + MomentText(*state.next) : state.reason;
    const CheckedEntry leftOut{entry.id, entry.record->EditorName, state.text, reason};
    run.answers.Tell({{"left out", JsonOf(leftOut)}});
}

}  // namespace

// An entry that cannot be shown, or was asked for and does not run then, is named beside the runs.
int TellRuns(const CommandRun& run) {
    const EntryOutlook outlook(run.workspace);
    const Span span = SpanOf(run.line, outlook.Now());
    MergedRuns runs(span.from, span.to);
    ForEachChosen(run, [&](const ListedEntry& entry) {
        const std::string trouble = SentenceOf(entry).trouble;
        if (IsRunnable(entry, trouble) &&
            runs.Add(entry.record->Id, entry.record->EditorName, outlook.ScheduleOf(*entry.record)))
            return;
        const EntryState state = outlook.StateOf(entry, trouble);
        const bool isBroken = state.text == groupMissing || state.text == TextOf(RunState::Unreadable);
        if (isBroken || !run.line.ids.empty()) TellLeftOut(run, entry, state);
    });
    int count = run.line.count.value_or(run.line.to ? std::numeric_limits<int>::max() : usualCount);
    for (; count > 0 && !runs.AtEnd(); --count, runs.MoveNext()) {
        const EntryRun next = runs.Current();
        run.answers.Tell({{"run", {{"Id", next.id}, {"EditorName", *next.name}, {"at", IsoText(next.at)}}}});
    }
    return exitDone;
}

int Check(const CommandRun& run) {
    auto found = CheckEntries(run.workspace);
    if (!run.line.ids.empty() || run.line.filter.IsGiven()) {
        const auto chosen = Chosen(run);
        std::erase_if(found, [&chosen](const CheckedEntry& entry) {
            return std::ranges::find(chosen, entry.id) == chosen.end();
        });
    }
    for (const CheckedEntry& entry : found) run.answers.Tell({{"check", JsonOf(entry)}});
    const auto damaged = run.workspace.Holidays().Days().troubles;
    for (const std::string& trouble : damaged) run.answers.TellFailure(StoreError(trouble));
    return found.empty() && damaged.empty() ? exitDone : exitRefused;
}

// An entry without runs is left out, and named beside the calendar.
int Export(const CommandRun& run) {
    const EntryOutlook outlook(run.workspace);
    const char* begin = calendarBegin;
    const auto tell = [&](const std::string& part) {
        run.answers.Tell({{"calendar", std::exchange(begin, "") + part}});
    };
    ForEachChosen(run, [&](const ListedEntry& entry) {
        const std::string trouble = SentenceOf(entry).trouble;
        const std::string event = IsRunnable(entry, trouble) ? EventOf(entry, outlook) : "";
        if (!event.empty()) return tell(event);
        TellLeftOut(run, entry, outlook.StateOf(entry, trouble));
    });
    tell(calendarEnd);
    return exitDone;
}

int TellHolidays(const CommandRun& run) {
    for (const Holiday& holiday : run.workspace.Holidays().All())
        run.answers.Tell({{"holiday", {{"date", IsoDayText(holiday.day)}, {"name", holiday.name}}}});
    return exitDone;
}

int AddHoliday(const CommandRun& run) {
    if (run.line.document.empty()) throw UsageError("holidays add takes a NAME that is not empty.");
    run.workspace.Holidays().Add({ReadDay(run.line.day), run.line.document});
    return exitDone;
}

int DeleteHoliday(const CommandRun& run) {
    run.workspace.Holidays().Delete(run.line.day);
    return exitDone;
}

int ImportHolidays(const CommandRun& run) {
    const auto [days, passedOver] = ReadHolidays(run.line.file);
    const int added = run.workspace.Holidays().Import(days);
    run.answers.Tell(
        {{"imported",
          {{"new", added}, {"known", static_cast<int>(days.size()) - added}, {"passedOver", passedOver}}}});
    return exitDone;
}

}  // namespace NolSchedCtls
