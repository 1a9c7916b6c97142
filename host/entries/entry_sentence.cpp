#include "host/entries/entry_sentence.h"

#include <map>
#include <tuple>

#include "NolSchedCtls/tabs/schedule/nol_schedule_tab.h"
#include "NolSchedCtls/tabs/schedule/schedule_sentence.h"

namespace NolSchedCtls {

namespace {

Sentence Unshown(const std::string& trouble) { return {"(" + trouble + ")", trouble}; }

}  // namespace

Sentence SentenceOf(const std::shared_ptr<CNolSchedData>& record) {
    XNolScheduleTab tab;  // a fresh one: what another entry has left in the hidden lists plays no part
    try {
        tab.LoadData(record, record->EditorName, nullptr);
    } catch (const NolSchedError& error) {
        return Unshown(error.what());
    }
    return {ScheduleSentence(tab), {}};
}

// The recurrences of a store are few, and what a stored row says beside its own changes no sentence: one tab
// each is enough.
Sentence SentenceOf(const ListedEntry& entry) {
    using Recurrence = std::tuple<std::string, std::int32_t, std::int32_t, std::int32_t, std::int32_t>;
    constexpr std::size_t mostKept = 10'000;
    static thread_local std::map<Recurrence, Sentence, std::less<>> kept;
    if (!entry.trouble.empty()) return Unshown(entry.trouble);
    const CNolSchedData& record = *entry.record;
    const auto recurrence = std::tie(record.Periodicity, record.Frequency, record.WhichMonthDate,
                                     record.WhichWeek, record.WhichWeekday);
    if (const auto found = kept.find(recurrence); found != kept.end()) return found->second;
    if (kept.size() == mostKept) kept.clear();
    return kept[recurrence] = SentenceOf(entry.record);
}

}  // namespace NolSchedCtls
