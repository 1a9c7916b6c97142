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

// The provider stands first, so that it ends after the services that it made.
struct ThreadServices {
    std::unique_ptr<ServiceProvider> provider;
    std::uint64_t generation = 0;
    std::unique_ptr<ILintelDb> lintelDb;
    std::unique_ptr<ICaddisStore> caddisStore;
    std::unique_ptr<IMessageService> messageService;
    std::unique_ptr<ICaddisPickerStates> caddisPickerStates;
    std::unique_ptr<ICaddisScenarios> caddisScenarios;
    std::unique_ptr<IDocumentTypes> documentTypes;
    std::unique_ptr<ICodeTables> codeTables;
    std::unique_ptr<IDayConversion> dayConversion;
    std::unique_ptr<IClock> clock;
    std::unique_ptr<IDateSettings> dateSettings;
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
Service& Used(std::unique_ptr<Service> ThreadServices::*member, const char* name,
              std::unique_ptr<Service> (ServiceProvider::*create)()) {
    ServiceProvider& provider = Provider(name);
    std::unique_ptr<Service>& service = (*threadServices).*member;
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

using Threads = ThreadServices;
using Makes = ServiceProvider;

ILintelDb& LintelDb() { return Used(&Threads::lintelDb, "LintelDb", &Makes::CreateLintelDb); }

ICaddisStore& CaddisStore() { return Used(&Threads::caddisStore, "CaddisStore", &Makes::CreateCaddisStore); }

IMessageService& MessageService() {
    return Used(&Threads::messageService, "MessageService", &Makes::CreateMessageService);
}

ICaddisPickerStates& CaddisPickerStates() {
    return Used(&Threads::caddisPickerStates, "CaddisPickerStates", &Makes::CreateCaddisPickerStates);
}

ICaddisScenarios& CaddisScenarios() {
    return Used(&Threads::caddisScenarios, "CaddisScenarios", &Makes::CreateCaddisScenarios);
}

IDocumentTypes& DocumentTypes() {
    return Used(&Threads::documentTypes, "DocumentTypes", &Makes::CreateDocumentTypes);
}

ICodeTables& CodeTables() { return Used(&Threads::codeTables, "CodeTables", &Makes::CreateCodeTables); }

IDayConversion& DayConversion() {
    return Used(&Threads::dayConversion, "DayConversion", &Makes::CreateDayConversion);
}

IClock& Clock() { return Used(&Threads::clock, "Clock", &Makes::CreateClock); }

IDateSettings& DateSettings() {
    return Used(&Threads::dateSettings, "DateSettings", &Makes::CreateDateSettings);
}

std::unique_ptr<ILintelFailureReport> LintelFailureReport() {
    return Provider("LintelFailureReport").CreateLintelFailureReport();
}

}  // namespace NolSchedCtls
