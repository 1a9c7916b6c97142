#include "tests/library/fake_services.h"

#include <algorithm>
#include <utility>

namespace NolSchedCtls::Testing {

namespace {

class FakeRows : public ILintelRows {
  public:
    explicit FakeRows(std::vector<Row> rowsA) : rows(std::move(rowsA)) {}
    bool AtEnd() const override { return next == rows.size(); }
    void MoveNext() override { ++next; }
    LintelField Fields(std::string_view sColumn) const override {
        for (const auto& field : rows.at(next))
            if (EqualKeys(field.Name, sColumn)) return field;
        throw NolSchedError("no column " + std::string(sColumn));
    }

  private:
    std::vector<Row> rows;
    std::size_t next = 0;
};

// What all services of a test share: the world that they answer from and write to.
template <class Service>
struct Fake : Service {
    explicit Fake(World& worldA) : world(worldA) {}
    World& world;
};

struct Literal {
    std::string operator()(std::monostate) const { return "NULL"; }
    std::string operator()(auto number) const { return std::to_string(number); }
    std::string operator()(const std::string& text) const { return "'" + text + "'"; }
};

struct FakeLintel : Fake<ILintelDb> {
    using Fake::Fake;
    void ExecuteStatement(std::string_view sStatement) override { Run(std::string(sStatement)); }
    std::unique_ptr<ILintelRows> OpenRows(const OpenRowsArguments& arguments) override {
        const bool plain = arguments == OpenRowsArguments{.sQuery = arguments.sQuery};
        Run(arguments.sQuery + (plain ? "" : " (other arguments)"));
        return std::make_unique<FakeRows>(world.rows);
    }
    std::string JoinValues(const std::vector<LintelValue>& values) const override {
        std::string joined;
        for (const auto& value : values) joined += (joined.empty() ? "" : ",") + std::visit(Literal{}, value);
        return joined;
    }
    LintelDateTime ImmediateDateTime() const override { return {world.now, true}; }
    void Run(const std::string& statement) {
        world.trace += statement + "; ";
        if (++world.statements == world.failingStatement) throw NolSchedError("statement refused");
    }
};

struct FakeReport : Fake<ILintelFailureReport> {
    using Fake::Fake;
    void ReportFailure(std::string_view sText) override {
        world.trace += "report" + std::string(sText) + "; ";
    }
};

struct FakeStore : Fake<ICaddisStore> {
    using Fake::Fake;
    std::shared_ptr<const CaddisDocument> FindDocument(const CaddisDocumentType& type,
                                                       std::int32_t nId) override {
        for (const auto& document : DocumentsOfType(type))
            if (document->Id == nId) return document;
        return nullptr;
    }
    std::vector<std::shared_ptr<const CaddisDocument>> DocumentsOfType(
        const CaddisDocumentType& type) override {
        std::vector<std::shared_ptr<const CaddisDocument>> found;
        for (const auto& document : world.documents)
            if (document.DocumentType == type) found.push_back(std::make_shared<CaddisDocument>(document));
        return found;
    }
    CaddisUser CurrentUser() override { return world.user; }
};

struct FakeMessages : Fake<IMessageService> {
    using Fake::Fake;
    void Show(std::string_view sText, int nFlags, std::string_view sTitle, int nHelpFile,
              int nHelpContext) override {
        world.trace += std::string(sTitle) + "[" + std::to_string(nFlags) + "]: " + std::string(sText) +
                       (nHelpFile == 0 && nHelpContext == 0 ? "; " : " (help); ");
    }
};

struct FakeClock : Fake<IClock> {
    using Fake::Fake;
    DateTime Now() override { return world.now; }
};

struct FakeProvider : Fake<ServiceProvider> {
    using Fake::Fake;
    std::unique_ptr<ILintelDb> CreateLintelDb() override { return std::make_unique<FakeLintel>(world); }
    std::unique_ptr<ILintelFailureReport> CreateLintelFailureReport() override {
        return std::make_unique<FakeReport>(world);
    }
    std::unique_ptr<ICaddisStore> CreateCaddisStore() override { return std::make_unique<FakeStore>(world); }
    std::unique_ptr<IMessageService> CreateMessageService() override {
        return std::make_unique<FakeMessages>(world);
    }
    std::unique_ptr<IClock> CreateClock() override { return std::make_unique<FakeClock>(world); }
};

}  // namespace

std::unique_ptr<ServiceProvider> MakeProvider(World& world) { return std::make_unique<FakeProvider>(world); }

InstalledWorld::InstalledWorld() {
    InstallServices([this] {
        ++providers;
        return MakeProvider(*this);
    });
}

InstalledWorld::~InstalledWorld() { InstallServices({}); }

Row OverrideRow(std::int64_t id, const std::string& type, std::int64_t scenario, std::int64_t duration,
                std::int64_t polling, std::int64_t delay, const std::string& clearLog) {
    const auto number = [](std::int64_t value) { return value == 0 ? LintelValue{} : LintelValue{value}; };
    return {{"NOL_OverrideId", id},
            {"Type", type},
            {"ScenarioId", number(scenario)},
            {"Duration", number(duration)},
            {"Polling_Interval", number(polling)},
            {"Retrieve_Delay", number(delay)},
            {"ClearLog", clearLog}};
}

void TraceControl(World& world, UserControl& control) {
    control.FocusMoved.Connect([&world](ViewField& field) { world.trace += "focus " + field.Name() + "; "; });
    control.Beep.Connect([&world](ViewField& field) { world.trace += "beep " + field.Name() + "; "; });
}

OpenEntry::OpenEntry() : notify(std::make_shared<CPaviseNotify>()) {
    documents = {{5, "North", {"NOL Group"}},
                 {0, "Zero", {"NOL Group"}},
                 {0, "Nought", {"Scenario"}},
                 {12, "Baseline", {"Scenario"}},
                 {13, "Busy", {"Scenario"}}};
    const auto call = [this](const char* name) {
        return [this, name](const std::string& sTabName, bool fState) {
            trace += std::string(name) + " " + sTabName + (fState ? " on; " : " off; ");
        };
    };
    notify->Changed.Connect([this] { trace += "MarkChanged; "; });
    notify->TabShown.Connect([this](const std::string& sTabName) { trace += "ShowTab " + sTabName + "; "; });
    notify->TabOverride.Connect(call("SetTabOverride"));
    notify->PaviseStateChange.Connect(call("SetTabState"));
}

std::string OpenEntry::Valid(IPaviseControl& tab) {
    const bool valid = tab.IsTabValid("T");
    return TakeTrace() + (valid ? "valid" : "refused");
}

std::string OpenEntry::Load(IPaviseControl& tab) {
    tab.LoadData(record, "", notify);
    return TakeTrace();
}

std::shared_ptr<CNolOverride> MakeOverride(const std::string& type, std::int32_t scenario,
                                           std::int32_t duration) {
    auto item = std::make_shared<CNolOverride>();
    item->Initialize(42, type, scenario, duration, 0, 5, "log");
    return item;
}

std::string FlagsOf(const CNolSchedData& record) {
    return record.HomOvr + "," + record.PlmOvr + "," + record.RfcOvr + "," + record.VcsOvr;
}

std::string OverridesOf(const CNolSchedData& record) {
    std::ostringstream text;
    for (const auto& [key, item] : record.Overrides())
        text << key << "=" << item->NOL_OverrideId << " " << item->OverrideType << " " << item->ScenarioId
             << " " << item->Duration << " " << item->Polling_Interval << " " << item->Retrieve_Delay << " "
             << item->ClearLog << "; ";
    return text.str();
}

}  // namespace NolSchedCtls::Testing
