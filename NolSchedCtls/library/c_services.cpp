#include "NolSchedCtls/library/c_services.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <utility>

#include "NolSchedCtls/base/text.h"
#include "NolSchedCtls/library/c_calls.h"
#include "NolSchedCtls/services/memory_services.h"

namespace NolSchedCtls::inline v1::C {

namespace {

thread_local std::string reports;

[[noreturn]] void TellFailed(const char* callBack, const std::string& how) {
    throw CallError(NOLSCHED_HOST_FAILED, "The call-back " + std::string(callBack) + " " + how);
}

using Row = MemoryStore::Row;

// A call-back that the host has given. It may replace the services, so what works on with its answer works on
// a copy.
struct Asked {
    const char* name;
    NolSchedAsked call;
    void* host;

    std::vector<Row> Rows(std::string_view text) const {
        const auto answer = std::make_shared<Answer>();
        const Handle handle(answer);
        const char* const asked = name;
        const std::int32_t result = call(host, std::string(text).c_str(), handle.number);
        if (!answer->failure.empty()) TellFailed(asked, "answered what cannot be taken: " + answer->failure);
        if (result == NOLSCHED_OK) return std::move(answer->rows);
        const LintelField* const why =
            answer->rows.empty() ? nullptr : FindField(answer->rows.front(), "Failure");
        TellFailed(asked, "failed" + (why == nullptr ? " (" + std::to_string(result) + ")."
                                                     : ": " + FieldToText(*why)));
    }

    std::string Column(const Row& row, const char* column) const {
        const LintelField* const field = FindField(row, column);
        if (field != nullptr && field->Value != LintelValue()) return FieldToText(*field);
        TellFailed(name, "answered without the column " + std::string(column) + ".");
    }

    std::string OneText(const char* column, std::string_view text = {}) const {
        const Asked asked = *this;
        const std::vector<Row> rows = Rows(text);
        return asked.Column(rows.empty() ? Row() : rows.front(), column);
    }

    [[noreturn]] void TellNonsense(const char* column, const std::string& text) const {
        TellFailed(name, "answered the " + std::string(column) + " " + Quoted(text) + ".");
    }

  private:
    // The answer's, until the call-back has returned.
    struct Handle {
        explicit Handle(std::shared_ptr<Answer> answer) : number(Keep(std::move(answer))) {}
        Handle(const Handle&) = delete;
        Handle& operator=(const Handle&) = delete;
        ~Handle() { Drop(number); }
        const NolSchedHandle number;
    };
};

// What is wrong with the rows is wrong with the call-back's answer.
auto OfQuery(auto step) {
    try {
        return step();
    } catch (const NolSchedError& error) {
        TellFailed("Query", std::string("answered what makes no sense: ") + error.what());
    }
}

struct CalledRows : ILintelRows {
    explicit CalledRows(std::vector<Row> answered) : rows(RowsInMemory(std::move(answered))) {}
    bool AtEnd() const override { return rows->AtEnd(); }
    void MoveNext() override { rows->MoveNext(); }
    LintelField Fields(std::string_view sColumn) const override {
        return OfQuery([&] { return rows->Fields(sColumn); });
    }
    const std::unique_ptr<ILintelRows> rows;
};

struct CalledLintel : ILintelDb {
    CalledLintel(const NolSchedServices& services, std::unique_ptr<ILintelDb> memoryA)
        : execute{"Execute", services.Execute, services.host},
          query{"Query", services.Query, services.host},
          literal{"Literal", services.Literal, services.host},
          memory(std::move(memoryA)) {}

    void ExecuteStatement(std::string_view sStatement) override {
        if (execute.call == nullptr) return memory->ExecuteStatement(sStatement);
        execute.Rows(sStatement);
    }
    std::unique_ptr<ILintelRows> OpenRows(const OpenRowsArguments& arguments) override {
        if (query.call == nullptr) return memory->OpenRows(arguments);
        return std::make_unique<CalledRows>(query.Rows(arguments.sQuery));
    }
    std::int32_t FieldToNumber(const LintelField& field, std::int32_t nFallback) const override {
        return OfQuery([&] { return ILintelDb::FieldToNumber(field, nFallback); });
    }
    std::string JoinValues(const std::vector<LintelValue>& values) const override {
        return Joined(values, [asked = literal, memory = memory](const LintelValue& value) {
            const auto* const text = std::get_if<std::string>(&value);
            return text == nullptr || asked.call == nullptr ? memory->JoinValues({value})
                                                            : asked.OneText("Literal", *text);
        });
    }
    LintelDateTime ImmediateDateTime() const override { return memory->ImmediateDateTime(); }

    Asked execute;
    Asked query;
    Asked literal;
    std::shared_ptr<ILintelDb> memory;
};

struct CalledReport : ILintelFailureReport {
    explicit CalledReport(const NolSchedServices& services)
        : report{"Report", services.Report, services.host} {}
    void ReportFailure(std::string_view sText) override {
        const std::string text = std::string(sText) + failure;
        reports += (reports.empty() ? "" : "\n") + text;
        if (report.call == nullptr) return;
        try {
            report.Rows(text);
        } catch (...) {
            reports += "\n" + PresentFailure();
        }
    }
    Asked report;
    std::string failure = PresentFailure();
};

struct CalledCaddis : ICaddisStore {
    CalledCaddis(const NolSchedServices& services, std::unique_ptr<ICaddisStore> memoryA)
        : documents{"Documents", services.Documents, services.host},
          settings{"Settings", services.Settings, services.host},
          memory(std::move(memoryA)) {}

    std::vector<std::shared_ptr<const CaddisDocument>> DocumentsOfType(
        const CaddisDocumentType& type) override {
        if (documents.call == nullptr) return memory->DocumentsOfType(type);
        const Asked asked = documents;
        std::vector<std::shared_ptr<const CaddisDocument>> found;
        for (const Row& row : asked.Rows(type.Name)) {
            const std::string text = asked.Column(row, "Id");
            const auto id = ParseWhole(text);
            if (!id) asked.TellNonsense("Id", text);
            found.push_back(
                std::make_shared<CaddisDocument>(CaddisDocument{*id, asked.Column(row, "Name"), type}));
        }
        return found;
    }
    std::shared_ptr<const CaddisDocument> FindDocument(const CaddisDocumentType& type,
                                                       std::int32_t nId) override {
        const auto all = DocumentsOfType(type);
        const auto found =
            std::find_if(all.begin(), all.end(), [nId](const auto& document) { return document->Id == nId; });
        return found == all.end() ? nullptr : *found;
    }
    CaddisUser CurrentUser() override {
        if (settings.call == nullptr) return memory->CurrentUser();
        CaddisUser user;
        for (const Row& row : settings.Rows({}))
            for (const LintelField& field : row) user.Settings[field.Name] = FieldToText(field);
        return user;
    }

    Asked documents;
    Asked settings;
    std::unique_ptr<ICaddisStore> memory;
};

struct CalledMessages : IMessageService {
    explicit CalledMessages(const NolSchedServices& servicesA) : services(servicesA) {}
    void Show(std::string_view sText, int nFlags, std::string_view sTitle, int /*nHelpFile*/,
              int /*nHelpContext*/) override {
        const std::int32_t result =
            services.Message(services.host, std::string(sText).c_str(), nFlags, std::string(sTitle).c_str());
        if (result != NOLSCHED_OK) TellFailed("Message", "failed (" + std::to_string(result) + ").");
    }
    const NolSchedServices services;
};

struct CalledClock : IClock {
    explicit CalledClock(const NolSchedServices& services) : now{"Now", services.Now, services.host} {}
    DateTime Now() override {
        const Asked asked = now;
        const std::string text = asked.OneText("Now");
        try {
            return ParseIso(text);
        } catch (const ValueError&) {
            asked.TellNonsense("Now", text);
        }
    }
    Asked now;
};

// A host of one language has one store for all its threads; what is in memory is each thread's own.
class CalledProvider : public MemoryProvider {
  public:
    explicit CalledProvider(const NolSchedServices& servicesA)
        : MemoryProvider(std::make_shared<MemoryStore>()), services(servicesA) {}

    std::unique_ptr<ILintelDb> CreateLintelDb() override {
        return std::make_unique<CalledLintel>(services, MemoryProvider::CreateLintelDb());
    }
    std::unique_ptr<ILintelFailureReport> CreateLintelFailureReport() override {
        return std::make_unique<CalledReport>(services);
    }
    std::unique_ptr<ICaddisStore> CreateCaddisStore() override {
        return std::make_unique<CalledCaddis>(services, MemoryProvider::CreateCaddisStore());
    }
    std::unique_ptr<IMessageService> CreateMessageService() override {
        if (services.Message == nullptr) return MemoryProvider::CreateMessageService();
        return std::make_unique<CalledMessages>(services);
    }
    std::unique_ptr<IClock> CreateClock() override {
        if (services.Now == nullptr) return MemoryProvider::CreateClock();
        return std::make_unique<CalledClock>(services);
    }
    std::unique_ptr<IDateSettings> CreateDateSettings() override {
        if (services.DateOrder == nullptr) return MemoryProvider::CreateDateSettings();
        constexpr std::array<std::string_view, 3> orders = {"MDY", "DMY", "YMD"};  // as DateFieldOrder
        const Asked order{"DateOrder", services.DateOrder, services.host};
        const std::string text = order.OneText("Order");
        const auto found = std::find(orders.begin(), orders.end(), text);
        if (found == orders.end()) order.TellNonsense("Order", text);
        return MakeDateSettings(static_cast<DateFieldOrder>(found - orders.begin()));
    }

  private:
    const NolSchedServices services;
};

}  // namespace

// A host that was made for an earlier library has fewer call-backs.
void InstallCalledServices(const NolSchedServices& services) {
    if (services.size < offsetof(NolSchedServices, Execute) || services.size % sizeof(NolSchedAsked) != 0)
        throw CallError(NOLSCHED_BAD_VALUE, "The size " + std::to_string(services.size) +
                                                " of NolSchedServices is not the end of a call-back.");
    NolSchedServices known{};
    std::memcpy(&known, &services, std::min(services.size, sizeof(known)));
    InstallServices([known] { return std::make_unique<CalledProvider>(known); });
}

std::string TakeReports() { return std::exchange(reports, {}); }

}  // namespace NolSchedCtls::inline v1::C
