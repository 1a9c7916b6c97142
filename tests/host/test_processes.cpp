#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <random>

#include "tests/host/saver.h"
#include "tests/host/store.h"

namespace NolSchedCtls::Testing {

namespace {

int StatusOf(int pid) {
    int status = 0;
    waitpid(pid, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

TEST(Processes, AKilledSaverLeavesOneVersionWhole) {
    const TemporaryStore store;
    ASSERT_EQ(StatusOf(StartSaver(store.Address(), 0, 1)), 0);
    std::mt19937 random(7);
    std::uniform_int_distribution<useconds_t> moment(0, 30'000);
    std::map<std::string, int> stood;
    for (int kill_ = 0; kill_ < 200; ++kill_) {
        const int pid = StartSaver(store.Address(), 1, 0);
        usleep(moment(random));
        kill(pid, SIGKILL);
        ASSERT_EQ(StatusOf(pid), -SIGKILL);
        const std::string standing = Standing(store.Address(), 1);
        ASSERT_TRUE(standing == "plain 1" || standing == "full 4") << standing;
        ++stood[standing];
        if (!TemporaryStore::IsServer()) {
            ASSERT_EQ(store.Sql("PRAGMA integrity_check"), "ok\n");
        }
    }
    EXPECT_EQ(stood.size(), 2U) << stood.begin()->first
                                << "the kills came too early or too late to say anything";
}

TEST(Processes, EightSaversLoseNothing) {
    const TemporaryStore store;
    std::vector<int> pids;
    for (int i = 0; i < 8; ++i)
        pids.push_back(StartSaver(store.Address(), 0, 50));  // each makes the tables too
    for (const int pid : pids) EXPECT_EQ(StatusOf(pid), 0);
    EXPECT_EQ(
        store.Sql("SELECT count(*), min(Version), max(Version) FROM NOL_Schedule WHERE EditorName = 'full'"),
        "8|50|50\n");
    EXPECT_EQ(store.Sql("SELECT count(*) FROM NOL_Override"), "32\n");
    EXPECT_EQ(store.Sql("SELECT count(*) FROM NOL_Document"), "6\n");
}

}  // namespace

}  // namespace NolSchedCtls::Testing
