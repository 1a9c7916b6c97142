// The documents that entries refer to, and the user's settings: NOL_Document and NOL_Setting.
#pragma once

#include "NolSchedCtls/services/caddis.h"
#include "platform/database.h"

namespace NolSchedCtls {

// What a message calls a document of that type: "study group", "scenario".
std::string WordOf(const CaddisDocumentType& type);

// Needs an installed LintelDb and a store with its tables. All throw StoreError where the store fails.
class DocumentStore : public ICaddisStore {
  public:
    using Documents = std::vector<std::shared_ptr<const CaddisDocument>>;

    explicit DocumentStore(std::shared_ptr<Database> databaseA) : database(std::move(databaseA)) {}

    std::shared_ptr<const CaddisDocument> FindDocument(const CaddisDocumentType& type,
                                                       std::int32_t id) override;
    // By name.
    Documents DocumentsOfType(const CaddisDocumentType& type) override;
    CaddisUser CurrentUser() override;

    // By type, then name.
    Documents AllDocuments();
    // Throws RequestError that names what there is.
    std::shared_ptr<const CaddisDocument> DocumentNamed(const CaddisDocumentType& type,
                                                        const std::string& name);
    // All throw RequestError: for a name that stands already, or that does not stand.
    void Add(const CaddisDocumentType& type, const std::string& name);
    void Rename(const CaddisDocumentType& type, const std::string& name, const std::string& newName);
    void Delete(const CaddisDocumentType& type, const std::string& name);

  private:
    void RefuseNamesake(const CaddisDocumentType& type, const std::string& name);
    Documents Read(const std::string& condition, const Database::Values& values);

    std::shared_ptr<Database> database;
};

}  // namespace NolSchedCtls
