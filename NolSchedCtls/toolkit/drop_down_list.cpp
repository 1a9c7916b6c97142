#include "NolSchedCtls/toolkit/drop_down_list.h"

namespace NolSchedCtls::inline v1 {

void DropDownList::Clear() {
    if (entries.empty()) return;
    entries.clear();
    listIndex = -1;
    Tell(FieldPart::Entries);
}

void DropDownList::AddItem(std::string_view item) {
    entries.emplace_back(item);
    Tell(FieldPart::Entries);
}

int DropDownList::IndexOf(std::string_view text) const {
    const auto found = std::find(entries.begin(), entries.end(), text);
    return found == entries.end() ? -1 : static_cast<int>(found - entries.begin());
}

bool DropDownList::IsInList(int index) const {
    return index >= 0 && static_cast<std::size_t>(index) < entries.size();
}

std::string DropDownList::Offer() const {
    if (entries.empty()) return "it is empty.";
    return "it offers " + Quoted(entries.front()) + " to " + Quoted(entries.back()) + ", index 0 to " +
           std::to_string(entries.size() - 1) + ".";
}

void DropDownList::SetListIndex(int index) {
    if (!IsInList(index))
        throw ValueError("The list " + Name() + " has no index " + std::to_string(index) + "; " + Offer());
    if (Assign(FieldPart::Value, listIndex, index)) RaiseOwn(Clicked);
}

const std::string& DropDownList::Text() const {
    static const std::string nothing;
    return listIndex < 0 ? nothing : entries[static_cast<std::size_t>(listIndex)];
}

void DropDownList::SetText(std::string_view text) {
    const int index = IndexOf(text);
    if (index < 0) throw ValueError("The list " + Name() + " has no entry " + Quoted(text) + "; " + Offer());
    SetListIndex(index);
}

bool DropDownList::PickIndex(int index) {
    if (!IsInList(index) || !BeginUserAct()) return false;
    SetListIndex(index);
    return true;
}

}  // namespace NolSchedCtls::inline v1
