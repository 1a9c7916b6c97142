#include "NolSchedCtls/services/provider.h"

#include <atomic>
#include <mutex>
#include <optional>
#include <string>
#include <utility>

namespace NolSchedCtls {

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
    std::unique_ptr<Service> service;
};

// Ends the services from the last to the first, so that each may still use the database.
template <class... Services>
struct Made : Holder<Services>... {};

// The provider stands first, so that it ends after the services that it made.
struct ThreadServices {
    std::unique_ptr<ServiceProvider> provider;
    std::uint64_t generation = 0;
    Made<ILintelDb, ICaddisStore, IMessageService, ICaddisPickerStates, ICaddisScenarios, IDocumentTypes,
         ICodeTables, IDayConversion, IClock, IDateSettings>
        made;
};

thread_local std::optional<ThreadServices> threadServices;

ThreadServices& Services() {
    Installation& installation = TheInstallation();
    if (!threadServices || threadServices->generation != installation.generation) {
        const std::lock_guard lock(installation.mutex);
        threadServices.reset();
        auto provider = installation.factory ? installation.factory() : nullptr;
        threadServices.emplace().provider = std::move(provider);
        threadServices->generation = installation.generation;
    }
    return *threadServices;
}

ServiceProvider& Provider(const char* service) {
    ThreadServices& services = Services();
    if (!services.provider)
        throw NolSchedError(std::string("The service ") + service +
                            " is not there: no services are installed (InstallServices).");
    return *services.provider;
}

template <class Service>
Service& Used(const char* name, std::unique_ptr<Service> (ServiceProvider::*create)()) {
    ServiceProvider& provider = Provider(name);
    auto& service = static_cast<Holder<Service>&>(threadServices->made).service;
    if (!service) service = (provider.*create)();
    return *service;
}

}  // namespace

void InstallServices(ProviderFactory factory) {
    Installation& installation = TheInstallation();
    {
        const std::lock_guard lock(installation.mutex);
        installation.factory = std::move(factory);
        ++installation.generation;
    }
    threadServices.reset();
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
    return Provider("LintelFailureReport").CreateLintelFailureReport();
}

}  // namespace NolSchedCtls
