#include <gtest/gtest.h>

#include "NolSchedCtls/base/app_constants.h"
#include "NolSchedCtls/library/catalogue.h"
#include "NolSchedCtls/records/entry_columns.h"
#include "NolSchedCtls/tabs/contract/pavise_tab.h"
#include "NolSchedCtls/tabs/override/nol_sched_override_tab.h"
#include "NolSchedCtls/tabs/schedule/nol_schedule_tab.h"
#include "tests/library/test_schedule_tools.h"

namespace NolSchedCtls::Testing {
namespace {

class HostError : public NolSchedError {
  public:
    using NolSchedError::NolSchedError;
};

// Services of which some are not there, fail, or use others as they end.
class FaultyProvider : public MemoryProvider {
  public:
    explicit FaultyProvider(std::string& traceA)
        : MemoryProvider(std::make_shared<MemoryStore>()), trace(traceA) {}
    std::unique_ptr<ICaddisStore> CreateCaddisStore() override {
        struct WithoutDocuments : ICaddisStore {
            using Document = std::shared_ptr<const CaddisDocument>;
            Document FindDocument(const CaddisDocumentType& /*type*/, std::int32_t /*nId*/) override {
                return {};
            }
            std::vector<Document> DocumentsOfType(const CaddisDocumentType& /*type*/) override {
                return {nullptr};
            }
            CaddisUser CurrentUser() override { return {}; }
        };
        return std::make_unique<WithoutDocuments>();
    }
    std::unique_ptr<ILintelFailureReport> CreateLintelFailureReport() override { return nullptr; }
    std::unique_ptr<IDocumentTypes> CreateDocumentTypes() override { return nullptr; }
    std::unique_ptr<ILintelDb> CreateLintelDb() override {
        struct WithoutRows : ILintelDb {
            void ExecuteStatement(std::string_view /*sStatement*/) override {}
            std::unique_ptr<ILintelRows> OpenRows(const OpenRowsArguments& /*arguments*/) override {
                return {};
            }
            std::string JoinValues(const std::vector<LintelValue>& /*values*/) const override { return {}; }
            LintelDateTime ImmediateDateTime() const override { return {}; }
        };
        return std::make_unique<WithoutRows>();
    }
    std::unique_ptr<IClock> CreateClock() override {
        struct Failing : IClock {
            explicit Failing(std::string& traceA) : trace(traceA) {}
            ~Failing() override {
                CaddisStore();
                trace = FailureOf([] { DateSettings(); });
            }
            DateTime Now() override { throw HostError("the clock stands still"); }
            std::string& trace;
        };
        return std::make_unique<Failing>(trace);
    }
    std::string& trace;
};

TEST(HostFaults, InServicesAreNamed) {
    std::string trace;
    InstallServices([] { return std::unique_ptr<ServiceProvider>(); });
    EXPECT_EQ(FailureOf([] { Clock(); }),
              "The service Clock is not there: the installed factory made no provider.");
    InstallServices([&]() -> std::unique_ptr<ServiceProvider> {
        CaddisStore();
        return {};
    });
    EXPECT_EQ(FailureOf([] { Clock(); }),
              "The service CaddisStore is not there: its provider is being made.");
    InstallServices([&] { return std::make_unique<FaultyProvider>(trace); });
    EXPECT_EQ(FailureOf([] { DocumentTypes(); }),
              "The service DocumentTypes is not there: the provider made none.");
    EXPECT_EQ(FailureOf([] { LintelFailureReport(); }),
              "The service LintelFailureReport is not there: the provider made none.");
    EXPECT_EQ(FailureOf([] { CNolSchedData().InitEdit(LaterArguments()); }),
              "The database gave no rows of overrides, not even an empty set.");
    UserControl control;
    XMarlet picker(control, "picker", "Scenario");
    picker.RestoreState(std::make_shared<MarletState>(MarletState{{"Scenario"}}));
    EXPECT_EQ(FailureOf([&] { picker.Paste("North"); }),
              "The store gave a document of the type \"Scenario\" that is not there.");
    Clock();
    InstallServices({});
    EXPECT_EQ(trace, "The service DateSettings is not there: it has ended.") << "the store had not";
}

TEST(HostFaults, KeepTheirTypeWhileATabLoads) {
    std::string trace;
    InstallServices([&] { return std::make_unique<FaultyProvider>(trace); });
    const auto record = std::make_shared<CNolSchedData>();
    record->FirstDateTime = 46083;
    record->Periodicity = "D";
    record->Frequency = 1;
    record->FinalDateTime = MAppConstants::NoEndDate + 86399.6 / 86400;  // no end to the last half second
    XNolScheduleTab tab;
    EXPECT_THROW(tab.LoadData(record, "", nullptr), HostError);
    InstallServices({});
}

TEST(HostFaults, DoNoHarmToATab) {
    OpenEntry open;
    open.record->InitNew(nullptr, false, 5, "Nightly");
    for (const auto& published : PublishedClasses().subspan(2)) {
        const auto tab = CreateControl(published.sProgId);
        EXPECT_EQ(FailureOf([&] { tab->LoadData(nullptr, "", nullptr); }), "There is no record to load.");
        const auto isRefused = [&](const std::string& why) {
            EXPECT_EQ(open.Valid(*tab), "T[16]: " + why + "; refused") << published.sProgId;
            EXPECT_EQ(FailureOf([&] { tab->SaveData(); }), why) << published.sProgId;
        };
        isRefused("The tab has no record; LoadData comes first.");
        const auto fail = [] { throw HostError("no such widget"); };
        for (int i = 0; i < 2; ++i) {
            ++open.record->FirstDateTime, ++open.record->PurgeInterval;
            const ScopedConnection change = open.notify->Changed.Connect(fail);
            const ScopedConnection state =
                open.notify->PaviseStateChange.Connect([&](auto&, bool) { fail(); });
            EXPECT_THROW(tab->LoadData(open.record, "", open.notify), HostError) << published.sProgId;
            open.TakeTrace();
            isRefused("The tab has no record: LoadData did not succeed.");
            tab->LoadData(open.record, "", nullptr);
            tab->IsTabValid("T");
            EXPECT_EQ(open.TakeTrace().find("no record"), std::string::npos) << published.sProgId;
        }
    }
    EXPECT_EQ(FailureOf([] { XNolSchedPlmOvr().Label1(2); }), "The tab has no Label1(2).");
    EXPECT_EQ(FailureOf([&] { open.notify->Changed.Connect({}); }), "An event takes no empty handler.");
    XNolScheduleTab tab;
    tab.LoadData(open.record, "", nullptr);
    for (CheckBox& box : tab.cbExcludeDay) box.SetValue(1);
    tab.Frame1.SetEnabled(false);
    EXPECT_FALSE(tab.IsTabValid("T")) << "the start date cannot take the focus";
    tab.Frame1.SetEnabled(true);
    tab.FocusMoved.Connect([](ViewField&) { throw std::runtime_error("no such widget"); });
    EXPECT_FALSE(tab.IsTabValid("T"));
}

// What a handler of each event does: it ends itself, connects another, writes, asks, and leaves the end of
// the tabs to the host's queue.
TEST(HostFaults, AHandlerMayDoAllButEndItsTab) {
    struct Tabs {
        XNolSchedHomOvr hom;
        XNolScheduleTab schedule;
    };
    using Connect = Connection (*)(CPaviseNotify&, Tabs&, const std::function<void()>&);
    const Connect events[] = {
        [](auto& notify, auto&, const auto& act) { return notify.Changed.Connect(act); },
        [](auto& notify, auto&, const auto& act) {
            return notify.PaviseStateChange.Connect([act](auto&, bool) { act(); });
        },
        [](auto&, auto& tabs, const auto& act) {
            return tabs.hom.FocusMoved.Connect([act](auto&) { act(); });
        },
        [](auto&, auto& tabs, const auto& act) {
            return tabs.hom.FieldChanged.Connect([act](auto&, auto) { act(); });
        },
        [](auto&, auto& tabs, const auto& act) { return tabs.schedule.cboPeriod.Clicked.Connect(act); }};
    for (const Connect connect : events) {
        OpenEntry open;
        open.record->InitNew(nullptr, false, 5, "Nightly");
        auto tabs = std::make_unique<Tabs>();
        open.Load(tabs->hom);
        open.Load(tabs->schedule);
        std::vector<std::function<void()>> queue;
        int heard = 0;
        Connection connection = connect(*open.notify, *tabs, [&] {
            connection.Disconnect();
            connect(*open.notify, *tabs, [&] { ++heard; });
            tabs->schedule.cboPeriod.SetText("Monthly");
            tabs->hom.txtDuration.SetText("9");
            tabs->hom.chkOverride.SetValue(1);
            tabs->hom.IsTabValid("T");
            queue.emplace_back([&] { tabs.reset(); });
        });
        for (int i = 0; i < 2; ++i) tabs->hom.chkOverride.Click(), tabs->schedule.cboPeriod.Pick("Daily");
        EXPECT_GT(heard, 0);
        ASSERT_EQ(queue.size(), 1) << "it is heard, and once";
        queue.front()();
        open.notify->SetTabOverride("HOM Study", true);
        open.notify->MarkChanged();
    }
}

// Whichever event of a change fails, the tab saves what was before the change or what is after it, or
// refuses and leaves the record; the next load shows all.
TEST(HostFaults, AChangeThatIsCutShortIsNotSaved) {
    using Change = void (*)(XNolScheduleTab&);
    const std::pair<std::function<Record()>, Change> changes[] = {
        {[] { return RecordOf("D"); }, [](auto& tab) { tab.cboPeriod.Pick("Monthly"); }},
        {[] { return RecordOf("D"); }, [](auto& tab) { tab.cboPeriod.Pick("Weekly"); }},
        {[] { return RecordOf("M", 1, 5); }, [](auto& tab) { tab.cboDayNum.Pick("7th"); }}};
    const InstalledWorld world;
    for (const auto& [before, change] : changes) {
        OpenTab whole(before());
        const std::string had = whole.Saved();
        change(whole.tab);
        const std::string has = whole.Saved();
        bool hasFailed = true;
        for (int failing = 0; hasFailed; ++failing) {
            OpenTab open(before());
            const std::string stored = FieldsOf(*open.record);
            int events = 0;
            const auto fail = [&] {
                if (events++ == failing) throw HostError("no such widget");
            };
            const ScopedConnection changed = open.tab.FieldChanged.Connect([&](auto&, auto) { fail(); });
            const ScopedConnection told = open.notify->Changed.Connect(fail);
            hasFailed = FailureOf([&, &act = change] { act(open.tab); }) != "no failure";
            events = failing + 1;
            const bool isRefused = FailureOf([&] { open.tab.SaveData(); }) != "no failure";
            const std::string saved = FieldsOf(*open.record);
            EXPECT_TRUE(isRefused ? saved == stored : saved == had || saved == has)
                << failing << ": " << saved;
            open.tab.LoadData(RecordOf("M", 1, 5), "", nullptr);
            EXPECT_EQ(ScheduleSentence(open.tab), "Monthly on the 5th Day of every 1 month(s)");
            open.tab.cboDayName.Pick("Monday");
            EXPECT_EQ(open.tab.cboDayNum.Entries().size(), 5) << failing << ": the lists are in step";
        }
    }
}

TEST(HostFaults, AListThatIsEmptiedOutlivesTheServices) {
    const InstalledWorld world;
    OpenTab open(RecordOf("D"));
    open.tab.FieldChanged.Connect([](auto&, FieldPart part) {
        if (part == FieldPart::Entries) InstallMemoryServices();
    });
    EXPECT_TRUE(open.tab.cboPeriod.Pick("Monthly"));
    EXPECT_EQ(ScheduleSentence(open.tab), "Monthly on the 1st Day of every 1 month(s)");
}

// Who hears that a field has lost the focus takes it back, or shuts the field that it went to.
TEST(HostFaults, TheFocusStandsWhereAHandlerHasPutIt) {
    const InstalledWorld world;
    OpenTab open(RecordOf("D"));
    std::string moves;
    open.tab.SSDStartDate.SetFocus();
    open.tab.FocusMoved.Connect([&](const ViewField& field) { moves += field.Name() + " "; });
    ScopedConnection left = open.tab.FocusLeft.Connect([&](ViewField& field) {
        if (&field == &open.tab.SSDStartDate) field.SetFocus();
    });
    open.tab.dtpStartTime.SetFocus();
    EXPECT_EQ(moves + open.tab.FocusedField()->Name(), "SSDStartDate SSDStartDate");
    left = open.tab.FocusLeft.Connect([&](auto&) { open.tab.dtpStartTime.SetEnabled(false); });
    EXPECT_FALSE(open.tab.dtpStartTime.PickTime(22, 30));
    EXPECT_EQ(open.tab.dtpStartTime.Text(), "9:05 AM");
}

TEST(HostFaults, AReportMayChangeTheOverridesThatAreSaved) {
    OpenEntry open;
    CNolSchedData& record = *open.record;
    for (const char* kind : {"PLM Study", "HOM Study", "VCSA Study"}) {
        record.RemoveNolOverride(kind);
        record.AddNolOverride(MakeOverride(kind), kind);
    }
    open.onReport = [&] { record.RemoveNolOverride("HOM Study"); };
    open.failingStatement = open.statements + 2;  // the first one that is inserted
    open.TakeTrace();
    record.SaveNolOverrides();
    EXPECT_EQ(record.GetOverride("HOM Study"), nullptr);
    EXPECT_NE(open.TakeTrace().find("HOM Study"), std::string::npos) << "what was on at the save is saved";
    EXPECT_EQ(FailureOf([&] { record.Overrides().Add(nullptr, "K"); }),
              "A collection takes no pointer to nothing.");
    record.AddNolOverride(MakeOverride("HOM Study"), "");
    EXPECT_EQ(FailureOf([&] { record.AddNolOverride(MakeOverride("HOM Study"), ""); }),
              "The key \"\" is already in the collection.");
}

TEST(HostFaults, AHandlerThatGoesMayUseItsEvent) {
    Event<> event;
    std::string trace;
    struct Last {
        explicit Last(std::function<void()> actA) : act(std::move(actA)) {}
        ~Last() { act(); }
        std::function<void()> act;
    };
    auto last = std::make_shared<Last>([&] {
        trace += "gone; ";
        event.Connect([&] { trace += "new; "; });
    });
    Connection connection = event.Connect([kept = last] {});
    event.Connect([&] { trace += "other; "; });
    last.reset();
    connection.Disconnect();
    event.Raise();
    event.Raise();
    EXPECT_EQ(trace, "other; gone; other; new; ");
}

}  // namespace
}  // namespace NolSchedCtls::Testing
