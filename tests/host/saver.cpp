#include "tests/host/saver.h"

#include <unistd.h>

#include <iostream>

#include "host/entry_session.h"
#include "toolkit/check_box.h"

namespace NolSchedCtls::Testing {

namespace {

WorkspaceOptions Options(const std::string& address) {
    return {address, "saver", [](const Message& message) { std::cerr << message.text << '\n'; }, {}};
}

void ShapeAs(EntrySession& session, bool full) {
    session.Record().EditorName = full ? "full" : "plain";
    for (const char* page : {"plm", "rfc", "vcsa"}) {
        auto& box = session.FindPage(page)->tab->Field<CheckBox>("chkOverride");
        if ((box.Value() == 1) != full) box.Click();
    }
}

}  // namespace

bool IsSaver(int argc, char** argv) { return argc == 5 && std::string(argv[1]) == "--saver"; }

int RunSaver(char** argv) {
    try {
        Workspace workspace(Options(argv[2]));
        const int nId = std::stoi(argv[3]);
        const int saves = std::stoi(argv[4]);
        std::unique_ptr<EntrySession> session;
        if (nId == 0)
            session = std::make_unique<EntrySession>(workspace, EntrySession::NewEntry{false, 1, "plain"});
        else
            session = std::make_unique<EntrySession>(workspace, nId);
        session->Load();
        auto& hom = session->FindPage("hom")->tab->Field<CheckBox>("chkOverride");
        if (hom.Value() == 0) hom.Click();
        for (int save = 0; saves == 0 || save < saves; ++save) {
            ShapeAs(*session, save % 2 == 1);
            if (session->Save().refusedBy != nullptr) return 1;
            if (save == 0 && write(STDOUT_FILENO, "r", 1) != 1) return 127;
        }
        return 0;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 3;
    }
}

int StartSaver(const std::string& address, int nId, int saves) {
    int ready[2];
    if (pipe(ready) != 0) return -1;
    const int pid = fork();
    if (pid == 0) {
        dup2(ready[1], STDOUT_FILENO);
        close(ready[1]);
        const std::string id = std::to_string(nId);
        const std::string count = std::to_string(saves);
        execl("/proc/self/exe", "host_tests", "--saver", address.c_str(), id.c_str(), count.c_str(), nullptr);
        _exit(127);
    }
    close(ready[1]);
    char letter = 0;
    const bool isReady = read(ready[0], &letter, 1) == 1;
    close(ready[0]);
    return isReady ? pid : -1;
}

std::string Standing(const std::string& address, int nId) {
    Workspace workspace(Options(address));
    const auto entry = workspace.Entries().Load(nId);
    return entry.record->EditorName + " " + std::to_string(entry.record->Overrides().Count());
}

}  // namespace NolSchedCtls::Testing
