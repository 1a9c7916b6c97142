#include "NolSchedCtls/toolkit/ss_date_combo.h"

#include <cmath>

#include "NolSchedCtls/toolkit/date_text.h"

namespace NolSchedCtls {

namespace {

constexpr std::string_view today = "Today";

}  // namespace

std::string SSDateCombo::Text() const {
    return displayFormat.empty() ? ShortDateText(DateValue()) : DateText(DateValue(), displayFormat);
}

void SSDateCombo::SetText(std::string_view text) {
    const auto read = ReadDateText(text);
    if (!read)
        throw NolSchedError("The field " + Name() + " cannot show " + Quoted(text) + ": it is no date.");
    SetDate(DateOf(*read));
}

void SSDateCombo::SetDate(DateTime dateA) {
    const bool isChange = dateA != DateValue();
    date = dateA;
    if (!isChange) return;
    Refresh.Raise();
    Changed.Raise();
}

DateTime SSDateCombo::DateValue() const {
    if (date) return *date;
    return DateOf(defaultDate == today ? Clock().Now() : ReadDateText(defaultDate).value_or(Clock().Now()));
}

void SSDateCombo::SetDisplayFormat(std::string_view format) {
    if (format == displayFormat) return;
    CheckDatePattern(format);
    Assign(displayFormat, std::string(format));
}

void SSDateCombo::SetDefaultDate(const std::string& text) {
    if (text != today && !ReadDateText(text))
        throw NolSchedError("The default date " + Quoted(text) + " of the field " + Name() + " is no date.");
    Assign(defaultDate, text);
}

bool SSDateCombo::IsOffered(DateTime dateA) const { return dateA >= MinDate() && dateA < maxDate + 1; }

bool SSDateCombo::PickDate(DateTime dateA) {
    if (!IsOffered(dateA) || !BeginUserAct()) return false;
    SetDate(std::floor(dateA));
    return true;
}

bool SSDateCombo::TypeDate(std::string_view text) {
    const auto read = ReadDateText(text);
    return read && PickDate(*read);
}

bool SSDateCombo::BeginEdit() {
    if (!BeginUserAct()) return false;
    EditFormatRequest.Raise();
    return true;
}

bool SSDateCombo::Click() {
    if (!BeginUserAct()) return false;
    Clicked.Raise();
    return true;
}

}  // namespace NolSchedCtls
