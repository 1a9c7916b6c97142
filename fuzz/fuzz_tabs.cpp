// Bytes as a record and a user's acts on all six tabs. No crash, no failure but the library's own, and what
// was valid is saved and comes back.
#include <fuzzer/FuzzedDataProvider.h>

#include <stdexcept>

#include "NolSchedCtls/library/catalogue.h"
#include "NolSchedCtls/tabs/contract/pavise_tab.h"
#include "NolSchedCtls/tabs/schedule/nol_schedule_tab.h"
#include "NolSchedCtls/tabs/schedule/schedule_sentence.h"
#include "NolSchedCtls/toolkit/fields.h"
#include "tests/library/fake_services.h"

using namespace NolSchedCtls;

namespace {

// Nobody catches it: it ends the run and is told.
void Require(bool holds, const char* what) {
    if (!holds) throw std::logic_error(what);
}

using Tabs = std::vector<std::shared_ptr<PaviseTab>>;

Tabs LoadedTabs(const std::shared_ptr<CNolSchedData>& record) {
    Tabs tabs;
    const auto notify = std::make_shared<CPaviseNotify>();
    for (const auto& published : PublishedClasses()) {
        if (published.kind != ClassKind::Control) continue;
        tabs.push_back(CreateControl(published.sProgId));
        tabs.back()->LoadData(record, "", notify);
    }
    return tabs;
}

// Codes that are mostly good, so that the acts after the load are reached.
std::shared_ptr<CNolSchedData> RecordOf(FuzzedDataProvider& bytes) {
    auto record = std::make_shared<CNolSchedData>();
    record->InitNew(nullptr, bytes.ConsumeBool(), bytes.ConsumeIntegralInRange(0, 3),
                    bytes.ConsumeRandomLengthString(9));
    if (bytes.ConsumeBool()) return record;
    record->FirstDateTime = bytes.ConsumeFloatingPointInRange(-700000.0, 3000000.0);
    record->FinalDateTime = bytes.ConsumeFloatingPointInRange(-700000.0, 3000000.0);
    record->Periodicity = bytes.PickValueInArray({"O", "H", "D", "W", "M", "A", "", "X"});
    record->Frequency = bytes.ConsumeIntegralInRange(-1, 60);
    record->WhichMonthDate = bytes.ConsumeIntegralInRange(-1, 30);
    record->WhichWeek = bytes.ConsumeIntegralInRange(-1, 6);
    record->WhichWeekday = bytes.ConsumeIntegralInRange(-1, 9);
    record->PurgeInterval = bytes.ConsumeIntegral<std::int32_t>();
    for (int row = bytes.ConsumeIntegralInRange(0, 3); row > 0; --row) {
        auto item = std::make_shared<CNolOverride>();
        const char* const type = bytes.PickValueInArray({"HOM Study", "PLM Study", "VCSA Study", "Other"});
        item->Initialize(1, type, bytes.ConsumeIntegral<std::int8_t>(), bytes.ConsumeIntegral<std::int32_t>(),
                         bytes.ConsumeIntegral<std::int8_t>(), bytes.ConsumeIntegral<std::int8_t>(), "log");
        record->AddNolOverride(item, type);
    }
    return record;
}

// What a user may do to each kind of field with those bytes.
struct Act {
    std::string text;
    int number;
    char32_t key;

    bool operator()(CheckBox& box) const { return box.Click(); }
    bool operator()(DropDownList& list) const { return list.PickIndex(number); }
    bool operator()(TextBox& box) const { return number % 2 == 0 ? box.Paste(text) : box.Key(key); }
    bool operator()(Label& /*label*/) const { return false; }
    bool operator()(Frame& /*frame*/) const { return false; }
    bool operator()(SSDateCombo& date) const {
        return number % 2 == 0 ? date.TypeText(text)
                               : date.PickDate(46000.0 + number * 40) || date.BeginEdit();
    }
    bool operator()(DTPicker& time) const {
        return number < 0 ? time.TypeText(text) : time.PickTime(number, number / 2);
    }
    bool operator()(XMarlet& picker) const { return number < 0 ? picker.Paste(text) : picker.Pick("Busy"); }
    bool operator()(XAmbitPurge& purge) const { return number < 0 ? purge.PasteDays(text) : purge.Key(key); }
    bool operator()(XAmbitDownload& download) const { return download.Pick(number < 0 ? "Manual" : text); }
};

void ActOn(ViewField& field, FuzzedDataProvider& bytes) {
    const Act act{bytes.ConsumeRandomLengthString(6), bytes.ConsumeIntegral<std::int8_t>(),
                  static_cast<char32_t>(bytes.ConsumeIntegralInRange(1, 0x10FFFF))};
    const bool isReachable = field.IsUsable();
    Require(!VisitField(field, act) || isReachable, "an act on a field out of reach");
}

std::string SentenceOf(const Tabs& tabs) {
    return ScheduleSentence(dynamic_cast<const XNolScheduleTab&>(*tabs[1]));
}

void SaveAndReload(const Tabs& tabs, const std::shared_ptr<CNolSchedData>& record) {
    for (const auto& tab : tabs)
        if (!tab->IsTabValid("T")) return;
    for (const auto& tab : tabs) tab->SaveData();
    const auto again = LoadedTabs(record);
    Require(SentenceOf(again) == SentenceOf(tabs), "the sentence after a save");
    const auto isOn = [](PaviseTab& tab) { return tab.Field<CheckBox>("chkOverride").Value() == 1; };
    for (std::size_t i = 2; i < tabs.size(); ++i)
        Require(isOn(*again[i]) || !isOn(*tabs[i]), "an override that was saved");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Testing::InstalledWorld world;
    world.documents = {{1, "North", {"NOL Group"}}, {2, "Busy", {"NOL Group"}}, {5, "Busy", {"Scenario"}}};
    FuzzedDataProvider bytes(data, size);
    try {
        const auto record = RecordOf(bytes);
        const auto tabs = LoadedTabs(record);
        while (bytes.remaining_bytes() > 0) {
            const auto& fields = tabs[bytes.ConsumeIntegralInRange<std::size_t>(0, 5)]->Fields();
            ActOn(*fields[bytes.ConsumeIntegralInRange<std::size_t>(0, fields.size() - 1)], bytes);
        }
        SaveAndReload(tabs, record);
    } catch (const NolSchedError&) {
        // A record that no tab can show, told as it should be.
    }
    return 0;
}
