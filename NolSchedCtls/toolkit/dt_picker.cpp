#include "NolSchedCtls/toolkit/dt_picker.h"

#include "NolSchedCtls/toolkit/date_text.h"

namespace NolSchedCtls::inline v1 {

namespace {

bool IsBelow(int number, int limit) { return number >= 0 && number < limit; }

void Check(const std::string& name, const char* part, int number, int limit) {
    if (IsBelow(number, limit)) return;
    throw ValueError("The " + std::string(part) + " of " + name + " cannot be " + std::to_string(number) +
                     "; it is 0 to " + std::to_string(limit - 1) + ".");
}

}  // namespace

void DTPicker::SetHour(int hourA) {
    Check(Name(), "hour", hourA, 24);
    SetTime(hourA, minute);
}

void DTPicker::SetMinute(int minuteA) {
    Check(Name(), "minute", minuteA, 60);
    SetTime(hour, minuteA);
}

void DTPicker::SetTime(int hourA, int minuteA) {
    DropRefusedText();
    if (hourA == hour && minuteA == minute) return;
    hour = hourA;
    minute = minuteA;
    Tell(FieldPart::Value);
    RaiseOwn(Changed);
}

std::string DTPicker::ValueText() const {
    const int hourOfHalf = hour % 12 == 0 ? 12 : hour % 12;
    return std::to_string(hourOfHalf) + (minute < 10 ? ":0" : ":") + std::to_string(minute) +
           (hour < 12 ? " AM" : " PM");
}

bool DTPicker::PickTime(int hourA, int minuteA) {
    if (!IsBelow(hourA, 24) || !IsBelow(minuteA, 60) || !BeginUserAct()) return false;
    SetTime(hourA, minuteA);
    return true;
}

std::string DTPicker::Take(std::string_view text) {
    const auto read = ReadTimeText(text);
    if (!read)
        return Quoted(text) +
               " is no time of day; it is typed to the minute, as 22:30, 2230, 10:30 PM, 7 or noon.";
    SetTime(read->hour, read->minute);
    return {};
}

}  // namespace NolSchedCtls::inline v1
