#include "platform/region.h"

#include <langinfo.h>
#include <locale.h>

#include <memory>
#include <type_traits>
#include <utility>

namespace NolSchedCtls {

namespace {

constexpr std::int32_t sunday = 1;
constexpr std::int32_t monday = 2;

// By the first part of a date in a pattern of strftime, such as "%A %-d.%m.%Y".
DateFieldOrder OrderOf(std::string_view pattern) {
    static constexpr std::pair<std::string_view, DateFieldOrder> orders[] = {
        {"mbBhD", DateFieldOrder::MonthFirst},
        {"de", DateFieldOrder::DayFirst},
        {"yYCGF", DateFieldOrder::YearFirst}};
    for (std::size_t at = 0; (at = pattern.find('%', at)) < pattern.size();) {
        at = pattern.find_first_not_of("-_0^#EO", at + 1);
        if (at >= pattern.size()) break;
        for (const auto& [letters, order] : orders)
            if (letters.find(pattern[at]) != std::string_view::npos) return order;
    }
    return DateFieldOrder::MonthFirst;
}

// Counted from the day that the locale numbers its days from: the Monday or the Sunday that this date is.
std::int32_t FirstDayOf(locale_t locale) {
    constexpr std::uint32_t aMonday = 19971201;
    // The C library hands this number out in the place of a pointer, of which half counts.
    const auto origin = static_cast<std::uint32_t>(
        reinterpret_cast<std::uintptr_t>(nl_langinfo_l(_NL_TIME_WEEK_1STDAY, locale)));
    const int place = nl_langinfo_l(_NL_TIME_FIRST_WEEKDAY, locale)[0] - 1;
    return (place + (origin == aMonday ? 1 : 0)) % 7 + sunday;
}

struct FreeLocale {
    void operator()(locale_t locale) const { freelocale(locale); }
};

}  // namespace

std::optional<Region> RegionNamed(std::string_view name) {
    static constexpr std::pair<std::string_view, Region> regions[] = {
        {"us", {DateFieldOrder::MonthFirst, sunday}},
        {"eu", {DateFieldOrder::DayFirst, monday}},
        {"iso", {DateFieldOrder::YearFirst, monday}}};
    for (const auto& [known, region] : regions)
        if (known == name) return region;
    return {};
}

Region RegionOfUser() {
    const std::unique_ptr<std::remove_pointer_t<locale_t>, FreeLocale> locale(
        newlocale(LC_TIME_MASK, "", nullptr));
    if (!locale) return {};
    return {OrderOf(nl_langinfo_l(D_FMT, locale.get())), FirstDayOf(locale.get())};
}

}  // namespace NolSchedCtls
