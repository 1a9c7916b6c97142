#include "platform/services.h"

#include "NolSchedCtls/base/text.h"
#include "platform/document_store.h"

namespace NolSchedCtls {

namespace {

class DatabaseLintel : public ILintelDb {
  public:
    explicit DatabaseLintel(std::shared_ptr<Database> databaseA) : database(std::move(databaseA)) {}

    void ExecuteStatement(std::string_view statement) override { database->Execute(statement); }

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

class CallbackReport : public ILintelFailureReport {
  public:
    explicit CallbackReport(std::function<void(const std::string&)> tellA)
        : tell(std::move(tellA)), failure(PresentFailure()) {}

    void ReportFailure(std::string_view text) override { tell(std::string(text) + failure); }

  private:
    std::function<void(const std::string&)> tell;
    std::string failure;
};

class CallbackMessages : public IMessageService {
  public:
    explicit CallbackMessages(std::function<void(const Message&)> showA) : show(std::move(showA)) {}

    void Show(std::string_view text, int flags, std::string_view title, int /*helpFile*/,
              int /*helpContext*/) override {
        show({std::string(text), flags, std::string(title)});
    }

  private:
    std::function<void(const Message&)> show;
};

class CallbackClock : public IClock {
  public:
    explicit CallbackClock(std::function<DateTime()> nowA) : now(std::move(nowA)) {}
    DateTime Now() override { return now(); }

  private:
    std::function<DateTime()> now;
};

class PlatformProvider : public ServiceProvider {
  public:
    PlatformProvider(std::shared_ptr<Database> databaseA, HostServices hostA)
        : database(std::move(databaseA)), host(std::move(hostA)) {}

    std::unique_ptr<ILintelDb> CreateLintelDb() override {
        return std::make_unique<DatabaseLintel>(database);
    }
    std::unique_ptr<ILintelFailureReport> CreateLintelFailureReport() override {
        return std::make_unique<CallbackReport>(host.reportFailure);
    }
    std::unique_ptr<ICaddisStore> CreateCaddisStore() override {
        return std::make_unique<DocumentStore>(database);
    }
    std::unique_ptr<IMessageService> CreateMessageService() override {
        return std::make_unique<CallbackMessages>(host.showMessage);
    }
    std::unique_ptr<IClock> CreateClock() override {
        if (!host.now) return ServiceProvider::CreateClock();
        return std::make_unique<CallbackClock>(host.now);
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
