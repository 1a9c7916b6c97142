// The services that need nothing of a host: texts in English, names of days, the system's clock.
#include <array>
#include <ctime>
#include <optional>

#include "NolSchedCtls/services/provider.h"

namespace NolSchedCtls::inline v1 {

namespace {

class PickerStatesInMemory : public ICaddisPickerStates {
  public:
    CaddisPickerStateSet& PickerStates() override { return states; }

  private:
    CaddisPickerStateSet states;
};

class ScenariosByName : public ICaddisScenarios {
  public:
    CaddisDocumentType ScenarioDocumentType() override { return {"Scenario"}; }
};

class TypesByName : public IDocumentTypes {
  public:
    CaddisDocumentType TypeByName(std::string_view sName) override { return {std::string(sName)}; }
};

struct KeyedText {
    const char* key;
    const char* text;
};

constexpr std::array scheduledDefaults = {KeyedText{"Download", "A"}, KeyedText{"Purge", "Y"},
                                          KeyedText{"Days", "30"}};
constexpr std::array immediateDefaults = {KeyedText{"Download", "A"}, KeyedText{"Purge", "Y"},
                                          KeyedText{"Days", "7"}};
constexpr std::array periodNames = {KeyedText{"O", "Once"}, KeyedText{"H", "Hourly"}, KeyedText{"D", "Daily"},
                                    KeyedText{"W", "Weekly"}, KeyedText{"A", "Monthly"}};
constexpr std::array dayNames = {"Day",       "Sunday",   "Monday", "Tuesday",
                                 "Wednesday", "Thursday", "Friday", "Saturday"};

std::string Ordinal(int number) {
    constexpr std::array endings = {"th", "st", "nd", "rd"};
    const bool plain = number % 10 <= 3 && number / 10 != 1;
    return std::to_string(number) + endings.at(plain ? static_cast<std::size_t>(number % 10) : 0);
}

template <class T, std::size_t count>
KeyedCollection<T> Keyed(const std::array<KeyedText, count>& rows) {
    KeyedCollection<T> collection;
    for (const auto& row : rows) collection.Add(T{row.text}, row.key);
    return collection;
}

KeyedCollection<std::string> AllMonthDayNames() {
    KeyedCollection<std::string> names;
    for (int day = 1; day <= 28; ++day) names.Add(Ordinal(day));
    names.Add("Last");
    return names;
}

KeyedCollection<CodeRow> AllDayNames() {
    KeyedCollection<CodeRow> names;
    for (const char* name : dayNames) {
        CodeRow row;
        row.Add(name, "UIVal");
        names.Add(std::move(row));
    }
    return names;
}

class EnglishCodeTables : public ICodeTables {
  public:
    const CodeOptionSet& ScheduledDefaults() override { return scheduled; }
    const CodeOptionSet& ImmediateDefaults() override { return immediate; }
    const KeyedCollection<std::string>& MonthDayNames() override { return monthDays; }
    const KeyedCollection<std::string>& PeriodNames() override { return periods; }
    const KeyedCollection<CodeRow>& DayNames() override { return days; }

  private:
    CodeOptionSet scheduled = Keyed<CodeOption>(scheduledDefaults);
    CodeOptionSet immediate = Keyed<CodeOption>(immediateDefaults);
    KeyedCollection<std::string> monthDays = AllMonthDayNames();
    KeyedCollection<std::string> periods = Keyed<std::string>(periodNames);
    KeyedCollection<CodeRow> days = AllDayNames();
};

// A weekday's number is its place after "Day" in the day list.
class DayListConversion : public IDayConversion {
  public:
    std::string DayNameOfNumber(std::int32_t nNumber) override {
        const auto& names = CodeTables().DayNames();
        if (nNumber < 1 || static_cast<std::size_t>(nNumber) >= names.Count())
            throw ValueError("There is no weekday " + std::to_string(nNumber) + "; weekdays are 1 to 7.");
        return names.Item(static_cast<std::size_t>(nNumber) + 1).Item("UIVal");
    }

    std::int32_t DayNumberOfName(std::string_view sName) override {
        const auto& names = CodeTables().DayNames();
        for (std::size_t position = 2; position <= names.Count(); ++position)
            if (names.Item(position).Item("UIVal") == sName) return static_cast<std::int32_t>(position) - 1;
        throw ValueError("There is no weekday " + Quoted(sName) + ".");
    }
};

std::tm LocalTime() {
    const std::time_t seconds = std::time(nullptr);
    std::tm local{};
#ifdef _WIN32
    localtime_s(&local, &seconds);
#else
    localtime_r(&seconds, &local);
#endif
    return local;
}

class SystemClock : public IClock {
  public:
    DateTime Now() override {
        const std::tm local = LocalTime();
        return ComposeDateTime({.year = local.tm_year + 1900,
                                .month = local.tm_mon + 1,
                                .day = local.tm_mday,
                                .hour = local.tm_hour,
                                .minute = local.tm_min,
                                .second = local.tm_sec == 60 ? 59 : local.tm_sec});
    }
};

class OrderedDateSettings : public IDateSettings {
  public:
    OrderedDateSettings(DateFieldOrder orderA, std::int32_t firstDayOfWeekA)
        : order(orderA), firstDayOfWeek(firstDayOfWeekA) {}
    std::string EditDateFormat() override { return editFormats.at(static_cast<std::size_t>(order)); }
    DateFieldOrder DateOrder() override { return order; }
    std::int32_t FirstDayOfWeek() override { return firstDayOfWeek; }

  private:
    static constexpr std::array editFormats = {"MM/DD/YYYY", "DD/MM/YYYY", "YYYY/MM/DD"};

    DateFieldOrder order;
    std::int32_t firstDayOfWeek;
};

}  // namespace

std::unique_ptr<IDateSettings> MakeDateSettings(DateFieldOrder order, std::int32_t firstDayOfWeek) {
    return std::make_unique<OrderedDateSettings>(order, firstDayOfWeek);
}

std::shared_ptr<MarletState> CaddisPickerStateSet::StatesForType(const CaddisDocumentType& type) {
    auto& state = states[type];
    if (!state) state = std::make_shared<MarletState>(MarletState{type});
    return state;
}

std::unique_ptr<ICaddisPickerStates> ServiceProvider::CreateCaddisPickerStates() {
    return std::make_unique<PickerStatesInMemory>();
}

std::unique_ptr<ICaddisScenarios> ServiceProvider::CreateCaddisScenarios() {
    return std::make_unique<ScenariosByName>();
}

std::unique_ptr<IDocumentTypes> ServiceProvider::CreateDocumentTypes() {
    return std::make_unique<TypesByName>();
}

std::unique_ptr<ICodeTables> ServiceProvider::CreateCodeTables() {
    return std::make_unique<EnglishCodeTables>();
}

std::unique_ptr<IDayConversion> ServiceProvider::CreateDayConversion() {
    return std::make_unique<DayListConversion>();
}

std::unique_ptr<IClock> ServiceProvider::CreateClock() { return std::make_unique<SystemClock>(); }

std::unique_ptr<IDateSettings> ServiceProvider::CreateDateSettings() {
    return MakeDateSettings(DateFieldOrder::MonthFirst);
}

}  // namespace NolSchedCtls::inline v1
