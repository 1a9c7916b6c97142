#include "NolSchedCtls/library/c_table.h"

#include <array>
#include <bitset>

#include "NolSchedCtls/library/c_calls.h"
#include "NolSchedCtls/library/c_columns.h"
#include "NolSchedCtls/library/c_fields.h"
#include "NolSchedCtls/library/c_services.h"
#include "NolSchedCtls/library/catalogue.h"
#include "NolSchedCtls/records/entry_columns.h"
#include "NolSchedCtls/records/study_kinds.h"
#include "NolSchedCtls/services/provider.h"
#include "NolSchedCtls/tabs/contract/pavise_tab.h"
#include "NolSchedCtls/toolkit/acts.h"

namespace NolSchedCtls::inline v1 {

namespace C {

namespace {

struct Record : Object {
    static constexpr std::string_view name = "record";
    Record() : Object(name) {}

    const std::shared_ptr<CNolSchedData> data = std::make_shared<CNolSchedData>();
    std::bitset<64> columnsSet;
    bool isFilled = false;
};

struct Notifier : Object {
    static constexpr std::string_view name = "notifier";
    Notifier(NolSchedHeard heardA, void* hostA) : Object(name), heard(heardA), host(hostA) {}

    void Tell(std::int32_t event, NolSchedHandle tab, const std::string& about) const {
        if (!isSilent) heard(host, event, tab, about.c_str());
    }
    void Silence() override { isSilent = true; }

    const NolSchedHeard heard;
    void* const host;
    bool isSilent = false;
    const std::shared_ptr<CPaviseNotify> notify = std::make_shared<CPaviseNotify>();
    ScopedConnection changed = notify->Changed.Connect([this] { Tell(NOLSCHED_CHANGED, 0, {}); });
    ScopedConnection shown = notify->TabShown.Connect(
        [this](const std::string& sTabName) { Tell(NOLSCHED_TAB_SHOWN, 0, sTabName); });
};

struct Tab : Object {
    static constexpr std::string_view name = "tab";
    explicit Tab(std::shared_ptr<PaviseTab> controlA) : Object(name), control(std::move(controlA)) {}

    void Silence() override { heard.clear(); }

    // The fields' events, from now on and as long as the notifier stands.
    void Hear(NolSchedHandle self, const std::shared_ptr<Notifier>& notifier) {
        const auto tell = [self, heardBy = std::weak_ptr(notifier)](std::int32_t event) {
            return [=](const ViewField& field) {
                if (const auto hearing = heardBy.lock()) hearing->Tell(event, self, field.Name());
            };
        };
        heard.clear();
        heard.emplace_back(control->FocusMoved.Connect(tell(NOLSCHED_FOCUS_MOVED)));
        heard.emplace_back(control->Beep.Connect(tell(NOLSCHED_BEEP)));
        heard.emplace_back(control->FieldChanged.Connect(
            [told = tell(NOLSCHED_FIELD_CHANGED)](const ViewField& field, FieldPart) { told(field); }));
    }

    const std::shared_ptr<PaviseTab> control;
    std::vector<ScopedConnection> heard;
};

std::shared_ptr<Record> FilledRecord(NolSchedHandle handle) {
    auto record = ObjectAs<Record>(handle);
    if (!record->isFilled)
        throw CallError(NOLSCHED_BAD_ORDER, "The record is empty; InitNew or InitEdit comes first.");
    return record;
}

std::shared_ptr<Record> EmptyRecord(NolSchedHandle handle) {
    auto record = ObjectAs<Record>(handle);
    if (record->isFilled) throw CallError(NOLSCHED_BAD_ORDER, "The record has been filled before.");
    return record;
}

std::shared_ptr<Tab> LoadedTab(NolSchedHandle handle) {
    auto tab = ObjectAs<Tab>(handle);
    if (!tab->control->IsLoaded())
        throw CallError(NOLSCHED_BAD_ORDER, "The tab is empty; LoadData comes first.");
    return tab;
}

ViewField& FieldOf(const Tab& tab, const char* field) {
    const std::string name = Text(field, "a field's name");
    if (ViewField* const found = tab.control->FindField(name)) return *found;
    throw CallError(NOLSCHED_BAD_NAME, "The tab has no field " + Quoted(name) + ".");
}

[[noreturn]] void TellBeyond(const char* what, std::int32_t index) {
    throw CallError(NOLSCHED_NO, "There is no " + std::string(what) + " " + std::to_string(index) + ".");
}

// The item at the index.
const auto& At(const auto& items, std::int32_t index, const char* what) {
    if (index < 0 || static_cast<std::size_t>(index) >= items.size()) TellBeyond(what, index);
    return items[static_cast<std::size_t>(index)];
}

std::int32_t InstallServices(const NolSchedServices* services) {
    return Call([&] {
        if (services == nullptr)
            NolSchedCtls::InstallServices({});
        else
            InstallCalledServices(*services);
    });
}

// What is wrong with an answer fails its call-back, whether or not the host looks at the result.
std::int32_t Answering(NolSchedHandle handle, auto step) {
    return Call([&] {
        const auto answer = ObjectAs<Answer>(handle);
        try {
            step(*answer);
        } catch (...) {
            answer->failure = PresentFailure();
            throw;
        }
    });
}

std::int32_t NewRow(NolSchedHandle handle) {
    return Answering(handle, [](Answer& answer) { answer.rows.emplace_back(); });
}

std::int32_t Give(NolSchedHandle handle, const char* column, const char* text) {
    return Answering(handle, [&](Answer& answer) {
        std::string name = Text(column, "a column's name");
        LintelValue value;
        if (text != nullptr) value = Text(text, "a column's text");
        if (answer.rows.empty()) answer.rows.emplace_back();
        answer.rows.back().push_back({std::move(name), std::move(value)});
    });
}

std::int32_t Release(NolSchedHandle handle) {
    return Call([&] {
        if (ObjectOf(handle)->kind == Answer::name)
            throw CallError(NOLSCHED_BAD_HANDLE, "The answer of a call-back is not the host's to release.");
        Drop(handle);
    });
}

std::int32_t CreateRecord(NolSchedHandle* record) {
    return Call([&] {
        CheckPointer(record, "the place for a record");
        *record = Keep(std::make_shared<Record>());
    });
}

std::int32_t InitNew(NolSchedHandle record, std::int32_t isImmediate, std::int32_t groupId,
                     const char* name) {
    return Call([&] {
        const auto empty = EmptyRecord(record);
        empty->data->InitNew(std::make_shared<CaddisScenarioType>(), isImmediate != 0, groupId,
                             Text(name, "an entry's name"));
        empty->isFilled = true;
    });
}

[[noreturn]] void TellLacking(std::string_view column) {
    throw CallError(NOLSCHED_BAD_ORDER, "InitEdit lacks the column " + std::string(column) + ".");
}

// What a failure among the override rows leaves behind would stand in the way of the next try.
void FillOrLeave(CNolSchedData& data, InitEditArguments arguments) {
    std::array<std::string, studyKinds.size()> flags;
    for (std::size_t i = 0; i < flags.size(); ++i) flags[i] = data.*studyKinds[i].pFlag;
    try {
        data.InitEdit(std::move(arguments));
    } catch (...) {
        data.Overrides() = {};
        for (std::size_t i = 0; i < flags.size(); ++i) data.*studyKinds[i].pFlag = flags[i];
        throw;
    }
}

std::int32_t InitEdit(NolSchedHandle record) {
    return Call([&] {
        const auto empty = EmptyRecord(record);
        InitEditArguments arguments = LaterArguments();
        const auto take = [&](const auto& column) {
            if (column.pArgument == nullptr) return;
            if (!empty->columnsSet.test(RecordColumnIndex(column.sName))) TellLacking(column.sName);
            arguments.*column.pArgument = (*empty->data).*column.pProperty;
        };
        for (const EntryColumn& column : entryColumns) std::visit(take, column);
        FillOrLeave(*empty->data, std::move(arguments));
        empty->isFilled = true;
    });
}

std::int32_t ColumnName(std::int32_t index, const char** name) {
    return Call([&] {
        CheckPointer(name, "the place for a name");
        const std::string_view found = RecordColumnName(static_cast<std::size_t>(index));
        if (found.empty()) TellBeyond("column", index);
        HandOut(name, std::string(found));
    });
}

std::int32_t SetColumn(NolSchedHandle record, const char* column, const char* text) {
    return Call([&] {
        const auto held = ObjectAs<Record>(record);
        const std::size_t index = RecordColumnIndex(Text(column, "a column's name"));
        WriteColumn(*held->data, index, text);
        held->columnsSet.set(index);
    });
}

std::int32_t GetColumn(NolSchedHandle record, const char* column, const char** text) {
    return Call([&] {
        const auto held = ObjectAs<Record>(record);
        CheckPointer(text, "the place for a text");
        HandOut(text, ReadColumn(*held->data, Text(column, "a column's name")));
    });
}

std::int32_t GetOverride(NolSchedHandle record, std::int32_t index, const char* column, const char** text) {
    return Call([&] {
        const auto held = ObjectAs<Record>(record);
        const auto& overrides = held->data->Overrides();
        CheckPointer(text, "the place for a text");
        const std::size_t found = OverrideColumnIndex(Text(column, "a column's name"));
        if (index < 0 || static_cast<std::size_t>(index) >= overrides.Count()) TellBeyond("override", index);
        HandOut(text, ReadColumn(*overrides.Item(static_cast<std::size_t>(index) + 1), found));
    });
}

std::int32_t SaveNolOverrides(NolSchedHandle record) {
    return Call([&] {
        const auto filled = FilledRecord(record);
        TakeReports();
        filled->data->SaveNolOverrides();
        if (const std::string reports = TakeReports(); !reports.empty())
            throw CallError(NOLSCHED_HOST_FAILED, reports);
    });
}

std::int32_t CreateNotifier(NolSchedHeard heard, void* host, NolSchedHandle* notifier) {
    return Call([&] {
        CheckPointer(reinterpret_cast<const void*>(heard), "the call-back of a notifier");
        CheckPointer(notifier, "the place for a notifier");
        *notifier = Keep(std::make_shared<Notifier>(heard, host));
    });
}

std::int32_t CreateTab(const char* name, NolSchedHandle* tab) {
    return Call([&] {
        CheckPointer(tab, "the place for a tab");
        const std::string sought = Text(name, "a tab's name");
        const PublishedClass* const published = FindPublishedClass(sought);
        if (published == nullptr || published->kind != ClassKind::Control)
            throw CallError(NOLSCHED_BAD_NAME, "There is no tab " + Quoted(sought) + ".");
        *tab = Keep(std::make_shared<Tab>(CreateControl(published->sProgId)));
    });
}

std::int32_t LoadData(NolSchedHandle tab, NolSchedHandle record, NolSchedHandle notifier) {
    return Call([&] {
        const auto loaded = ObjectAs<Tab>(tab);
        const auto filled = FilledRecord(record);
        const auto hearing = notifier == 0 ? nullptr : ObjectAs<Notifier>(notifier);
        loaded->Silence();  // of the notifier before
        loaded->control->LoadData(filled->data, {}, hearing ? hearing->notify : nullptr);
        loaded->Hear(tab, hearing);
    });
}

std::int32_t IsTabValid(NolSchedHandle tab, const char* title) {
    return Call([&] {
        if (!LoadedTab(tab)->control->IsTabValid(Text(title, "the title of a message")))
            throw CallError(NOLSCHED_NO, "The tab is not valid, which a message has told.");
    });
}

std::int32_t SaveData(NolSchedHandle tab) {
    return Call([&] { LoadedTab(tab)->control->SaveData(); });
}

std::int32_t SaveState(NolSchedHandle tab) {
    return Call([&] { LoadedTab(tab)->control->SaveState(); });
}

std::int32_t FieldName(NolSchedHandle tab, std::int32_t index, const char** name) {
    return Call([&] {
        const auto held = ObjectAs<Tab>(tab);
        CheckPointer(name, "the place for a name");
        HandOut(name, At(held->control->Fields(), index, "field")->Name());
    });
}

std::int32_t GetField(NolSchedHandle tab, const char* field, const char* property, const char** text) {
    return Call([&] {
        const auto held = ObjectAs<Tab>(tab);
        CheckPointer(text, "the place for a text");
        HandOut(text, ReadProperty(FieldOf(*held, field), Text(property, "a property's name")));
    });
}

std::int32_t GetEntry(NolSchedHandle tab, const char* field, std::int32_t index, const char** text) {
    return Call([&] {
        const auto held = ObjectAs<Tab>(tab);
        CheckPointer(text, "the place for a text");
        const std::vector<std::string> entries = OfferedBy(FieldOf(*held, field));
        HandOut(text, At(entries, index, "entry"));
    });
}

// A text that is refused is as little a user's as one that is not offered.
void DoAct(ViewField& field, Verb verb, const std::string& text) {
    const auto refuse = [&field](const std::string& why) {
        throw CallError(NOLSCHED_NO, field.Name() + why);
    };
    if (const std::string obstacle = ObstacleTo(verb, field); !obstacle.empty()) refuse(obstacle + ".");
    bool isDone = false;
    try {
        isDone = NolSchedCtls::DoAct(verb, field, text);
    } catch (const RefusedText& refusal) {
        refuse(std::string(": ") + refusal.what());
    }
    if (!isDone) refuse(" does not offer " + Quoted(text) + ".");
}

std::int32_t Act(NolSchedHandle tab, const char* field, const char* act, const char* text) {
    return Call([&] {
        const auto loaded = LoadedTab(tab);
        ViewField& acted = FieldOf(*loaded, field);
        const std::string word = Text(act, "an act");
        const auto verb = VerbNamed(word);
        if (!verb) throw CallError(NOLSCHED_BAD_NAME, "There is no act " + Quoted(word) + ".");
        DoAct(acted, *verb, verb == Verb::Click ? std::string() : Text(text, "the text of an act"));
    });
}

}  // namespace

}  // namespace C

const NolSchedC1& CTable() {
    static constexpr NolSchedC1 table = {sizeof(NolSchedC1),
                                         1,
                                         NOLSCHED_VERSION,
                                         C::LastFailure,
                                         C::InstallServices,
                                         C::NewRow,
                                         C::Give,
                                         C::Release,
                                         C::CreateRecord,
                                         C::InitNew,
                                         C::InitEdit,
                                         C::ColumnName,
                                         C::SetColumn,
                                         C::GetColumn,
                                         C::GetOverride,
                                         C::SaveNolOverrides,
                                         C::CreateNotifier,
                                         C::CreateTab,
                                         C::LoadData,
                                         C::IsTabValid,
                                         C::SaveData,
                                         C::SaveState,
                                         C::FieldName,
                                         C::GetField,
                                         C::GetEntry,
                                         C::Act};
    return table;
}

}  // namespace NolSchedCtls::inline v1
