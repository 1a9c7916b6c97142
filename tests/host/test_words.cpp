// Entries as words: what is set is what is dumped, and a plan makes the same entries in another store.
#include <gtest/gtest.h>

#include <set>

#include "host/cli/words.h"
#include "tests/host/run.h"
#include "tests/host/store.h"

namespace NolSchedCtls::Testing {

namespace {

using Texts = std::vector<std::string>;

// For each word a text that no new entry has.
const Texts ofEveryEntry = {
    "name=Größe \"2\", #1",     "group=South Cells", "active=off",       "files=on",
    "download=Manual",          "purge=7",           "at=22:30",         "start=2026-04-01",
    "exclude=Sunday, Saturday", "holidays=off",      "afterholidays=off"};
const std::vector<Texts> ofRecurrences = {{"period=Once"},
                                          {"period=Hourly", "every=24", "end=2027-12-31"},
                                          {"period=Daily", "every=7", "end=2027-12-31"},
                                          {"period=Weekly", "on=Friday", "every=52", "end=2027-12-31"},
                                          {"period=Monthly", "on=28th Day", "every=12", "end=2027-12-31"},
                                          {"period=Monthly", "on=Last Friday", "every=2", "end=2027-12-31"}};
const Texts ofKinds[] = {{"hom=on", "hom.scenario=Baseline", "hom.duration=60"},
                         {"plm=on", "plm.scenario=Busy Hour", "plm.duration=61", "plm.delay=5"},
                         {"rfc=on", "rfc.duration=62", "rfc.polling=10"},
                         {"vcsa=on", "vcsa.duration=45", "vcsa.delay=6"}};

std::string AsJson(const std::string& word) {
    const std::size_t equals = word.find('=');
    std::string text;
    for (const char letter : word.substr(equals + 1))
        text += letter == '"' ? std::string("\\\"") : std::string(1, letter);
    return '"' + word.substr(0, equals) + "\":\"" + text + '"';
}

std::string Dump(const TemporaryStore& store) { return RunCommandLine(store.Address(), {"dump"}); }

TEST(EntryWords, WhatIsSetIsDumpedWhateverItsOrder) {
    std::set<std::string> seen = {"immediate"};  // of its own kind
    for (const Texts& recurrence : ofRecurrences) {
        const TemporaryStore store;
        RunCommandLine(store.Address(), {"new", "name=N", "group=North Cells", "period=Weekly", "on=Monday"});
        Texts words = ofEveryEntry;
        words.insert(words.end(), recurrence.begin(), recurrence.end());
        for (const Texts& kind : ofKinds) words.insert(words.end(), kind.begin(), kind.end());
        Texts line = {"set", "1"};
        line.insert(line.end(), words.rbegin(), words.rend());
        const std::string told = RunCommandLine(store.Address(), line);
        ASSERT_EQ(told.substr(0, 9), "saved 1: ") << told;
        const std::string dump = Dump(store);
        for (const std::string& word : words) {
            EXPECT_NE(dump.find(AsJson(word)), std::string::npos) << word << '\n' << dump;
            seen.insert(word.substr(0, word.find('=')));
        }
        EXPECT_EQ(RunCommandLine(store.Address(), line), "unchanged 1\n");
    }
    EXPECT_EQ(seen.size(), Words().size()) << "a word that is not tried";
}

TEST(EntryWords, APlanMakesTheSameEntriesInAnotherStore) {
    const TemporaryStore store;
    RunCommandLine(store.Address(), {"documents", "add", "group", "Elsewhere"});
    for (const Texts& recurrence : ofRecurrences)
        for (const Texts& kind : ofKinds) {
            Texts line = {"new", "name=N" + std::to_string(&kind - ofKinds), "group=Elsewhere",
                          "exclude=Friday", "holidays=off"};
            line.insert(line.end(), recurrence.begin(), recurrence.end());
            line.insert(line.end(), kind.begin(), kind.end());
            RunCommandLine(store.Address(), line);
        }
    RunCommandLine(store.Address(), {"new", "--immediate", "name=Now", "group=Elsewhere", "plm=on"});
    RunCommandLine(store.Address(), {"delete", "2", "7", "25"});
    const TemporaryFolder folder;
    const std::string plan = folder.Path() + "/plan.json", file = folder.Path() + "/other.db";
    std::ofstream(plan) << Dump(store);
    const TemporaryStore same;
    for (const std::string& other : {file, same.Address()}) {
        const std::string made = RunCommandLine(other, {"apply", plan});
        EXPECT_NE(made.find("created 22, changed 0, unchanged 0\n"), std::string::npos) << made;
        EXPECT_EQ(RunCommandLine(other, {"dump"}), ReadFile(plan));
        EXPECT_EQ(RunCommandLine(other, {"apply", plan, "--match=id", "--dry-run"}).substr(0, 22),
                  "unchanged 1 (dry run)\n");
        EXPECT_EQ(RunCommandLine(other, {"new", "name=After", "group=Elsewhere"}), "created 25\n")
            << "no id comes twice";
    }
}

TEST(EntryWords, AnIdThatNoEntryCanHaveIsNotTakenForAnother) {
    if (TemporaryStore::IsServer()) GTEST_SKIP() << "a server's column holds none";
    const TemporaryStore store;
    for (const char* name : {"name=Mine", "name=Junk"})
        RunCommandLine(store.Address(), {"new", name, "group=North Cells"});
    store.Sql("UPDATE NOL_Schedule SET Id = 4294967297 WHERE EditorName = 'Junk'");
    for (const char* command : {"delete", "duplicate"})
        EXPECT_EQ(RunCommandLine(store.Address(), {command, "--name", "Junk", "--yes"}),
                  "! error: The entry 4294967297 in t.db has an Id that no entry can have.\n[status 2]\n");
}

}  // namespace

}  // namespace NolSchedCtls::Testing
