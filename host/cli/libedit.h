// The library that edits lines at a terminal: only a prompt loads it.
#pragma once

#include <histedit.h>

#include "platform/on_demand.h"

namespace NolSchedCtls::Libedit {

constexpr const char* libraryName = "libedit.so.2";

#define NOLSCHED_LIBEDIT(name) NOLSCHED_ON_DEMAND(libraryName, name)

NOLSCHED_LIBEDIT(el_end);
NOLSCHED_LIBEDIT(el_get);
NOLSCHED_LIBEDIT(el_gets);
NOLSCHED_LIBEDIT(el_init);
NOLSCHED_LIBEDIT(el_insertstr);
NOLSCHED_LIBEDIT(el_line);
NOLSCHED_LIBEDIT(el_set);
NOLSCHED_LIBEDIT(el_source);
NOLSCHED_LIBEDIT(el_wset);
NOLSCHED_LIBEDIT(history);
NOLSCHED_LIBEDIT(history_end);
NOLSCHED_LIBEDIT(history_init);

#undef NOLSCHED_LIBEDIT

// For the editor, which calls it itself.
inline void* HistoryFunction() { return LoadedSymbol(dlopen(libraryName, RTLD_NOW | RTLD_LOCAL), "history"); }

}  // namespace NolSchedCtls::Libedit
