#include "host/window/entry_loader.h"

#include <QElapsedTimer>
#include <algorithm>

#include "NolSchedCtls/services/provider.h"
#include "host/window/accessibility.h"
#include "host/window/dialogs.h"

namespace NolSchedCtls {

namespace {

constexpr int firstPiece = 50;
constexpr int smallestPiece = 10;
constexpr int millisecondsAPiece = 25;  // short enough that typing and scrolling stay smooth

}  // namespace

EntryLoader::EntryLoader(Workspace& workspaceA, EntryList& listA) : workspace(workspaceA), list(listA) {
    connect(&timer, &QTimer::timeout, this, &EntryLoader::LoadPiece);
}

void EntryLoader::Start(int expected) {
    if (!Succeeds([this] { outlook.emplace(workspace); })) return;
    total = expected;
    list.Clear();
    early.clear();
    lastId = std::numeric_limits<std::int64_t>::min();
    pieceSize = firstPiece;
    timer.start(0);
}

bool EntryLoader::ReadPiece(EntryRows& piece) {
    const auto take = [&](const ListedEntry& entry) { piece.append(RowOf(entry, *outlook)); };
    const bool isRead = Succeeds([&] { workspace.Entries().ForEach(take, lastId, pieceSize); });
    isPartial = !isRead;
    return isRead && piece.size() == pieceSize;
}

// A screen reader is told of the last piece, which stands for all.
void EntryLoader::AppendPiece(const EntryRows& piece, bool hasMore) {
    std::optional<Silence> silence;
    if (hasMore) silence.emplace();
    list.Append(piece);
}

void EntryLoader::LoadPiece() {
    QElapsedTimer clock;
    clock.start();
    EntryRows piece;
    timer.stop();  // in a message box it would fire again
    const bool hasMore = ReadPiece(piece);
    if (hasMore) timer.start(0);
    if (!piece.empty()) lastId = piece.constLast()->id;
    piece.removeIf([this](const RowPointer& row) { return early.contains(row->id); });
    AppendPiece(piece, hasMore);
    const int slowness = std::max(1, static_cast<int>(clock.elapsed()));
    pieceSize = std::clamp(pieceSize * millisecondsAPiece / slowness, smallestPiece, pieceSize * 2);
    const auto loaded = static_cast<int>(list.Size());
    Q_EMIT Progress(loaded, std::max(total, loaded));
    if (hasMore) return;
    list.Sort();
    Q_EMIT Finished();
}

void EntryLoader::Reload(std::int64_t id) {
    bool isThere = false;
    const auto take = [&](const ListedEntry& entry) {
        isThere = entry.id == id;
        if (isThere) list.Put(RowOf(entry, *outlook));
    };
    if (!outlook) outlook.emplace(workspace);
    workspace.Entries().ForEach(take, id - 1, 1);
    list.Advance(Clock().Now());  // the outlook may be hours old
    if (!isThere) list.Remove(id);
    if (isThere && id > lastId) early.insert(id);
}

}  // namespace NolSchedCtls
