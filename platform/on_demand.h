// Functions of a library that is loaded when the first of them is called: what most starts do not need costs
// them nothing, and a machine may lack it.
#pragma once

#include <dlfcn.h>

#include <string>

#include "NolSchedCtls/base/error.h"

namespace NolSchedCtls {

inline void* LoadedSymbol(void* library, const char* name) {
    void* const symbol = library == nullptr ? nullptr : dlsym(library, name);
    if (symbol == nullptr) throw NolSchedError("A library cannot be loaded: " + std::string(dlerror()));
    return symbol;
}

}  // namespace NolSchedCtls

// An object, so that a call does not find the function of the same name outside. Throws NolSchedError where
// the library cannot be loaded.
#define NOLSCHED_ON_DEMAND(library, name)                                 \
    inline constexpr auto name = [](auto... given) {                      \
        static const auto loaded = reinterpret_cast<decltype(&::name)>(   \
            LoadedSymbol(dlopen(library, RTLD_NOW | RTLD_LOCAL), #name)); \
        return loaded(given...);                                          \
    }
