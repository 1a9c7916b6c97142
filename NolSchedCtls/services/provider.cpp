#include "NolSchedCtls/services/provider.h"

#include <atomic>
#include <mutex>
#include <string>
#include <utility>

namespace NolSchedCtls::inline v1 {

const char NOLSCHED_CONTAINERS = 0;

namespace {

struct Installation {
    std::mutex mutex;
    ProviderFactory factory;
    std::atomic<std::uint64_t> generation = 1;
};

Installation& TheInstallation() {
    static Installation installation;
    return installation;
}

template <class Service>
struct Holder {
    void End() {
        hasEnded = true;
        service.reset();
    }

    std::unique_ptr<Service> service;
    bool hasEnded = false;  // while all of them end
};

template <class... Services>
struct Made : Holder<Services>... {
    // From the last to the first, so that each may still use those before it: of an assignment the right side
    // is done first.
    void End() {
        int order = 0;
        ((Holder<Services>::End(), order) = ... = 0);
        ((Holder<Services>::hasEnded = false), ...);
    }
};

struct ThreadServices {
    ThreadServices() = default;
    ThreadServices(const ThreadServices&) = delete;
    ThreadServices& operator=(const ThreadServices&) = delete;
    ~ThreadServices() { End(); }

    // What a service uses at its end is the services of its own provider, not of the next one.
    void End() {
        isEnding = true;
        made.End();
        provider.reset();
        isEnding = false;
        generation = 0;
    }

    std::unique_ptr<ServiceProvider> provider;
    std::uint64_t generation = 0;  // of the installation; 0: none yet
    bool isMaking = false;
    bool isEnding = false;
    Made<ILintelDb, ICaddisStore, IMessageService, ICaddisPickerStates, ICaddisScenarios, IDocumentTypes,
         ICodeTables, IDayConversion, IClock, IDateSettings>
        made;
};

#ifdef __MINGW32__
// Its runtime frees what a thread's variables hold before it ends them: the variable is a pointer alone.
extern "C" int __cxa_thread_atexit(void (*end)(void*), void* object, void* library);
extern "C" void* __dso_handle;

thread_local ThreadServices* threadServices = nullptr;

void EndOfThread(void* services) {
    threadServices = static_cast<ThreadServices*>(services);  // for services that use others as they end
    delete threadServices;
    threadServices = nullptr;
}

ThreadServices& OfThread() {
    if (threadServices == nullptr) {
        threadServices = new ThreadServices;
        __cxa_thread_atexit(EndOfThread, threadServices, &__dso_handle);
    }
    return *threadServices;
}
#else
ThreadServices& OfThread() {
    thread_local ThreadServices services;
    return services;
}
#endif

template <class Error = NolSchedError>
[[noreturn]] void TellMissing(const char* service, const char* why) {
    throw Error(std::string("The service ") + service + " is not there: " + why);
}

// The factory is the host's: it may take its time, use other threads and fail, and holds up nobody else.
void MakeProvider(const char* service) {
    Installation& installation = TheInstallation();
    OfThread().End();
    ProviderFactory factory;
    std::uint64_t generation = 0;
    {
        const std::lock_guard lock(installation.mutex);
        factory = installation.factory;
        generation = installation.generation;
    }
    if (!factory) TellMissing<NoServicesError>(service, "no services are installed (InstallServices).");
    struct Making {
        Making() { OfThread().isMaking = true; }
        ~Making() { OfThread().isMaking = false; }
    } const making;
    auto provider = factory();
    if (!provider) TellMissing(service, "the installed factory made no provider.");
    OfThread().provider = std::move(provider);
    OfThread().generation = generation;
}

ServiceProvider& Provider(const char* service) {
    const ThreadServices& services = OfThread();
    if (services.isMaking) TellMissing(service, "its provider is being made.");
    if (!services.isEnding && services.generation != TheInstallation().generation) MakeProvider(service);
    if (!services.provider) TellMissing(service, "its provider has ended.");
    return *services.provider;
}

template <class Service>
Service& Make(Holder<Service>& made, const char* name,
              std::unique_ptr<Service> (ServiceProvider::*create)()) {
    ServiceProvider& provider = Provider(name);
    if (made.hasEnded) TellMissing(name, "it has ended.");
    if (!made.service) made.service = (provider.*create)();
    if (!made.service) TellMissing(name, "the provider made none.");
    return *made.service;
}

template <class Service>
Service& Used(const char* name, std::unique_ptr<Service> (ServiceProvider::*create)()) {
    ThreadServices& services = OfThread();
    Holder<Service>& made = services.made;
    if (made.service && services.generation == TheInstallation().generation) return *made.service;
    return Make(made, name, create);
}

}  // namespace

void InstallServices(ProviderFactory factory) {
    Installation& installation = TheInstallation();
    {
        const std::lock_guard lock(installation.mutex);
        installation.factory = std::move(factory);
        ++installation.generation;
    }
    OfThread().End();
}

using Makes = ServiceProvider;

ILintelDb& LintelDb() { return Used("LintelDb", &Makes::CreateLintelDb); }
ICaddisStore& CaddisStore() { return Used("CaddisStore", &Makes::CreateCaddisStore); }
IMessageService& MessageService() { return Used("MessageService", &Makes::CreateMessageService); }
ICaddisPickerStates& CaddisPickerStates() {
    return Used("CaddisPickerStates", &Makes::CreateCaddisPickerStates);
}
ICaddisScenarios& CaddisScenarios() { return Used("CaddisScenarios", &Makes::CreateCaddisScenarios); }
IDocumentTypes& DocumentTypes() { return Used("DocumentTypes", &Makes::CreateDocumentTypes); }
ICodeTables& CodeTables() { return Used("CodeTables", &Makes::CreateCodeTables); }
IDayConversion& DayConversion() { return Used("DayConversion", &Makes::CreateDayConversion); }
IClock& Clock() { return Used("Clock", &Makes::CreateClock); }
IDateSettings& DateSettings() { return Used("DateSettings", &Makes::CreateDateSettings); }

std::unique_ptr<ILintelFailureReport> LintelFailureReport() {
    constexpr const char* name = "LintelFailureReport";
    auto report = Provider(name).CreateLintelFailureReport();
    if (!report) TellMissing(name, "the provider made none.");
    return report;
}

}  // namespace NolSchedCtls::inline v1
