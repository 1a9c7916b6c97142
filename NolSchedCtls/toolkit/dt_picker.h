// A time field: a time of day to the minute, shown as "9:05 AM". A user types "22:30", "22.30", "22h30",
// "2230", "930", "7", each also before "am", "a", "pm" or "p", or "noon" or "midnight".
#pragma once

#include "NolSchedCtls/base/export.h"
#include "NolSchedCtls/toolkit/typed_field.h"

namespace NolSchedCtls::inline v1 {

class NOLSCHED_API DTPicker : public TypedField {
  public:
    DTPicker(FieldPlace placeA, std::string_view nameA) : TypedField(placeA, nameA) {}
    FieldKind Kind() override { return this; }

    // 0 to 23 and 0 to 59; midnight at first. Writing raises Changed if the time changes, and throws
    // NolSchedError outside these.
    int Hour() const { return hour; }
    void SetHour(int hourA);
    int Minute() const { return minute; }
    void SetMinute(int minuteA);

    static constexpr std::string_view CustomFormat() { return "h:mm tt"; }

    bool PickTime(int hourA, int minuteA);  // one change; false for what is no time of day

    Event<> Changed;

  private:
    std::string ValueText() const override;
    std::string Take(std::string_view text) override;
    void SetTime(int hourA, int minuteA);

    int hour = 0;
    int minute = 0;
};

}  // namespace NolSchedCtls::inline v1
