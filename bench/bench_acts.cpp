// A user's acts on the schedule tab in its slowest modes, beside the refill of a QComboBox with the same
// entries.
#include <QApplication>
#include <QComboBox>

#include "NolSchedCtls/tabs/schedule/nol_schedule_tab.h"
#include "bench/claims.h"
#include "bench/open_entry.h"

namespace {

using namespace NolSchedCtls;
using namespace NolSchedCtls::Bench;

struct OpenTab {
    OpenTab() {
        tab.LoadData(StoredRecord(), "", std::make_shared<CPaviseNotify>());
        if (!tab.chkEndDate.Click()) throw NolSchedError("The entry has no end date to change.");
    }
    XNolScheduleTab tab;
};

// What a user does there and back again, so that each step finds the same state.
struct Act {
    const char* name;
    const char* period;  // the mode in which it is done
    bool (*there)(XNolScheduleTab&);
    bool (*back)(XNolScheduleTab&);
    DropDownList XNolScheduleTab::*refilled[2];  // none: the mode's longest list stands against it
};

constexpr DropDownList XNolScheduleTab::*none = nullptr;
constexpr auto frequency = &XNolScheduleTab::cboFrequency;
constexpr auto dayName = &XNolScheduleTab::cboDayName;
constexpr auto dayNum = &XNolScheduleTab::cboDayNum;

constexpr Act acts[] = {
    {"mode to Weekly and to Monthly",
     "Monthly",
     [](auto& t) { return t.cboPeriod.Pick("Weekly"); },
     [](auto& t) { return t.cboPeriod.Pick("Monthly"); },
     {frequency, dayName}},
    {"day name to Monday and to Day",
     "Monthly",
     [](auto& t) { return t.cboDayName.Pick("Monday"); },
     [](auto& t) { return t.cboDayName.Pick("Day"); },
     {dayNum, none}},
    {"day number to 9th and to 2nd",
     "Monthly",
     [](auto& t) { return t.cboDayNum.Pick("9th"); },
     [](auto& t) { return t.cboDayNum.Pick("2nd"); },
     {dayName, none}},
    {"frequency",
     "Weekly",
     [](auto& t) { return t.cboFrequency.Pick("52"); },
     [](auto& t) { return t.cboFrequency.Pick("1"); },
     {none, none}},
    {"end date on and off",
     "Weekly",
     [](auto& t) { return t.chkEndDate.Click(); },
     [](auto& t) { return t.chkEndDate.Click(); },
     {none, none}},
    {"excluded day",
     "Hourly",
     [](auto& t) { return t.cbExcludeDay[3].Click(); },
     [](auto& t) { return t.cbExcludeDay[3].Click(); },
     {none, none}},
    {"start date from the calendar",
     "Weekly",
     [](auto& t) { return t.SSDStartDate.PickDate(46100); },
     [](auto& t) { return t.SSDStartDate.PickDate(46101); },
     {none, none}},
    {"start date typed",
     "Weekly",
     [](auto& t) { return t.SSDStartDate.TypeText("3/9/2026"); },
     [](auto& t) { return t.SSDStartDate.TypeText("Tuesday, March 10, 2026"); },
     {none, none}},
    {"start time",
     "Weekly",
     [](auto& t) { return t.dtpStartTime.PickTime(9, 5); },
     [](auto& t) { return t.dtpStartTime.PickTime(21, 30); },
     {none, none}},
};

void Refill(QComboBox& combo, const QStringList& entries) {
    combo.clear();
    for (const QString& entry : entries) combo.addItem(entry);
    combo.setCurrentIndex(0);
}

QStringList ToQt(const std::vector<std::string>& entries) {
    QStringList texts;
    for (const auto& entry : entries) texts.append(QString::fromStdString(entry));
    return texts;
}

// The entries of the lists that the act refills, as they stand after it; else of the mode's longest list.
std::vector<QStringList> EntriesAfter(XNolScheduleTab& tab, const Act& act) {
    std::vector<QStringList> lists;
    for (const auto list : act.refilled)
        if (list != nullptr) lists.push_back(ToQt((tab.*list).Entries()));
    if (lists.empty()) lists.push_back(ToQt(tab.cboFrequency.Entries()));
    return lists;
}

void Do(bool (*act)(XNolScheduleTab&), XNolScheduleTab& tab) {
    if (!act(tab)) throw NolSchedError("The tab refuses the act.");
}

void MeasureAct(const Act& act) {
    const std::string name(act.name);
    const auto open = std::make_shared<OpenTab>();
    open->tab.cboPeriod.Pick(act.period);
    Do(act.there, open->tab);
    auto lists = EntriesAfter(open->tab, act);
    Do(act.back, open->tab);
    for (auto& list : EntriesAfter(open->tab, act)) lists.push_back(list);
    Measure(name, [open, act] {
        Do(act.there, open->tab);
        Do(act.back, open->tab);
    });
    const auto combo = std::make_shared<QComboBox>();
    Measure("combo " + name, [combo, lists] {
        for (const auto& list : lists) Refill(*combo, list);
    });
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    UseMemory();
    std::vector<Claim> claims;
    for (const Act& act : acts) {
        MeasureAct(act);
        claims.push_back({std::string("act: ") + act.name + " / refill of a QComboBox", act.name,
                          std::string("combo ") + act.name, 0.3, "", "", true});
    }
    return RunClaims(argc, argv, claims);
}
