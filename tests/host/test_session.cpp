#include <gtest/gtest.h>

#include <QSqlDatabase>
#include <thread>

#include "host/entry_session.h"
#include "tests/host/store.h"
#include "toolkit/check_box.h"
#include "toolkit/text_box.h"
#include "toolkit/x_marlet.h"

namespace NolSchedCtls::Testing {

namespace {

class Sessions : public testing::Test {
  protected:
    Sessions() : workspace({store.Address(), "tester", [](const Message&) {}, [] { return 46083.0; }}) {}

    static void OverrideHom(EntrySession& session, const std::string& duration) {
        auto& hom = *session.FindPage("hom")->tab;
        if (hom.Field<CheckBox>("chkOverride").Value() == 0) hom.Field<CheckBox>("chkOverride").Click();
        hom.Field<TextBox>("txtDuration").Paste(duration);
    }

    // Fails each statement of a save in turn, until a save goes through; answers how many there were.
    int FailEachStatement(EntrySession& session) {
        for (int k = 1;; ++k) {
            const std::string before = store.Dump();
            const auto id = session.Record().Id;
            const bool isNew = session.Record().IsNew;
            int statements = 0;
            ScopedConnection fault = workspace.Store().Statement.Connect([&](std::string_view statement) {
                if (++statements == k) throw StoreError("refused: " + std::string(statement.substr(0, 6)));
            });
            try {
                session.Save();
                return k - 1;
            } catch (const StoreError& error) {
                EXPECT_TRUE(std::string(error.what()).starts_with("refused: ")) << error.what();
            }
            fault = {};
            EXPECT_EQ(store.Dump(), before) << "statement " << k;
            EXPECT_EQ(session.Record().Id, id);
            EXPECT_EQ(session.Record().IsNew, isNew);
        }
    }

    TemporaryStore store;
    Workspace workspace;
};

TEST_F(Sessions, AFailingStatementLeavesStoreAndRecordAsTheyWere) {
    EntrySession created(workspace, {.fIsImmediate = false, .nRptGrpId = 1, .sName = "Nightly"});
    created.Load();
    OverrideHom(created, "60");
    // The group's document, the transaction, the entry, the override, the commit.
    EXPECT_EQ(FailEachStatement(created), 5);
    EXPECT_EQ(store.Sql("SELECT Duration FROM NOL_Override"), "60\n");

    EntrySession stored(workspace, created.Record().Id);
    stored.Load();
    OverrideHom(stored, "90");
    EXPECT_EQ(FailEachStatement(stored), 6);  // and the delete of the former rows
    EXPECT_EQ(store.Sql("SELECT Duration FROM NOL_Override"), "90\n");
}

TEST_F(Sessions, TheSecondSaverIsToldWhoWasFasterAndKeepsItsInput) {
    {
        EntrySession created(workspace, {.fIsImmediate = false, .nRptGrpId = 1, .sName = "Nightly"});
        created.Load();
        created.Save();
    }
    EntrySession first(workspace, 1);
    EntrySession second(workspace, 1);
    first.Load();
    second.Load();
    OverrideHom(first, "60");
    OverrideHom(second, "90");
    first.Save();
    first.Save();  // its own later save is no other user's
    const std::string before = store.Dump();
    try {
        second.Save();
        ADD_FAILURE() << "saved over the first";
    } catch (const OvertakenError& error) {
        EXPECT_STREQ(
            error.what(),
            "The entry \"Nightly\" was saved by tester at 2026-03-02 00:00:00, after it was opened here.");
    }
    EXPECT_EQ(store.Dump(), before);
    EXPECT_EQ(second.FindPage("hom")->tab->Field<TextBox>("txtDuration").Text(), "90");
    workspace.Entries().Delete(1);
    EXPECT_THROW(second.Save(), OvertakenError);
}

TEST_F(Sessions, AnotherThreadHasAConnectionOfItsOwn) {
    const auto connections = QSqlDatabase::connectionNames().size();
    std::string found;
    std::thread([&] {
        found = CaddisStore().FindDocument({"Scenario"}, 4)->Name;
        found += " " + std::to_string(QSqlDatabase::connectionNames().size() - connections);
    }).join();
    EXPECT_EQ(found, "Baseline 1");
}

}  // namespace

}  // namespace NolSchedCtls::Testing
