// The document picker: a document of one type, chosen from a list or by typing its name.
#pragma once

#include <memory>

#include "NolSchedCtls/base/export.h"
#include "NolSchedCtls/services/caddis.h"
#include "NolSchedCtls/toolkit/view_field.h"

namespace NolSchedCtls::inline v1 {

class NOLSCHED_API XMarlet : public ViewField {
  public:
    using DocumentPointer = std::shared_ptr<const CaddisDocument>;

    // Messages call what is picked by the subject: "Scenario".
    XMarlet(FieldPlace placeA, std::string_view nameA, std::string_view subjectA)
        : ViewField(placeA, nameA), subject(subjectA) {}
    FieldKind Kind() override { return this; }

    // The state names the type of document that the picker offers; comes before all else.
    void RestoreState(std::shared_ptr<MarletState> stateA);
    // Puts the chosen document into the state.
    void KeepState(MarletState& stateA) const;

    const DocumentPointer& Document() const { return document; }
    // Drops a typed text. Raises DocumentChange if document or text change.
    void SetDocument(DocumentPointer documentA);
    // The chosen document under the name that it bears in the store now.
    void Reread();
    // True while a typed text names no document; writing false drops the text.
    void SetPendingFlag(bool pending);

    // The chosen document if the store still holds it.
    DocumentPointer ValidDocument() const;
    // Why ValidDocument gave nothing; "A Scenario is required." when nothing is chosen.
    std::string CheckMessage() const;

    // What the field shows: the document's name or the text that was typed.
    const std::string& Text() const { return document ? document->Name : typed; }
    std::vector<DocumentPointer> Entries() const;
    // Where a list should open, 0 for its top.
    std::int32_t LastDocumentId() const { return state ? state->nLastDocumentId : 0; }

    bool Pick(std::string_view sName);   // of an entry, or empty for none; false for any other name
    bool Paste(std::string_view sName);  // may name nothing, which CheckMessage then tells

    Event<> DocumentChange;

  private:
    void Choose(DocumentPointer documentA, std::string typedA);
    DocumentPointer EntryNamed(std::string_view sName) const;

    std::string subject;
    std::shared_ptr<MarletState> state;
    DocumentPointer document;
    std::string typed;
};

}  // namespace NolSchedCtls::inline v1
