#include "NolSchedCtls/tabs/schedule/schedule_sentence.h"

#include <algorithm>

#include "NolSchedCtls/tabs/schedule/nol_schedule_tab.h"

namespace NolSchedCtls {

namespace {

std::string_view Trimmed(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

std::string_view TextOf(const ViewField& field) {
    const auto* list = dynamic_cast<const DropDownList*>(&field);
    return Trimmed(list != nullptr ? list->Text() : field.Caption());
}

}  // namespace

std::string ScheduleSentence(const XNolScheduleTab& tab) {
    const auto& fields = tab.Fields();  // the tab order is the sentence's
    std::string sentence;
    for (auto field = std::find(fields.begin(), fields.end(), &tab.cboPeriod); field != fields.end();
         ++field) {
        const std::string_view text = (*field)->Visible() ? TextOf(**field) : std::string_view();
        if (!text.empty()) sentence += (sentence.empty() ? "" : " ") + std::string(text);
        if (*field == &tab.lblUnit) break;
    }
    return sentence;
}

}  // namespace NolSchedCtls
