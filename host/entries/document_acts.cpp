#include "host/entries/document_acts.h"

#include "NolSchedCtls/base/text.h"

namespace NolSchedCtls {

void CheckDocumentName(const std::string& name) {
    if (Trimmed(name).empty())
        throw RequestError("A study group or a scenario takes a name that is not empty.");
    if (name == noDocument)
        throw RequestError(
            "A study group or a scenario cannot be named none: the word stands for none of them.");
}

void AddDocument(Workspace& workspace, const CaddisDocumentType& type, const std::string& name) {
    CheckDocumentName(name);
    workspace.Documents().Add(type, name);
}

void RenameDocument(Workspace& workspace, const CaddisDocumentType& type, const std::string& name,
                    const std::string& newName) {
    CheckDocumentName(newName);
    workspace.Documents().Rename(type, name, newName);
}

void DeleteDocument(Workspace& workspace, const CaddisDocumentType& type, const std::string& name,
                    InUse inUse) {
    Transaction transaction(workspace.Store());
    const auto document = workspace.Documents().DocumentNamed(type, name);
    const auto users = workspace.Entries().UsersOf(document->Id);
    if (!users.empty() && inUse == InUse::Refused)
        throw InUseError("The " + WordOf(type) + ' ' + Quoted(name) + " is used by " + Joined(users), users);
    workspace.Documents().Delete(type, name);
    transaction.Commit();
}

}  // namespace NolSchedCtls
