#include "host/entries/workspace.h"

#include <thread>
#include <utility>

#include "platform/schema.h"

namespace NolSchedCtls {

Workspace::Workspace(WorkspaceOptions options)
    : database(std::make_shared<Database>(options.sAddress)),
      failure(std::make_shared<std::optional<std::string>>()),
      entries(database, std::move(options.sUser)) {
    const auto keepFirst = [kept = failure](const std::string& text) {
        if (!*kept) *kept = text;
    };
    const HostServices host{std::move(options.showMessage), keepFirst, std::move(options.now)};
    // A connection belongs to its thread; any other thread gets one of its own.
    InstallServices([host, address = options.sAddress, own = database, thread = std::this_thread::get_id()] {
        return MakePlatformProvider(
            std::this_thread::get_id() == thread ? own : std::make_shared<Database>(address), host);
    });
    PrepareTables(*database);
}

Workspace::~Workspace() { InstallServices({}); }

std::optional<std::string> Workspace::TakeFailure() { return std::exchange(*failure, {}); }

std::vector<CaddisDocument> Workspace::Documents() {
    std::vector<CaddisDocument> documents;
    const auto rows = database->Open("SELECT Id, Type, Name FROM NOL_Document ORDER BY Type, Name");
    for (; !rows->AtEnd(); rows->MoveNext())
        documents.push_back({LintelDb().FieldToNumber(rows->Fields("Id"), 0),
                             FieldToText(rows->Fields("Name")),
                             {FieldToText(rows->Fields("Type"))}});
    return documents;
}

std::shared_ptr<const CaddisDocument> Workspace::DocumentNamed(const CaddisDocumentType& type,
                                                               const std::string& sName) {
    std::string offered;
    for (const auto& document : CaddisStore().DocumentsOfType(type)) {
        if (document->Name == sName) return document;
        offered += (offered.empty() ? "" : ", ") + Quoted(document->Name);
    }
    throw RequestError("There is no " + type.Name + " named " + Quoted(sName) +
                       (offered.empty() ? "; there is none at all." : "; there are " + offered + "."));
}

void Workspace::AddDocument(const CaddisDocumentType& type, const std::string& sName) {
    for (const auto& document : CaddisStore().DocumentsOfType(type))
        if (document->Name == sName)
            throw RequestError("There is already a " + type.Name + " named " + Quoted(sName) + ".");
    database->Execute("INSERT INTO NOL_Document (Type, Name) VALUES (?, ?)", {type.Name, sName});
}

void Workspace::DeleteDocument(const CaddisDocumentType& type, const std::string& sName) {
    const auto document = DocumentNamed(type, sName);
    database->Execute("DELETE FROM NOL_Document WHERE Id = ?", {std::int64_t{document->Id}});
}

}  // namespace NolSchedCtls
