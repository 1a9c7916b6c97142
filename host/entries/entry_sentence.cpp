#include "host/entries/entry_sentence.h"

#include "NolSchedCtls/tabs/schedule/nol_schedule_tab.h"
#include "NolSchedCtls/tabs/schedule/schedule_sentence.h"

namespace NolSchedCtls {

std::string SentenceOf(const std::shared_ptr<CNolSchedData>& record) {
    XNolScheduleTab tab;  // a fresh one: what another entry has left in the hidden lists plays no part
    try {
        tab.LoadData(record, record->EditorName, nullptr);
    } catch (const NolSchedError& error) {
        return std::string("(") + error.what() + ")";
    }
    return ScheduleSentence(tab);
}

std::string SentenceOf(const ListedEntry& entry) {
    return entry.trouble.empty() ? SentenceOf(entry.record) : "(" + entry.trouble + ")";
}

}  // namespace NolSchedCtls
