// Processes that save one store, killed in the middle of it or many at once.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <climits>
#include <random>
#include <set>

#include "NolSchedCtls/toolkit/check_box.h"
#include "host/entries/entry_session.h"
#include "tests/host/store.h"

namespace NolSchedCtls::Testing {

namespace {

// Saves a new entry in turn as "plain" with one override and as "full" with four, and stops its process after
// the first time. A failure ends the process: it must not get back into the tests.
void SaveInTurn(const std::string& address, int saves) noexcept {
    Workspace workspace({address, "saver", [](const Message&) {}, {}});
    EntrySession session(workspace, EntrySession::NewEntry{false, 1, "plain"});
    session.Load();
    for (int save = 0; save < saves; ++save) {
        const bool isFull = save % 2 == 1;
        session.Record().EditorName = isFull ? "full" : "plain";
        for (const std::string page : {"hom", "plm", "rfc", "vcsa"})
            session.FindPage(page)->tab->Field<CheckBox>("chkOverride").SetValue(isFull || page == "hom");
        session.Save();
        if (save == 0) raise(SIGSTOP);
    }
}

int StartSaver(const std::string& address, int saves) {
    const int pid = fork();
    if (pid != 0) return pid;
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    SaveInTurn(address, saves);
    _exit(0);
}

// The exit status, or the signal that stopped or killed it, with a minus.
int StatusOf(int pid) {
    int status = 0;
    waitpid(pid, &status, WUNTRACED);
    if (WIFSTOPPED(status)) return -WSTOPSIG(status);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

TEST(Processes, AKilledSaverLeavesOneVersionWhole) {
    const TemporaryStore store;
    std::mt19937 random(7);
    for (int round = 0; round < 200; ++round) {
        const int pid = StartSaver(store.Address(), INT_MAX);
        ASSERT_EQ(StatusOf(pid), -SIGSTOP);
        kill(pid, SIGCONT);
        usleep(static_cast<useconds_t>(random() % 30'000));
        kill(pid, SIGKILL);
        ASSERT_EQ(StatusOf(pid), -SIGKILL);
    }
    EXPECT_EQ(
        store.Sql("SELECT DISTINCT EditorName, (SELECT count(*) FROM NOL_Override WHERE "
                  "NOL_OverrideId = Id), (SELECT count(*) FROM NOL_Schedule) FROM NOL_Schedule ORDER BY 1"),
        "full|4|200\nplain|1|200\n");
}

TEST(Processes, SixteenSaversLoseNothing) {
    const TemporaryStore store;
    std::vector<int> pids;
    for (int i = 0; i < 16; ++i) pids.push_back(StartSaver(store.Address(), 50));  // each makes the tables
    for (const int pid : pids) EXPECT_EQ(StatusOf(pid), -SIGSTOP);
    for (const int pid : pids) kill(pid, SIGCONT);
    for (const int pid : pids) EXPECT_EQ(StatusOf(pid), 0);
    EXPECT_EQ(store.Sql("SELECT EditorName, Version, count(*), (SELECT count(*) FROM NOL_Override), "
                        "(SELECT count(*) FROM NOL_Document) FROM NOL_Schedule GROUP BY 1, 2"),
              "full|50|16|64|6\n");
}

TEST(Processes, AReaderBesideASaverSeesOneVersion) {
    const TemporaryStore store;
    const int pid = StartSaver(store.Address(), INT_MAX);
    ASSERT_EQ(StatusOf(pid), -SIGSTOP);
    Workspace workspace({store.Address(), "reader", [](const Message&) {}, {}});
    kill(pid, SIGCONT);
    std::set<std::string> seen;
    for (int reads = 0; reads < 300 || (seen.size() < 2 && reads < 30'000); ++reads) {
        const auto record = workspace.Entries().Load(1).record;
        seen.insert(record->EditorName + " with " + std::to_string(record->Overrides().Count()));
    }
    kill(pid, SIGKILL);
    EXPECT_EQ(StatusOf(pid), -SIGKILL);
    EXPECT_EQ(seen, (std::set<std::string>{"full with 4", "plain with 1"}));
}

}  // namespace

}  // namespace NolSchedCtls::Testing
