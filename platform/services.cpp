#include "platform/services.h"

#include "NolSchedCtls/base/text.h"
#include "platform/document_store.h"

namespace NolSchedCtls {

namespace {

class DatabaseLintel : public ILintelDb {
  public:
    explicit DatabaseLintel(std::shared_ptr<Database> databaseA) : database(std::move(databaseA)) {}

    void ExecuteStatement(std::string_view statement) override {
        if (statement.starts_with("INSERT"))
            database->Insert(statement);
        else
            database->Execute(statement);
    }

    // A connection has one source, one user and one kind of cursor; the query alone differs.
    std::unique_ptr<ILintelRows> OpenRows(const OpenRowsArguments& arguments) override {
        return database->Open(arguments.sQuery);
    }

    std::string JoinValues(const std::vector<LintelValue>& values) const override {
        return Joined(values, [this](const LintelValue& value) { return database->Literal(value); });
    }

    LintelDateTime ImmediateDateTime() const override { return {Clock().Now(), true}; }

  private:
    std::shared_ptr<Database> database;
};

// A service of which the host decides the one thing that it does.
template <class Service>
struct OfHost : Service {
    explicit OfHost(HostServices hostA) : host(std::move(hostA)) {}
    HostServices host;
};

struct HostReport : OfHost<ILintelFailureReport> {
    using OfHost::OfHost;
    void ReportFailure(std::string_view text) override { host.reportFailure(std::string(text) + failure); }
    std::string failure = PresentFailure();
};

struct HostMessages : OfHost<IMessageService> {
    using OfHost::OfHost;
    void Show(std::string_view text, int flags, std::string_view title, int /*helpFile*/,
              int /*helpContext*/) override {
        host.showMessage({std::string(text), flags, std::string(title)});
    }
};

struct HostClock : OfHost<IClock> {
    HostClock(const HostServices& hostA, std::unique_ptr<IClock> systemA)
        : OfHost(hostA), system(std::move(systemA)) {}
    DateTime Now() override {
        if (host.asOf && *host.asOf) return **host.asOf;
        return host.now ? host.now() : system->Now();
    }
    std::unique_ptr<IClock> system;
};

class PlatformProvider : public ServiceProvider {
  public:
    PlatformProvider(std::shared_ptr<Database> databaseA, HostServices hostA)
        : database(std::move(databaseA)), host(std::move(hostA)) {}

    std::unique_ptr<ILintelDb> CreateLintelDb() override {
        return std::make_unique<DatabaseLintel>(database);
    }
    std::unique_ptr<ILintelFailureReport> CreateLintelFailureReport() override {
        return std::make_unique<HostReport>(host);
    }
    std::unique_ptr<ICaddisStore> CreateCaddisStore() override {
        return std::make_unique<DocumentStore>(database);
    }
    std::unique_ptr<IMessageService> CreateMessageService() override {
        return std::make_unique<HostMessages>(host);
    }
    std::unique_ptr<IClock> CreateClock() override {
        return std::make_unique<HostClock>(host, ServiceProvider::CreateClock());
    }
    std::unique_ptr<IDateSettings> CreateDateSettings() override {
        return MakeDateSettings(host.region.dateOrder, host.region.firstDayOfWeek);
    }

  private:
    std::shared_ptr<Database> database;
    HostServices host;
};

}  // namespace

std::unique_ptr<ServiceProvider> MakePlatformProvider(std::shared_ptr<Database> database, HostServices host) {
    return std::make_unique<PlatformProvider>(std::move(database), std::move(host));
}

}  // namespace NolSchedCtls
