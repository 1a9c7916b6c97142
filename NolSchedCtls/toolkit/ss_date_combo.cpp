#include "NolSchedCtls/toolkit/ss_date_combo.h"

#include <cmath>

#include "NolSchedCtls/toolkit/date_text.h"

namespace NolSchedCtls::inline v1 {

namespace {

constexpr std::string_view today = "Today";

}  // namespace

std::string SSDateCombo::ValueText() const {
    const DateTime value = DateValue();
    return displayFormat.empty() ? ShortDateText(value) : DateText(value, displayFormat);
}

std::optional<DateTime> SSDateCombo::Read(std::string_view text) const {
    const ShownDate shown{DateValue(), displayFormat};  // before the settings: the clock may replace them
    return ReadDateText(text, shown);
}

void SSDateCombo::SetText(std::string_view text) {
    const auto read = Read(text);
    if (!read) throw ValueError("The field " + Name() + " cannot show " + Quoted(text) + ": it is no date.");
    SetDateValue(*read);
}

bool SSDateCombo::SetDate(DateTime dateA) {
    const bool isChange = dateA != DateValue();
    date = dateA;
    DropRefusedText();
    if (!isChange) return false;
    Tell(FieldPart::Value);
    RaiseOwn(Changed);
    return true;
}

DateTime SSDateCombo::DateValue() const {
    if (date) return *date;
    return DateOf(defaultDate == today ? Clock().Now() : ReadDateText(defaultDate).value_or(Clock().Now()));
}

void SSDateCombo::SetDisplayFormat(std::string_view format) {
    if (format == displayFormat) return;
    CheckWholeDatePattern(format);
    Assign(FieldPart::Value, displayFormat, std::string(format));
}

void SSDateCombo::SetDefaultDate(const std::string& text) {
    if (text != today && !ReadDateText(text))
        throw ValueError("The default date " + Quoted(text) + " of the field " + Name() + " is no date.");
    Assign(FieldPart::Value, defaultDate, text);
}

bool SSDateCombo::IsOffered(DateTime dateA) const { return dateA >= MinDate() && dateA < maxDate + 1; }

bool SSDateCombo::PickDate(DateTime dateA) {
    if (!IsOffered(dateA) || !BeginUserAct()) return false;
    if (!SetDate(std::floor(dateA))) RaiseOwn(Clicked);
    return true;
}

// A time of day would be lost without a word.
std::string SSDateCombo::Take(std::string_view text) {
    constexpr DateTime example = 46380;  // 12/24/2026
    const auto read = Read(text);
    if (!read || DateOf(*read) != *read)
        return Quoted(text) + " is no date; it is typed as " + ShortDateText(example) +
               ", 2026-12-24 or 24 Dec 2026.";
    if (!IsOffered(*read))
        return Quoted(text) + " cannot be chosen; a date is from " + ShortDateText(MinDate()) + " to " +
               ShortDateText(maxDate) + ".";
    SetDate(*read);
    return {};
}

bool SSDateCombo::BeginEdit() {
    if (!BeginUserAct()) return false;
    RaiseOwn(EditFormatRequest);
    return true;
}

}  // namespace NolSchedCtls::inline v1
