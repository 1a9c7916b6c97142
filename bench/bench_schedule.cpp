// A record of each kind through the schedule tab and back, beside an event of the same recurrence through
// libical.
#include <array>
#include <chrono>

#include "NolSchedCtls/tabs/schedule/nol_schedule_tab.h"
#include "bench/claims.h"
#include "bench/ical_event.h"
#include "bench/open_entry.h"

namespace {

using namespace NolSchedCtls;
using namespace NolSchedCtls::Bench;

struct Kind {
    const char* name;
    const char* code;
    int frequency;
    int monthDate;
    int week;
    int weekday;
    const char* rule;  // the same recurrence in iCalendar
};

constexpr std::array kinds = {
    Kind{"once", "O", 1, 0, 0, 1, ""},
    Kind{"hourly", "H", 2, 0, 0, 1, "RRULE:FREQ=HOURLY;INTERVAL=2;UNTIL=20271231T090000\r\n"},
    Kind{"daily", "D", 3, 0, 0, 1, "RRULE:FREQ=DAILY;INTERVAL=3;UNTIL=20271231T090000\r\n"},
    Kind{"weekly", "W", 40, 0, 0, 6, "RRULE:FREQ=WEEKLY;INTERVAL=40;BYDAY=FR;UNTIL=20271231T090000\r\n"},
    Kind{"monthly by day", "M", 2, 15, 0, 1,
         "RRULE:FREQ=MONTHLY;INTERVAL=2;BYMONTHDAY=15;UNTIL=20271231T090000\r\n"},
    Kind{"monthly by weekday", "A", 3, 0, 2, 2,
         "RRULE:FREQ=MONTHLY;INTERVAL=3;BYDAY=2MO;UNTIL=20271231T090000\r\n"},
};

std::shared_ptr<CNolSchedData> RecordOf(const Kind& kind) {
    auto record = StoredRecord();
    record->FinalDateTime = 46752.375;  // 2027-12-31 09:00
    record->Periodicity = kind.code;
    record->Frequency = kind.frequency;
    record->WhichMonthDate = kind.monthDate;
    record->WhichWeek = kind.week;
    record->WhichWeekday = kind.weekday;
    return record;
}

// Times the step alone, for one item of a batch that is made anew each time.
template <class Make, class Step>
void MeasureEach(const std::string& name, Make make, Step step) {
    using Clock = std::chrono::steady_clock;  // it costs no call of the system, which would disturb the step
    constexpr int batch = 16;
    benchmark::RegisterBenchmark(
        name.c_str(),
        [make, step](benchmark::State& state) {
            for (auto _ : state) {
                std::vector<decltype(make())> items;
                for (int i = 0; i < batch; ++i) items.push_back(make());
                const auto start = Clock::now();
                for (auto& item : items) step(item);
                state.SetIterationTime(std::chrono::duration<double>(Clock::now() - start).count() / batch);
            }
        })
        ->UseManualTime()
        ->Iterations(300);
}

void MeasureKind(const Kind& kind) {
    const std::string name(kind.name);
    const auto record = RecordOf(kind);
    const auto loadAndSave = [record](XNolScheduleTab& tab) {
        tab.LoadData(record, record->EditorName, nullptr);
        tab.SaveData();
    };
    MeasureEach(
        "tab " + name, [] { return std::make_unique<XNolScheduleTab>(); },
        [loadAndSave](const auto& tab) { loadAndSave(*tab); });
    MeasureEach(
        "ical " + name, [kind] { return EventOf(kind.rule); }, ParseAndPrint);
    Measure("made tab " + name, [loadAndSave] {
        XNolScheduleTab tab;
        loadAndSave(tab);
    });
}

}  // namespace

int main(int argc, char** argv) {
    UseMemory();
    std::vector<Claim> claims;
    for (const Kind& kind : kinds) {
        const std::string name(kind.name);
        MeasureKind(kind);
        claims.push_back({"load + save a schedule, " + name + " / libical", "tab " + name, "ical " + name,
                          0.5, "", "", true});
    }
    claims.push_back({"the same, weekly, and the tab made for it / libical", "made tab weekly", "ical weekly",
                      0.6, "", "", true});
    return RunClaims(argc, argv, claims);
}
