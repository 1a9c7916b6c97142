#include "host/entries/entry_differences.h"

#include "NolSchedCtls/toolkit/fields.h"

namespace NolSchedCtls {

namespace {

std::string TextOf(const Label& /*label*/) { return {}; }
std::string TextOf(const Frame& /*frame*/) { return {}; }
std::string TextOf(const CheckBox& box) { return box.Value() != 0 ? "on" : "off"; }
std::string TextOf(const XAmbitPurge& purge) { return purge.IsOn() ? purge.DaysText() : "off"; }

template <class Field>
std::string TextOf(const Field& field) {
    return std::string(field.Text());
}

std::string ShownText(const ViewField& field) {
    return VisitField(field, [](const auto& kind) { return TextOf(kind); });
}

}  // namespace

std::vector<FieldDifference> DifferencesFromStored(EntrySession& session) {
    EntrySession stored(session.Home(), session.Record().Id);
    {
        const Workspace::Silence silence(session.Home());
        stored.Load();
    }
    std::vector<FieldDifference> found;
    const CNolSchedData& here = session.Record();
    const CNolSchedData& there = stored.Record();
    const auto stateOf = [](const CNolSchedData& record) {
        return record.ScheduleActive == "Y" ? "active" : "paused";
    };
    if (here.EditorName != there.EditorName)
        found.push_back({nullptr, nullptr, "Name", here.EditorName, there.EditorName});
    if (here.ScheduleActive != there.ScheduleActive)
        found.push_back({nullptr, nullptr, "State", stateOf(here), stateOf(there)});
    for (std::size_t place = 0; place < stored.Pages().size(); ++place) {
        const Page& page = session.Pages()[place];
        for (const ViewField* field : page.tab->Fields()) {
            const ViewField& other = *stored.Pages()[place].tab->FindField(field->Name());
            if (!field->IsShown() || !other.IsShown()) continue;
            const std::string shown = ShownText(*field);
            if (const std::string text = ShownText(other); shown != text)
                found.push_back({&page, field, nullptr, shown, text});
        }
    }
    return found;
}

}  // namespace NolSchedCtls
