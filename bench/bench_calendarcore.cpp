// The schedule tab and the outlook beside KCalendarCore, a second calendar library, where it is installed. It
// needs another Qt than the window's, so it has a program of its own.
#include <cstdio>

#include "bench/claims.h"

#ifdef HAS_CALENDARCORE
#include <KCalendarCore/ICalFormat>

#include "NolSchedCtls/tabs/schedule/nol_schedule_tab.h"
#include "bench/ical_event.h"
#include "bench/open_entry.h"
#include "outlook/schedule.h"
#endif

namespace {

using namespace NolSchedCtls::Bench;

const std::vector<Claim> claims = {
    {"load + save a schedule, weekly / KCalendarCore", "tab", "event", 0.5, "", "", true},
    {"a year of runs, weekly / KCalendarCore", "runs", "occurrences", 0.05, "", "", true}};

}  // namespace

#ifdef HAS_CALENDARCORE

int main(int argc, char** argv) {
    using namespace NolSchedCtls;
    constexpr DateTime begun = 46083.375;  // 2026-03-02 09:00
    UseMemory();
    const auto record = StoredRecord();  // every second Monday
    XNolScheduleTab tab;
    Measure("tab", [&tab, record] {
        tab.LoadData(record, record->EditorName, nullptr);
        tab.SaveData();
    });
    Measure("runs", [schedule = Schedule(*record)] {
        for (const DateTime run : schedule.RunsBetween(begun, begun + 364)) benchmark::DoNotOptimize(run);
    });

    const std::string text = EventOf("RRULE:FREQ=WEEKLY;INTERVAL=2;BYDAY=MO\r\n");
    const QString calendar =
        QString::fromStdString("BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:x\r\n" + text + "END:VCALENDAR\r\n");
    KCalendarCore::ICalFormat format;
    Measure("event", [&format, calendar] {
        benchmark::DoNotOptimize(format.toString(format.fromString(calendar)).size());
    });
    const auto event = format.fromString(calendar);
    const QDateTime from(QDate(2026, 3, 2), QTime(9, 0));
    Measure("occurrences", [event, from] {
        benchmark::DoNotOptimize(event->recurrence()->timesInInterval(from, from.addDays(364)).size());
    });
    return RunClaims(argc, argv, claims);
}

#else

int main() {
    for (const Claim& claim : claims)
        std::printf("skipped  %s: KCalendarCore is not installed\n", claim.work.c_str());
    return 0;
}

#endif
