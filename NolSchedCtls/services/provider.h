// How a host gives its services to the library, and how the library reaches them.
//
// Call order: InstallServices once, before the first record or tab; then each thread makes every service at
// its first use, from a provider of its own.
#pragma once

#include <functional>
#include <memory>

#include "NolSchedCtls/base/error.h"
#include "NolSchedCtls/base/export.h"
#include "NolSchedCtls/services/caddis.h"
#include "NolSchedCtls/services/clock.h"
#include "NolSchedCtls/services/code_tables.h"
#include "NolSchedCtls/services/date_settings.h"
#include "NolSchedCtls/services/day_conversion.h"
#include "NolSchedCtls/services/lintel.h"
#include "NolSchedCtls/services/message_service.h"

// A host whose standard containers are checked (_GLIBCXX_DEBUG) has others than this library was built with:
// that ends at the link, not in the middle of a run.
#ifdef _GLIBCXX_DEBUG
#define NOLSCHED_CONTAINERS containersWithChecks
#else
#define NOLSCHED_CONTAINERS containersWithoutChecks
#endif

namespace NolSchedCtls::inline v1 {

extern NOLSCHED_API const char NOLSCHED_CONTAINERS;
[[gnu::used]] inline const char* const sameContainers = &NOLSCHED_CONTAINERS;

// Makes the services of one thread. Those with a body here serve any host as they are.
class NOLSCHED_API ServiceProvider {
  public:
    virtual ~ServiceProvider() = default;

    virtual std::unique_ptr<ILintelDb> CreateLintelDb() = 0;
    virtual std::unique_ptr<ILintelFailureReport> CreateLintelFailureReport() = 0;
    virtual std::unique_ptr<ICaddisStore> CreateCaddisStore() = 0;
    virtual std::unique_ptr<IMessageService> CreateMessageService() = 0;

    virtual std::unique_ptr<ICaddisPickerStates> CreateCaddisPickerStates();  // kept in memory
    virtual std::unique_ptr<ICaddisScenarios> CreateCaddisScenarios();        // the type "Scenario"
    virtual std::unique_ptr<IDocumentTypes> CreateDocumentTypes();            // a type for each name
    virtual std::unique_ptr<ICodeTables> CreateCodeTables();                  // English texts
    virtual std::unique_ptr<IDayConversion> CreateDayConversion();            // by CodeTables' DayNames
    virtual std::unique_ptr<IClock> CreateClock();                            // the system's local time
    virtual std::unique_ptr<IDateSettings> CreateDateSettings();              // the month first
};

// What is thrown for a service while none are installed.
class NOLSCHED_API NoServicesError : public NolSchedError {
  public:
    using NolSchedError::NolSchedError;
};

using ProviderFactory = std::function<std::unique_ptr<ServiceProvider>()>;

// Replaces the factory of the process; an empty one takes the services away. The calling thread's services
// end at once, those of another thread at its next use of any. May be called from any thread.
NOLSCHED_API void InstallServices(ProviderFactory factory);

// The calling thread's services, good until the next InstallServices. Each throws NolSchedError while none
// are installed, while the factory makes their provider, and where the provider gives none. A service may use
// others as it ends: those that stand before it in this list.
NOLSCHED_API ILintelDb& LintelDb();
NOLSCHED_API ICaddisStore& CaddisStore();
NOLSCHED_API IMessageService& MessageService();
NOLSCHED_API ICaddisPickerStates& CaddisPickerStates();
NOLSCHED_API ICaddisScenarios& CaddisScenarios();
NOLSCHED_API IDocumentTypes& DocumentTypes();
NOLSCHED_API ICodeTables& CodeTables();
NOLSCHED_API IDayConversion& DayConversion();
NOLSCHED_API IClock& Clock();
NOLSCHED_API IDateSettings& DateSettings();

// A new report for the failure that is being handled.
NOLSCHED_API std::unique_ptr<ILintelFailureReport> LintelFailureReport();

}  // namespace NolSchedCtls::inline v1
