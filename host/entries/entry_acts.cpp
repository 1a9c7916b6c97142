#include "host/entries/entry_acts.h"

#include <cmath>

#include "NolSchedCtls/base/text.h"
#include "NolSchedCtls/tabs/general/nol_sched_gen_tab.h"
#include "NolSchedCtls/tabs/schedule/nol_schedule_tab.h"
#include "host/entries/entry_session.h"

namespace NolSchedCtls {

namespace {

template <class Tab>
Tab& TabOf(EntrySession& session, std::string_view page) {
    return dynamic_cast<Tab&>(*session.FindPage(page)->tab);
}

// What a page has to say while it loads is for an editor.
void LoadSilently(EntrySession& session) {
    const Workspace::Silence silence(session.Home());
    session.Load();
}

// What the page that `ask` gives has told is thrown.
void Accepts(EntrySession& session, const std::function<const Page*()>& ask) {
    const Workspace::Silence silence(session.Home());
    const Page* const refusal = ask();
    if (refusal == nullptr) return;
    throw RequestError(silence.Messages().empty() ? "the page " + std::string(refusal->title) + " refuses it."
                                                  : silence.Messages().front().text);
}

void Name(const NamedEntry& entry, const std::function<void(std::int32_t)>& act) {
    const std::string named = "The entry " + std::to_string(entry.id) + ' ' + Quoted(entry.name) + ": ";
    try {
        act(entry.id);
    } catch (const StoreError& error) {
        throw StoreError(named + error.what(), error.kind, error.transaction);
    } catch (const NolSchedError& error) {
        throw RequestError(named + error.what());
    }
}

void Take(TypedField& field, const std::string& text) {
    if (!field.TypeText(text)) throw RequestError(field.Refusal());
}

}  // namespace

void DoToAll(Workspace& workspace, const std::vector<NamedEntry>& entries,
             const std::function<void(std::int32_t)>& act, const std::function<bool(int)>& goesOn) {
    Transaction transaction(workspace.Store());
    int done = 0;
    for (const NamedEntry& entry : entries) {
        Name(entry, act);
        if (!goesOn(++done)) throw RequestError("Given up; nothing was done.");
    }
    workspace.Entries().SkipIds();
    transaction.Commit();
}

void SetActive(Workspace& workspace, std::int32_t id, bool isActive) {
    EntrySession session(workspace, id);
    session.Record().ScheduleActive = isActive ? "Y" : "N";
    session.SaveOwn();
}

void SetGroup(Workspace& workspace, std::int32_t id, const std::string& group) {
    EntrySession session(workspace, id);
    LoadSilently(session);
    XMarlet& picker = TabOf<XNolSchedGenTab>(session, "general").fdocRptGroup;
    if (picker.Text() == group) return;
    if (!picker.IsUsable()) throw RequestError("its study group stays as it was made.");
    if (!picker.Pick(group)) throw RequestError("there is no study group " + Quoted(group) + '.');
    session.Record().RptGrpId = picker.Document()->Id;  // and nothing else that the pages show otherwise
    session.SaveOwn();
}

void ShiftStart(Workspace& workspace, std::int32_t id, DateTime days) {
    EntrySession session(workspace, id);
    LoadSilently(session);
    auto& tab = TabOf<XNolScheduleTab>(session, "schedule");
    if (session.Record().IsOverride()) throw RequestError("an immediate entry has no start.");
    const DateTimeParts time{.hour = tab.dtpStartTime.Hour(), .minute = tab.dtpStartTime.Minute()};
    const std::string start = IsoText(tab.SSDStartDate.DateValue() + ComposeDateTime(time) + days);
    const std::size_t timePlace = start.find('T');
    Take(tab.SSDStartDate, start.substr(0, timePlace));
    Take(tab.dtpStartTime, start.substr(timePlace + 1, 5));
    Accepts(session, [&] { return session.FirstRefusal(EntrySession::PastEnd::Stands); });
    CNolSchedData& record = session.Record();
    record.FirstDateTime += days;
    // The last run is at the time of day of all.
    if (days != std::floor(days)) record.FinalDateTime = session.ViewedRecord()->FinalDateTime;
    session.SaveOwn();
}

std::int32_t Duplicate(Workspace& workspace, std::int32_t id) {
    EntrySession copy(workspace, EntrySession::CopyOf{id});
    LoadSilently(copy);
    Accepts(copy, [&] { return copy.Save(EntrySession::PastEnd::Stands).refusedBy; });
    return copy.Record().Id;
}

}  // namespace NolSchedCtls
