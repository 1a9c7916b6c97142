#include "host/window/entry_row.h"

#include <array>

#include "NolSchedCtls/base/app_constants.h"
#include "NolSchedCtls/toolkit/date_text.h"
#include "host/entries/entry_sentence.h"
#include "host/window/qt_text.h"
#include "host/window/run_text.h"
#include "outlook/description.h"

namespace NolSchedCtls {

namespace {

struct ShownColumn {
    const char* heading;
    QString (*text)(const EntryRow& row);
};

template <auto member>
QString SharedTextOf(const EntryRow& row) {
    return (row.*member).Text();
}

QString SavedText(const EntryRow& row) {
    const QString& who = row.savedBy.Text();
    return row.savedAt == 0 ? who : who + u", "_s + ShortRunText(row.savedAt);
}

constexpr std::array<ShownColumn, EntryRow::columnCount> shownColumns = {
    ShownColumn{"Id", [](const EntryRow& row) { return QString::number(row.id); }},
    ShownColumn{"Name", [](const EntryRow& row) { return row.name; }},
    ShownColumn{"Group", SharedTextOf<&EntryRow::group>},
    ShownColumn{"Schedule", SharedTextOf<&EntryRow::sentence>},
    ShownColumn{"Next run",
                [](const EntryRow& row) { return row.HasNext() ? ShortRunText(row.next) : QString(); }},
    ShownColumn{"State", SharedTextOf<&EntryRow::state>},
    ShownColumn{"At", [](const EntryRow& row) { return row.hasTime ? TimeText(row.start) : QString(); }},
    ShownColumn{"Not on", SharedTextOf<&EntryRow::except>},
    ShownColumn{"Overrides", SharedTextOf<&EntryRow::overrides>},
    ShownColumn{
        "Start",
        [](const EntryRow& row) { return row.hasDates ? ToQt(ShortDateText(row.start)) : QString(); }},
    ShownColumn{"End", [](const EntryRow& row) { return row.hasDates ? EndText(row.end) : QString(); }},
    ShownColumn{"Saved", SavedText},
};

const ShownColumn& KindOf(int column) { return shownColumns[static_cast<std::size_t>(column)]; }

std::string KindsText(const ListedEntry& entry) {
    constexpr std::string_view study = " Study";
    std::string text;
    for (const std::string& kind : entry.kinds) {
        text += text.empty() ? "" : ", ";
        text += kind;
        if (const auto at = text.rfind(study); kind.ends_with(study)) text.erase(at);
    }
    return text;
}

void SetState(EntryRow& row, const EntryState& state) {
    row.next = state.next.value_or(EntryRow::never);
    row.reason = SharedText(state.reason);
    row.state = SharedText(state.text);
}

}  // namespace

QString EntryRow::Text(int column) const { return KindOf(column).text(*this); }

RowPointer RowOf(const ListedEntry& entry, const EntryOutlook& outlook) {
    const CNolSchedData& record = *entry.record;
    const Sentence sentence = SentenceOf(entry);
    auto* const row = new EntryRow;
    RowPointer made(row);
    row->id = entry.id;
    row->start = record.FirstDateTime;
    row->end = record.FinalDateTime;
    row->savedAt = entry.savedAt;
    row->name = ToVisible(record.EditorName);
    row->group = SharedText(entry.group);
    row->sentence = SharedText(sentence.text);
    row->except = SharedText(ExceptionsText(record, outlook.Settings()));
    row->overrides = SharedText(KindsText(entry));
    row->savedBy = SharedText(entry.savedBy);
    row->isActive = record.ScheduleActive == "Y";
    row->hasDates = entry.trouble.empty();
    row->hasTime = sentence.trouble.empty() && !record.IsOverride();
    if (!IsRunnable(entry, sentence.trouble)) {
        SetState(*row, outlook.StateOf(entry, sentence.trouble));
        return made;
    }
    const Schedule schedule = outlook.ScheduleOf(record);
    row->recurrence = schedule.Rule();
    row->holidays = outlook.HolidaysExcluded();
    SetState(*row, outlook.StateOf(schedule));
    return made;
}

RowPointer Advanced(const EntryRow& row, DateTime now) {
    auto* const advanced = new EntryRow(row);
    SetState(*advanced, StateAt(row.Runs(), now));
    return RowPointer(advanced);
}

QString EndText(DateTime end, IDateSettings& dates) {
    return DateOf(end) == MAppConstants::NoEndDate ? u"No end"_s : ToQt(ShortDateText(end, dates));
}

bool IsTrouble(const QString& state) {
    static const QStringList troubles = {ToQt(TextOf(RunState::NeverRuns)),
                                         ToQt(TextOf(RunState::Unreadable)), ToQt(groupMissing)};
    return troubles.contains(state);
}

QString SpokenRow(const EntryRow& row) {
    QString spoken =
        u"%1, %2: %3. %4"_s.arg(row.name, row.group.Text(), row.sentence.Text(), row.state.Text());
    if (!row.reason.Text().isEmpty()) spoken += u": "_s + row.reason.Text();
    if (row.HasNext()) spoken += u", next run "_s + row.Text(EntryRow::NextRun);
    const QString& overrides = row.overrides.Text();
    return overrides.isEmpty() ? spoken : spoken + u". Overrides: "_s + overrides;
}

QString TipOf(const EntryRow& row, int column) {
    QString tip = row.Text(column);
    if (column == EntryRow::State && !row.reason.Text().isEmpty()) tip += u": "_s + row.reason.Text();
    if (column != EntryRow::Sentence) return tip;
    if (row.hasTime) tip += u" at "_s + row.Text(EntryRow::Time);
    if (!row.except.Text().isEmpty()) tip += u", not on "_s + row.except.Text();
    return tip;
}

QString HeadingOf(int column) { return QString::fromUtf8(KindOf(column).heading); }

}  // namespace NolSchedCtls
