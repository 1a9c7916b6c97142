#include "NolSchedCtls/toolkit/x_marlet.h"

#include <algorithm>

#include "NolSchedCtls/base/error.h"
#include "NolSchedCtls/services/provider.h"

namespace NolSchedCtls::inline v1 {

namespace {

std::int32_t IdOf(const XMarlet::DocumentPointer& document) { return document ? document->Id : 0; }

}  // namespace

void XMarlet::RestoreState(std::shared_ptr<MarletState> stateA) {
    state = std::move(stateA);
    Tell(FieldPart::Entries);
}

void XMarlet::KeepState(MarletState& stateA) const {
    if (document) stateA.nLastDocumentId = document->Id;
}

void XMarlet::SetDocument(DocumentPointer documentA) { Choose(std::move(documentA), {}); }

void XMarlet::Choose(DocumentPointer documentA, std::string typedA) {
    const bool changed = IdOf(documentA) != IdOf(document) || typedA != typed;
    document = std::move(documentA);
    typed = std::move(typedA);
    Tell(FieldPart::Value);
    if (changed) RaiseOwn(DocumentChange);
}

void XMarlet::Reread() {
    if (const auto renamed = ValidDocument()) document = renamed;
    Tell(FieldPart::Value);
}

void XMarlet::SetPendingFlag(bool pending) {
    if (!pending) Assign(FieldPart::Value, typed, std::string());
}

XMarlet::DocumentPointer XMarlet::ValidDocument() const {
    return document ? CaddisStore().FindDocument(document->DocumentType, document->Id) : nullptr;
}

std::string XMarlet::CheckMessage() const {
    if (document) return "The " + subject + " " + Quoted(document->Name) + " has been deleted.";
    if (!typed.empty()) return "There is no " + subject + " named " + Quoted(typed) + ".";
    return "A " + subject + " is required.";
}

std::vector<XMarlet::DocumentPointer> XMarlet::Entries() const {
    if (!state) return {};
    auto documents = CaddisStore().DocumentsOfType(state->DocumentType);
    if (std::find(documents.begin(), documents.end(), nullptr) != documents.end())
        throw NolSchedError("The store gave a document of the type " + Quoted(state->DocumentType.Name) +
                            " that is not there.");
    return documents;
}

XMarlet::DocumentPointer XMarlet::EntryNamed(std::string_view sName) const {
    const auto entries = Entries();
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [sName](const auto& entry) { return entry->Name == sName; });
    return found == entries.end() ? nullptr : *found;
}

bool XMarlet::Pick(std::string_view sName) {
    const auto entry = sName.empty() ? nullptr : EntryNamed(sName);
    if ((!entry && !sName.empty()) || !BeginUserAct()) return false;
    SetDocument(entry);
    return true;
}

bool XMarlet::Paste(std::string_view sName) {
    if (!BeginUserAct()) return false;
    const auto entry = EntryNamed(sName);
    Choose(entry, entry ? std::string() : std::string(sName));
    return true;
}

}  // namespace NolSchedCtls::inline v1
