// What is done to entries as a whole, one or several at once, without an editor.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "host/entries/workspace.h"

namespace NolSchedCtls {

struct NamedEntry {
    std::int32_t id = 0;
    std::string name;
};

// Does the act to each, in one transaction: all or nothing. What it throws becomes a RequestError, or a
// StoreError of the same kind, that names the entry. No message is shown meanwhile: that of a tab which
// refuses an entry is to be thrown. After each entry it tells how many are done; false gives all of it up,
// which throws RequestError.
void DoToAll(
    Workspace& workspace, const std::vector<NamedEntry>& entries,
    const std::function<void(std::int32_t id)>& act,
    const std::function<bool(int done)>& goesOn = [](int) { return true; });

// Each throws RequestError for an entry that is not there or that refuses the act, StoreError and
// OvertakenError, and writes what it names, nothing else. An end that has passed is no reason to refuse.

// Asks no page: also of an entry that none can show.
void SetActive(Workspace& workspace, std::int32_t id, bool isActive);
// As the general page offers it.
void SetGroup(Workspace& workspace, std::int32_t id, const std::string& group);
// By days and parts of a day, where all pages then take the entry. The end stays on its day, at the time of
// day of the runs.
void ShiftStart(Workspace& workspace, std::int32_t id, DateTime days);
// Of what the pages show, as an editor copies it. Gives the Id of the copy.
std::int32_t Duplicate(Workspace& workspace, std::int32_t id);

}  // namespace NolSchedCtls
