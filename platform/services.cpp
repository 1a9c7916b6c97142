#include "platform/services.h"

#include <utility>

#include "NolSchedCtls/base/text.h"
#include "platform/document_store.h"

namespace NolSchedCtls {

namespace {

// A statement whose values stand beside it: the engine keeps its plan for the next one of the same text.
struct Split {
    std::string text;
    Database::Values values;
};

class DatabaseLintel : public ILintelDb {
  public:
    explicit DatabaseLintel(std::shared_ptr<Database> databaseA) : database(std::move(databaseA)) {}

    void ExecuteStatement(std::string_view statement) override {
        const auto [text, values] = SplitOff(statement);
        const std::int64_t changed = database->Execute(text, values);
        if (changed == 0 && text.starts_with("INSERT")) database->FailUntaken();
    }

    // A connection has one source, one user and one kind of cursor; the query alone differs.
    std::unique_ptr<ILintelRows> OpenRows(const OpenRowsArguments& arguments) override {
        const auto [text, values] = SplitOff(arguments.sQuery);
        return database->Open(text, values);
    }

    std::string JoinValues(const std::vector<LintelValue>& values) const override {
        std::string literals =
            Joined(values, [this](const LintelValue& value) { return database->Literal(value); });
        joined = '(' + literals + ')';
        joinedValues = values;
        return literals;
    }

    LintelDateTime ImmediateDateTime() const override { return {Clock().Now(), true}; }

  private:
    // Splits off what changes from one statement of the records to the next: the values that were joined
    // last, or the one number that a column is compared to at the end.
    Split SplitOff(std::string_view statement) {
        Database::Values values = std::exchange(joinedValues, {});
        if (statement.starts_with("INSERT ") && !values.empty() && statement.ends_with(joined)) {
            std::string text(statement.substr(0, statement.size() - joined.size() + 1));
            for (std::size_t i = 1; i < values.size(); ++i) text += "?, ";
            return {std::move(text += "?)"), std::move(values)};
        }
        if (!statement.starts_with("SELECT ") && !statement.starts_with("DELETE "))
            return {std::string(statement), {}};
        const std::size_t end = statement.find_last_not_of("0123456789") + 1;
        const auto number = ParseWhole<std::int64_t>(statement.substr(end));
        if (!number || !statement.substr(0, end).ends_with(" = ")) return {std::string(statement), {}};
        return {std::string(statement.substr(0, end)) + '?', {*number}};
    }

    std::shared_ptr<Database> database;
    mutable std::string joined;  // in parentheses, as they end a statement
    mutable Database::Values joinedValues;
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
