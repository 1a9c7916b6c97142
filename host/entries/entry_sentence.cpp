#include "host/entries/entry_sentence.h"

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

Sentence SentenceOf(const ListedEntry& entry) {
    return entry.trouble.empty() ? SentenceOf(entry.record) : Unshown(entry.trouble);
}

}  // namespace NolSchedCtls
