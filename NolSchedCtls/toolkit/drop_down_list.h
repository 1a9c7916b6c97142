// A drop-down list: its value is one of its entries, or nothing.
#pragma once

#include <utility>

#include "NolSchedCtls/base/export.h"
#include "NolSchedCtls/toolkit/view_field.h"

namespace NolSchedCtls::inline v1 {

class NOLSCHED_API DropDownList : public ViewField {
  public:
    DropDownList(FieldPlace placeA, std::string_view nameA) : ViewField(placeA, nameA) {}
    FieldKind Kind() override { return this; }

    void Clear();                         // nothing is selected then; raises no click
    void AddItem(std::string_view item);  // at the end; raises no click
    // Many as one change, from strings or views.
    template <class Items>
    void AddItems(const Items& items) {
        entries.insert(entries.end(), items.begin(), items.end());
        Tell(FieldPart::Entries);
    }
    void AddItems(std::vector<std::string>&& items) {
        if (entries.empty()) entries.swap(items);
        AddItems(std::as_const(items));
    }
    const std::vector<std::string>& Entries() const { return entries; }
    bool Offers(std::string_view text) const { return IndexOf(text) >= 0; }

    int ListIndex() const { return listIndex; }  // 0-based, -1 for nothing
    // Raises Clicked if the selection changes. Throws NolSchedError outside the list.
    void SetListIndex(int index);
    // Of the selected entry, or empty. The reference is good until the next Clear or AddItem.
    const std::string& Text() const;
    // Selects the entry of exactly that text, like SetListIndex. Throws NolSchedError if there is none; the
    // selection is then unchanged.
    void SetText(std::string_view text);

    // The user chooses an entry; false for what the list does not offer. Choosing the selected one again
    // raises no click.
    bool Pick(std::string_view text) { return PickIndex(IndexOf(text)); }
    bool PickIndex(int index);

    Event<> Clicked;

  private:
    int IndexOf(std::string_view text) const;  // -1 for none
    bool IsInList(int index) const;
    std::string Offer() const;

    std::vector<std::string> entries;
    int listIndex = -1;
};

}  // namespace NolSchedCtls::inline v1
