#include "platform/document_store.h"

#include <algorithm>

#include "NolSchedCtls/base/app_constants.h"
#include "NolSchedCtls/base/collection.h"
#include "NolSchedCtls/base/text.h"
#include "NolSchedCtls/services/provider.h"

namespace NolSchedCtls {

DocumentStore::Documents DocumentStore::Read(const std::string& condition, const Database::Values& values) {
    Documents documents;
    const auto rows = database->Open(
        "SELECT Id, Type, Name FROM NOL_Document" + condition + " ORDER BY Type, Name", values);
    const auto read = [&rows] {
        return CaddisDocument{LintelDb().FieldToNumber(rows->Fields("Id"), 0),
                              FieldToText(rows->Fields("Name")),
                              {FieldToText(rows->Fields("Type"))}};
    };
    const auto about = [this] { return database->Name() + ": a document: "; };
    for (; !rows->AtEnd(); rows->MoveNext())
        documents.push_back(std::make_shared<CaddisDocument>(Explained<StoreError>(read, about)));
    return documents;
}

std::shared_ptr<const CaddisDocument> DocumentStore::FindDocument(const CaddisDocumentType& type,
                                                                  std::int32_t id) {
    const auto found = Read(" WHERE Type = ? AND Id = ?", {type.Name, std::int64_t{id}});
    return found.empty() ? nullptr : found.front();
}

DocumentStore::Documents DocumentStore::DocumentsOfType(const CaddisDocumentType& type) {
    return Read(" WHERE Type = ?", {type.Name});
}

CaddisUser DocumentStore::CurrentUser() {
    CaddisUser user;
    const auto rows = database->Open("SELECT Name, Value FROM NOL_Setting");
    for (; !rows->AtEnd(); rows->MoveNext())
        user.Settings[FieldToText(rows->Fields("Name"))] = FieldToText(rows->Fields("Value"));
    return user;
}

std::string WordOf(const CaddisDocumentType& type) {
    if (type.Name == MAppConstants::nolGroup) return "study group";
    std::string word = type.Name;
    std::ranges::transform(word, word.begin(), FoldedLetter);
    return word;
}

DocumentStore::Documents DocumentStore::AllDocuments() { return Read("", {}); }

std::shared_ptr<const CaddisDocument> DocumentStore::DocumentNamed(const CaddisDocumentType& type,
                                                                   const std::string& name) {
    const auto documents = DocumentsOfType(type);
    for (const auto& document : documents)
        if (document->Name == name) return document;
    const auto nameOf = [](const auto& document) { return Quoted(document->Name); };
    const std::string offered = documents.empty() ? "is none at all" : "are " + Joined(documents, nameOf);
    throw RequestError("There is no " + WordOf(type) + " named " + Quoted(name) + "; there " + offered + ".");
}

void DocumentStore::RefuseNamesake(const CaddisDocumentType& type, const std::string& name) {
    const auto isNamesake = [&name](const auto& document) { return document->Name == name; };
    if (std::ranges::any_of(DocumentsOfType(type), isNamesake))
        throw RequestError("There is already a " + WordOf(type) + " named " + Quoted(name) + ".");
}

void DocumentStore::Add(const CaddisDocumentType& type, const std::string& name) {
    RefuseNamesake(type, name);
    if (database->Execute("INSERT INTO NOL_Document (Type, Name) VALUES (?, ?)", {type.Name, name}) == 0)
        database->FailUntaken();
}

void DocumentStore::Rename(const CaddisDocumentType& type, const std::string& name,
                           const std::string& newName) {
    const std::int64_t id = DocumentNamed(type, name)->Id;
    if (newName != name) RefuseNamesake(type, newName);
    if (database->Execute("UPDATE NOL_Document SET Name = ? WHERE Id = ?", {newName, id}) == 0)
        database->FailUntaken();
}

void DocumentStore::Delete(const CaddisDocumentType& type, const std::string& name) {
    const std::int64_t id = DocumentNamed(type, name)->Id;
    if (database->Execute("DELETE FROM NOL_Document WHERE Id = ?", {id}) == 0) database->FailUntaken();
}

}  // namespace NolSchedCtls
