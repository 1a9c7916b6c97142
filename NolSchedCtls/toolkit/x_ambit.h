// The option controls of the general tab: automatic purge, and the mode of download.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "NolSchedCtls/base/export.h"
#include "NolSchedCtls/services/caddis.h"
#include "NolSchedCtls/toolkit/view_field.h"

namespace NolSchedCtls::inline v1 {

inline constexpr std::int32_t maximumWithoutSetting = 365;  // days

// Purge on or off ("Y" or "N"), and its interval in days from 1 to the user's maximum.
class NOLSCHED_API XAmbitPurge : public ViewField {
  public:
    static constexpr std::size_t maxLength = 5;  // of the days that a user types

    XAmbitPurge(FieldPlace placeA, std::string_view nameA) : ViewField(placeA, nameA) {}
    FieldKind Kind() override { return this; }

    // Shows the values and takes the user's range. False if the interval lies outside it; the control then
    // holds the maximum. Throws NolSchedError for a user's setting that is no number of days.
    bool LoadPurgeOptions(const std::string& AutoPurgeA, std::int32_t PurgeIntervalA, const CaddisUser& user);
    // Shows a message of its own, under the title, where the content is refused.
    bool IsPurgeValid(const std::string& title) const;

    const std::string& AutoPurge() const { return autoPurge; }
    bool IsOn() const { return autoPurge == "Y"; }
    std::int32_t PurgeDays() const;  // 0 for what is no whole number
    const std::string& DaysText() const { return days; }
    std::int32_t MaximumDays() const { return maximumDays; }

    bool Click();  // turns automatic purge on or off
    bool Key(char32_t key);
    bool PasteDays(std::string_view text);
    // For a screen that edits by itself: the key, 0 for one that is refused with a beep; and the whole text
    // as it then stands.
    char32_t FilterKey(char32_t key);
    bool EditDays(std::string_view edited);

    Event<> Changed;

  private:
    void Refused(std::string_view text, const std::string& title) const;
    void SetDays(const std::string& text);

    std::string autoPurge = "N";
    std::string days = "1";
    std::int32_t maximumDays = maximumWithoutSetting;
    bool isRequired = false;
};

struct DownloadModeEntry {
    std::string_view code;
    std::string_view text;
};

inline constexpr std::array downloadModes = {DownloadModeEntry{"A", "Automatic"},
                                             DownloadModeEntry{"M", "Manual"}};

// A code that is none of the entries' is kept and shows nothing.
class NOLSCHED_API XAmbitDownload : public ViewField {
  public:
    XAmbitDownload(FieldPlace placeA, std::string_view nameA) : ViewField(placeA, nameA) {}
    FieldKind Kind() override { return this; }

    const std::string& DownloadMode() const { return code; }
    void SetDownloadMode(const std::string& codeA);  // raises Changed if the mode changes
    std::string_view Text() const;

    bool Pick(std::string_view text);  // false for what is no entry's text

    Event<> Changed;

  private:
    std::string code;
};

}  // namespace NolSchedCtls::inline v1
