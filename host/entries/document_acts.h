// What is done to the study groups and scenarios that entries refer to, by the rules of both hosts.
#pragma once

#include <string>
#include <vector>

#include "host/entries/workspace.h"

namespace NolSchedCtls {

// Where a document is asked for, the word for none.
inline constexpr const char* noDocument = "none";

// Of a document that entries have as group or scenario.
class InUseError : public RequestError {
  public:
    InUseError(const std::string& text, std::vector<std::string> usersA)
        : RequestError(text), users(std::move(usersA)) {}

    std::vector<std::string> users;  // "12 \"Night\"", by Id
};

// Throws RequestError for a name that no document can have.
void CheckDocumentName(const std::string& name);

// Each throws RequestError for a name that stands already, does not stand, or cannot be.
void AddDocument(Workspace& workspace, const CaddisDocumentType& type, const std::string& name);
void RenameDocument(Workspace& workspace, const CaddisDocumentType& type, const std::string& name,
                    const std::string& newName);

// What becomes of a document that entries use: they lose it.
enum class InUse { Refused, Deleted };
// Throws InUseError where that is refused.
void DeleteDocument(Workspace& workspace, const CaddisDocumentType& type, const std::string& name,
                    InUse inUse = InUse::Refused);

}  // namespace NolSchedCtls
