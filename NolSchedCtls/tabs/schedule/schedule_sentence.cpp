#include "NolSchedCtls/tabs/schedule/schedule_sentence.h"

#include <algorithm>

#include "NolSchedCtls/base/text.h"
#include "NolSchedCtls/tabs/schedule/nol_schedule_tab.h"

namespace NolSchedCtls::inline v1 {

namespace {

std::string_view TextOf(ViewField& field) {
    const auto* const list = FieldAs<DropDownList>(field);
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

}  // namespace NolSchedCtls::inline v1
