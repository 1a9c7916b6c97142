// The page on which an entry's recurrence, its duration and the excluded days are edited.
#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "NolSchedCtls/base/export.h"
#include "NolSchedCtls/tabs/contract/pavise_tab.h"
#include "NolSchedCtls/toolkit/check_box.h"
#include "NolSchedCtls/toolkit/drop_down_list.h"
#include "NolSchedCtls/toolkit/dt_picker.h"
#include "NolSchedCtls/toolkit/ss_date_combo.h"
#include "NolSchedCtls/toolkit/text_box.h"

namespace NolSchedCtls::inline v1 {

// The recurrence reads as a sentence: "Monthly" "on the " "2nd" "Monday" "of every" "3" " month(s)". The
// text of cboPeriod is the mode; it decides which fields of the row are there, where they stand and what the
// lists offer. The tab computes no run dates. A new tab stands in "Hourly".
class NOLSCHED_API XNolScheduleTab : public PaviseTab {
  public:
    XNolScheduleTab();

    // Refuses only what can never run; moves the focus to SSDStartDate then.
    bool IsTabValid(const std::string& sMsgBoxTitle) override;
    void SaveData() override;
    // Every write to a field acts as a user's edit would. Throws NolSchedError with the record's field and
    // value where one cannot be shown; the steps before stay in force.
    void LoadData(std::shared_ptr<CNolSchedData> v, const std::string& sName,
                  std::shared_ptr<CPaviseNotify> dtN) override;

    // The seven weekday boxes, and the two holiday boxes; the ticks stay.
    void EnableExcludeCtls(const bool& fDaysState, const bool& fHolState);
    // Runs once, at the tab's creation: a second time would add the periods again.
    void InitControls();
    // Shape the tab for a mode, as a click of cboPeriod does; cboPeriod itself stays as it is.
    void SetCtlsDaily();
    void SetCtlsHourly();
    void SetCtlsMonthly();
    void SetCtlsOnce();
    void SetCtlsWeekly();

    Frame Frame1{*this, "Frame1", "Schedule Duration  "};
    Label lblStartDate{Frame1, "lblStartDate", "&Start Date:"};
    SSDateCombo SSDStartDate{Frame1, "SSDStartDate"};
    CheckBox chkEndDate{Frame1, "chkEndDate", " &End Date:"};
    SSDateCombo SSDEndDate{Frame1, "SSDEndDate"};  // the last day; there only while chkEndDate is ticked
    Frame Frame2{*this, "Frame2", "Schedule Frequency  "};
    Label lblRun{Frame2, "lblRun", "&Run:"};
    DropDownList cboPeriod{Frame2, "cboPeriod"};
    Label lblOnThe{Frame2, "lblOnThe", "on the "};
    DropDownList cboDayNum{Frame2, "cboDayNum"};
    Label lblOn{Frame2, "lblOn", "on"};
    DropDownList cboDayName{Frame2, "cboDayName"};
    Label lblEvery{Frame2, "lblEvery", "every"};
    Label lblOfEvery{Frame2, "lblOfEvery", "of every"};
    DropDownList cboFrequency{Frame2, "cboFrequency"};
    Label lblUnit{Frame2, "lblUnit", "month(s)"};
    Label lblStartTime{Frame2, "lblStartTime", "St&arting at:"};
    DTPicker dtpStartTime{Frame2, "dtpStartTime"};
    Frame Frame3{*this, "Frame3", "Exclude  "};
    std::array<CheckBox, 9> cbExcludeDay;          // Sunday to Saturday, holidays, days after them
    TextBox txtNoEndDate{Frame1, "txtNoEndDate"};  // in the place of SSDEndDate; last by Tab

  private:
    struct FrequencyMode;
    enum class EndDate;
    static std::span<const FrequencyMode> FrequencyModes();
    enum class DayNames : std::int16_t { Weekdays = 1, Full = 2, DayOnly = 3 };
    enum class DayNumbers : std::int32_t { Long = 4, Short = 5 };

    // encoding
    void SetCtlsFromData();
    void SetDataFromCtls() const;
    void CheckShape() const;
    void ShowPeriod();
    void ShowFrequency();
    void ShowExclusions();
    std::string GetDayNameText() const;
    int GetDayNumIndex() const;
    bool IsOnDayOfMonth() const;
    bool IsOnWeekdayOfMonth() const;
    std::int32_t GetFrequency() const;
    std::int32_t GetWhichMonthDate() const;
    std::int32_t GetWhichWeek() const;
    std::int32_t GetWhichWeekday() const;

    // dates
    void SetCtlsDates();
    void ShowStart();
    void ShowEnd();
    void SetEndDateCtls();
    DateTime GetFirstDateTime() const;
    DateTime GetFinalDateTime() const;

    // frequency modes
    void LoadPeriodList();
    void LoadFrequencyList(int nMax);
    void SetCtlsOfPeriod();
    bool IsShaped() const { return sShaped == cboPeriod.Text(); }
    void SetCtls(const FrequencyMode& mode);
    void Shape(const FrequencyMode& mode);
    void PackRow();

    // day lists
    void BeginDayLists();
    void LoadDayNameList(DayNames nFill);
    void LoadDayNumList(DayNumbers nFill);
    void RefreshDayNameList();
    void RefreshDayNumList();
    void DayListClicked(void (XNolScheduleTab::*pRefresh)());

    // events
    void SetDesignSizes();
    void OnEvent(ViewField& field, const Event<>& event) override;
    void OnFocusLeft(ViewField& field) override;
    static void BeginDateEdit(SSDateCombo& field);

    // validation
    bool ValidateSchedule(std::string& sMessage) const;

    std::string sShaped;          // the period whose mode the fields have; empty after a failure
    bool fLoading = true;         // only while the tab is being created
    bool fDaySyncToggle = false;  // inverted by every click of a day list; see DayListClicked
};

}  // namespace NolSchedCtls::inline v1
