// A date field: one day, shown by a pattern, chosen from a calendar or typed: by that pattern, in the
// region's short form (with "/", "-" or "."), in the long form, or as "2026-12-24", "Dec 24, 2026", "24 Dec
// 2026", "Dec 24" or "24 Dec".
#pragma once

#include <optional>

#include "NolSchedCtls/base/date_time.h"
#include "NolSchedCtls/base/export.h"
#include "NolSchedCtls/toolkit/typed_field.h"

namespace NolSchedCtls::inline v1 {

// The bounds limit what a user can choose; a date that code writes stands as it is.
class NOLSCHED_API SSDateCombo : public TypedField {
  public:
    SSDateCombo(FieldPlace placeA, std::string_view nameA) : TypedField(placeA, nameA) {}
    FieldKind Kind() override { return this; }

    // Reads by the display format first, then by the other forms, also with a time after a blank; what the
    // text leaves out stays as the date has it: "24 Dec" is of the year of the day that the field holds.
    // Nothing for what is no date.
    std::optional<DateTime> Read(std::string_view text) const;
    // Keeps the day alone. Raises Changed if the day changes, and throws NolSchedError for what is no date;
    // the date is then unchanged.
    void SetText(std::string_view text);
    DateTime DateValue() const;  // without a time of day
    // Like SetText with that day's text.
    void SetDateValue(DateTime dateA) { SetDate(DateOf(dateA)); }

    static constexpr DateTime MinDate() { return 32874.0; }  // 1/1/1990
    DateTime MaxDate() const { return maxDate; }
    void SetMaxDate(DateTime maxDateA) { Assign(FieldPart::State, maxDate, maxDateA); }

    // A pattern of EditDateFormat's letters (services/date_settings.h); empty, as at first, for the regional
    // short form. Throws NolSchedError for one that cannot be shown, or lacks day, month or year. Raises no
    // Changed.
    const std::string& DisplayFormat() const { return displayFormat; }
    void SetDisplayFormat(std::string_view format);
    // The date until one is set: "Today", which follows the clock, or the text of a date. Throws
    // NolSchedError for any other text.
    const std::string& DefaultDate() const { return defaultDate; }
    void SetDefaultDate(const std::string& text);

    // From the calendar; false outside the bounds. Raises Clicked for the day that the field holds already.
    bool PickDate(DateTime dateA);
    bool BeginEdit();  // asks for the edit format

    Event<> Changed;  // by code or by the user
    Event<> Clicked;  // by the user, who has picked a day and changed nothing
    Event<> EditFormatRequest;

  private:
    std::string ValueText() const override;  // by the display format
    std::string Take(std::string_view text) override;
    bool IsOffered(DateTime dateA) const;
    bool SetDate(DateTime dateA);  // false if it is the same

    std::optional<DateTime> date;
    DateTime maxDate = 2958465.0;  // 12/31/9999
    std::string displayFormat;
    std::string defaultDate = "Today";
};

}  // namespace NolSchedCtls::inline v1
