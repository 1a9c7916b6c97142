// Caddis: the documents that a schedule entry refers to, and the user who edits it.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "NolSchedCtls/base/export.h"

namespace NolSchedCtls::inline v1 {

struct CaddisDocumentType {
    std::string Name;

    bool operator==(const CaddisDocumentType&) const = default;
    bool operator<(const CaddisDocumentType& other) const { return Name < other.Name; }
};

struct CaddisDocument {
    std::int32_t Id = 0;
    std::string Name;
    CaddisDocumentType DocumentType;
};

// The scenario type that a host hands to a record; it passes through unread.
struct CaddisScenarioType {
    std::string Name;
};

// Settings by name, as in MAppConstants.
struct CaddisUser {
    std::map<std::string, std::string, std::less<>> Settings;
};

class NOLSCHED_API ICaddisStore {
  public:
    virtual ~ICaddisStore() = default;
    // Nothing if there is no such document.
    virtual std::shared_ptr<const CaddisDocument> FindDocument(const CaddisDocumentType& type,
                                                               std::int32_t nId) = 0;
    // In the order in which a user should find them.
    virtual std::vector<std::shared_ptr<const CaddisDocument>> DocumentsOfType(
        const CaddisDocumentType& type) = 0;
    virtual CaddisUser CurrentUser() = 0;
};

// What a document picker remembers between two editors.
struct MarletState {
    CaddisDocumentType DocumentType;
    std::int32_t nLastDocumentId = 0;  // 0 for none
};

// One state for each document type, made at first use and shared by all pickers of the thread.
class NOLSCHED_API CaddisPickerStateSet {
  public:
    std::shared_ptr<MarletState> StatesForType(const CaddisDocumentType& type);

  private:
    std::map<CaddisDocumentType, std::shared_ptr<MarletState>> states;
};

class NOLSCHED_API ICaddisPickerStates {
  public:
    virtual ~ICaddisPickerStates() = default;
    virtual CaddisPickerStateSet& PickerStates() = 0;
};

class NOLSCHED_API ICaddisScenarios {
  public:
    virtual ~ICaddisScenarios() = default;
    virtual CaddisDocumentType ScenarioDocumentType() = 0;
};

class NOLSCHED_API IDocumentTypes {
  public:
    virtual ~IDocumentTypes() = default;
    virtual CaddisDocumentType TypeByName(std::string_view sName) = 0;
};

}  // namespace NolSchedCtls::inline v1
