#include "host/window/outlook_line.h"

#include <QLocale>
#include <QStyle>

#include "NolSchedCtls/base/app_constants.h"
#include "NolSchedCtls/services/provider.h"
#include "host/window/entry_list.h"
#include "host/window/qt_text.h"
#include "host/window/run_text.h"

namespace NolSchedCtls {

namespace {

constexpr int runsTold = 2;
constexpr int runsCounted = 1000;

QString NextRunsText(const Schedule& schedule, const CNolSchedData& record, DateTime now) {
    const bool hasEnd = DateOf(record.FinalDateTime) != MAppConstants::NoEndDate;
    const int most = hasEnd ? runsCounted : runsTold;
    QStringList told;
    int count = 0;
    for (const DateTime at : schedule.RunsBetween(now + second, DateTimeOf(latestMoment))) {
        if (++count <= runsTold) told.append(RunText(at, now));
        if (count > most) break;
    }
    QString text = u"Next: "_s + told.join(u", "_s);
    if (count <= runsTold) return record.Periodicity == "O" ? text : text + u", then no more"_s;
    text += u", ..."_s;
    if (!hasEnd) return text;
    const QString counted =
        count > runsCounted ? u"more than %1"_s.arg(QLocale().toString(runsCounted)) : QString::number(count);
    return text + u" %1 until %2"_s.arg(counted, DateText(record.FinalDateTime));
}

// Nothing of a new entry has run.
QString PastText(const CNolSchedData& record, bool isNew) {
    if (!isNew) return u"Ended: no run is to come"_s;
    if (record.Periodicity != "O")
        return u"Would not run: none is to come until "_s + DateText(record.FinalDateTime);
    return u"Would not run: %1 has passed"_s.arg(DateText(record.FirstDateTime) + u' ' +
                                                 TimeText(record.FirstDateTime));
}

}  // namespace

OutlookLine::OutlookLine(EntrySession& sessionA, QWidget* parent) : QLabel(parent), session(sessionA) {
    setObjectName(u"outlook"_s);
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setAlignment(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter));
    setText(u" "_s);  // takes its place from the start
    delay.setSingleShot(true);
    connect(&delay, &QTimer::timeout, this, &OutlookLine::Show);
}

void OutlookLine::Reread() {
    outlook.reset();
    trouble.clear();
    Follow();
}

// A failure is told once and stays: an act must not wait for a slow store each time.
void OutlookLine::ReadOutlook() {
    if (outlook || !trouble.isEmpty()) return;
    try {
        outlook.emplace(session.Home());
    } catch (const std::exception& error) {
        trouble = u"The outlook cannot be read: "_s + ToQt(error.what());
    }
}

OutlookLine::Line OutlookLine::ViewedLine() {
    ReadOutlook();
    if (!outlook) return {trouble, true};
    const auto record = session.ViewedRecord();
    const DateTime now = Clock().Now();
    const Schedule schedule = outlook->ScheduleOf(*record);
    const EntryState state = StateAt(schedule, now);
    if (state.next) return {NextRunsText(schedule, *record, now), false};
    if (state.text == TextOf(RunState::Ended)) return {PastText(*record, session.Record().IsNew), false};
    const QString text = ToQt(state.text);
    return {state.reason.empty() ? text : text + u": "_s + ToVisible(state.reason), IsTrouble(text)};
}

void OutlookLine::Show() {
    Line line;
    try {
        line = ViewedLine();
    } catch (const NolSchedError& error) {  // a text that does not convert
        line = {ToQt(error.what()), true};
    }
    setForegroundRole(line.isTrouble ? QPalette::BrightText : QPalette::WindowText);
    setText(line.text);
}

}  // namespace NolSchedCtls
