#include "tests/library/fake_services.h"

#include <utility>

namespace NolSchedCtls::Testing {

namespace {

// What the traced services share: the world that they write to.
template <class Service>
struct Traced : Service {
    explicit Traced(World& worldA) : world(worldA) {}
    World& world;
};

struct TracedLintel : Traced<ILintelDb> {
    TracedLintel(World& worldA, std::unique_ptr<ILintelDb> memoryA)
        : Traced(worldA), memory(std::move(memoryA)) {}
    void ExecuteStatement(std::string_view sStatement) override {
        Trace(std::string(sStatement));
        memory->ExecuteStatement(sStatement);
    }
    std::unique_ptr<ILintelRows> OpenRows(const OpenRowsArguments& arguments) override {
        const bool plain = arguments == OpenRowsArguments{.sQuery = arguments.sQuery};
        Trace(arguments.sQuery + (plain ? "" : " (other arguments)"));
        return memory->OpenRows(arguments);
    }
    std::string JoinValues(const std::vector<LintelValue>& values) const override {
        return memory->JoinValues(values);
    }
    LintelDateTime ImmediateDateTime() const override { return memory->ImmediateDateTime(); }
    void Trace(const std::string& statement) const {
        world.trace += statement + "; ";
        if (++world.statements == world.failingStatement) throw NolSchedError("statement refused");
    }
    std::unique_ptr<ILintelDb> memory;
};

struct TracedReport : Traced<ILintelFailureReport> {
    using Traced::Traced;
    void ReportFailure(std::string_view sText) override {
        world.trace += "report" + std::string(sText) + "; ";
        if (world.onReport) world.onReport();
    }
};

struct TracedMessages : Traced<IMessageService> {
    using Traced::Traced;
    void Show(std::string_view sText, int nFlags, std::string_view sTitle, int nHelpFile,
              int nHelpContext) override {
        world.trace += std::string(sTitle) + "[" + std::to_string(nFlags) + "]: " + std::string(sText) +
                       (nHelpFile == 0 && nHelpContext == 0 ? "; " : " (help); ");
    }
};

struct TracedProvider : MemoryProvider {
    explicit TracedProvider(World& worldA)
        : MemoryProvider({std::shared_ptr<void>(), &worldA}), world(worldA) {}
    std::unique_ptr<ILintelDb> CreateLintelDb() override {
        return std::make_unique<TracedLintel>(world, MemoryProvider::CreateLintelDb());
    }
    std::unique_ptr<ILintelFailureReport> CreateLintelFailureReport() override {
        return std::make_unique<TracedReport>(world);
    }
    std::unique_ptr<IMessageService> CreateMessageService() override {
        return std::make_unique<TracedMessages>(world);
    }
    World& world;
};

}  // namespace

std::unique_ptr<ServiceProvider> MakeProvider(World& world) {
    return std::make_unique<TracedProvider>(world);
}

InstalledWorld::InstalledWorld() {
    InstallServices([this] {
        ++providers;
        return MakeProvider(*this);
    });
}

InstalledWorld::~InstalledWorld() { InstallServices({}); }

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
