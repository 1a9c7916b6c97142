// The library as a host loads it at run time: four entry points and what they hand out.
//
// A host opens the shared library, looks up DllGetClassObject and asks for a class by its name; once
// DllRegisterServer has run in the process, by its program identifier too. It may close the library again
// while DllCanUnloadNow gives componentOk: every object that was made inside counts, the overrides of a save,
// too. Its code stays mapped as long as a thread lives that has called it. The static archive has no entry
// points.
#pragma once

#include <cstdint>

#include "NolSchedCtls/base/export.h"
#include "NolSchedCtls/library/catalogue.h"

namespace NolSchedCtls::inline v1 {

// Hands out one class. Lives as long as the library.
class NOLSCHED_API IClassObject {
  public:
    virtual const PublishedClass& Published() const = 0;
    // A new object, counted as alive until its last holder ends. Throws what the creation throws.
    virtual PublishedObject CreateInstance() const = 0;

  protected:
    ~IClassObject() = default;
};

inline constexpr const char* classObjectInterface = "IClassObject";

enum ComponentResult : std::int32_t {
    componentOk = 0,
    componentNo = 1,            // DllCanUnloadNow: objects are alive
    componentNoClass = -1,      // no such class, or a program identifier that is not registered
    componentNoInterface = -2,  // a class object offers classObjectInterface alone
    componentBadPointer = -3,   // a name or the place for the result is missing
};

// The entry points, by what they are; safe from any thread. They are looked up by name and declared nowhere
// here: some platforms' own headers declare the same names otherwise.
using DllRegisterServerFunction = std::int32_t();
using DllUnregisterServerFunction = std::int32_t();
// Puts an IClassObject* into *ppObject, for NOLSCHED_C_CLASS the table of c_interface.h, or nothing on a
// failure.
using DllGetClassObjectFunction = std::int32_t(const char* sClass, const char* sInterface, void** ppObject);
using DllCanUnloadNowFunction = std::int32_t();

}  // namespace NolSchedCtls::inline v1
