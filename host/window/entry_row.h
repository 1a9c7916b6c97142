// What the main window's list knows of an entry. Small: a list may have a million of them.
#pragma once

#include <QExplicitlySharedDataPointer>
#include <QList>
#include <QSharedData>
#include <limits>
#include <optional>

#include "NolSchedCtls/services/provider.h"
#include "host/entries/entry_outlook.h"
#include "host/window/shared_text.h"

namespace NolSchedCtls {

struct EntryRow : QSharedData {
    enum Column {
        Id,
        Name,
        Group,
        Sentence,
        NextRun,
        State,
        Time,
        Except,
        Overrides,
        Start,
        End,
        Saved,
        columnCount
    };
    static constexpr DateTime never = std::numeric_limits<DateTime>::infinity();

    std::int64_t id = 0;
    DateTime start = 0;
    DateTime end = 0;
    DateTime savedAt = 0;
    DateTime next = never;
    QString name;
    SharedText group;
    SharedText sentence;
    SharedText state;
    SharedText except;
    SharedText overrides;
    SharedText savedBy;
    SharedText reason;  // why an entry never runs or cannot be shown
    bool isActive = false;
    bool hasDates = false;
    bool hasTime = false;
    std::optional<Recurrence> recurrence;  // none of an entry that has no runs, whatever its fields say
    Holidays holidays;

    // As it is shown.
    QString Text(int column) const;
    bool HasNext() const { return next != never; }
    // Of a row with a recurrence.
    Schedule Runs() const { return Schedule(*recurrence, holidays); }
};

// Rows never change once they are listed, so that a thread may read them. A copy of their list costs nothing
// until one of the two changes.
using RowPointer = QExplicitlySharedDataPointer<const EntryRow>;
using EntryRows = QList<RowPointer>;

RowPointer RowOf(const ListedEntry& entry, const EntryOutlook& outlook);
// The row once its next run has come.
RowPointer Advanced(const EntryRow& row, DateTime now);

QString EndText(DateTime end, IDateSettings& dates = DateSettings());

// Whether the word for an entry's state tells of a fault.
bool IsTrouble(const QString& state);

// A row as a screen reader says it, in the place of its name.
QString SpokenRow(const EntryRow& row);
// A text that is cut, and what stands in columns of its own.
QString TipOf(const EntryRow& row, int column);

QString HeadingOf(int column);

}  // namespace NolSchedCtls
