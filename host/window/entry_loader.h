// Fills the list from the store, a piece at a time between the user's events.
#pragma once

#include <QObject>
#include <QSet>
#include <QTimer>

#include "host/window/entry_list.h"

namespace NolSchedCtls {

class EntryLoader : public QObject {
    Q_OBJECT

  public:
    EntryLoader(Workspace& workspaceA, EntryList& listA);

    // From the first entry on, with the holidays as they are now; what the list holds goes, unless the store
    // fails at once. Stops with a message box where the store fails; what was loaded stays. About so many
    // entries are expected.
    void Start(int expected);
    bool IsLoading() const { return timer.isActive(); }
    // Reads one entry anew; one that is gone goes from the list. Throws StoreError.
    void Reload(std::int64_t id);
    // Whether holidays or settings are others than at the last start. Throws StoreError.
    bool IsOutlookOld() const { return !outlook || !outlook->IsLike(EntryOutlook(workspace)); }
    // Whether the last loading ended where the store failed.
    bool IsPartial() const { return isPartial; }
    // As of the last start.
    const HolidayDays& Days() const { return outlook->Days(); }

  Q_SIGNALS:
    void Progress(int loaded, int total);
    void Finished();

  private:
    void LoadPiece();
    void AppendPiece(const EntryRows& piece, bool hasMore);
    // True if there may be more after it. A failure is told, and keeps what was read before.
    bool ReadPiece(EntryRows& piece);

    Workspace& workspace;
    EntryList& list;
    std::optional<EntryOutlook> outlook;  // as of the last start
    QTimer timer;
    std::int64_t lastId = 0;
    int total = 0;
    int pieceSize = 0;
    bool isPartial = false;
    QSet<std::int64_t> early;  // in the list before the loading has come to them
};

}  // namespace NolSchedCtls
