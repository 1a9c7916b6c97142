// The page of one study kind's override: a box that switches it on, and the settings that it then has.
#pragma once

#include <deque>
#include <optional>

#include "NolSchedCtls/base/export.h"
#include "NolSchedCtls/tabs/contract/pavise_tab.h"
#include "NolSchedCtls/tabs/override/override_kind.h"
#include "NolSchedCtls/toolkit/check_box.h"
#include "NolSchedCtls/toolkit/text_box.h"
#include "NolSchedCtls/toolkit/x_marlet.h"

namespace NolSchedCtls {

// One class serves all kinds. While the state is off the tab checks nothing and writes nothing; the fields
// keep what they hold. The fields differ by kind and are reached by name: Field<TextBox>("txtDuration").
class NOLSCHED_API NolSchedOverrideTab : public PaviseTab {
  public:
    explicit NolSchedOverrideTab(const OverrideKind& kindA);

    bool IsTabValid(const std::string& sMsgBoxTitle) override;
    // Puts a new override, made from the view alone, in the place of the record's. Raises NolSchedError for a
    // text that is no 32-bit number, before the record is touched.
    void SaveData() override;
    void LoadData(std::shared_ptr<CNolSchedData> v, const std::string& sName,
                  std::shared_ptr<CPaviseNotify> dtN) override;

  private:
    struct Scenario {
        explicit Scenario(UserControl& control) : fraScenario(control, "fraScenario", "References  ") {}

        Frame fraScenario;
        Label lblScenario{fraScenario, "lblScenario", "Sc&enario:"};
        XMarlet fdocCBScenario{fraScenario, "fdocCBScenario"};
    };

    struct Number {
        Number(UserControl& control, const NumberField& fieldA);

        const NumberField& field;
        Frame frame;
        TextBox text;
        Label unit;
    };

    void SetOverrideState(bool fState);
    void TabOverride(const std::string& TheName, bool TheState);
    void LoadOverride(const CNolOverride& item);
    void LoadNoOverride();
    void ShowScenario(const CNolOverride& item);
    bool IsScenarioValid(const std::string& sMsgBoxTitle);
    bool IsNumberValid(Number& number, const std::string& sMsgBoxTitle);
    std::shared_ptr<CNolOverride> OverrideOfView() const;

    const OverrideKind& kind;
    CheckBox chkOverride;
    std::optional<Scenario> scenario;
    std::deque<Number> numbers;
    std::optional<Label> lblNote;
    std::string sOverrideKey;  // from the first load on
    bool fOverrideOn = false;
    ScopedConnection tabOverride;
};

class NOLSCHED_API XNolSchedHomOvr : public NolSchedOverrideTab {
  public:
    XNolSchedHomOvr() : NolSchedOverrideTab(homOverride) {}
};

class NOLSCHED_API XNolSchedPlmOvr : public NolSchedOverrideTab {
  public:
    XNolSchedPlmOvr() : NolSchedOverrideTab(plmOverride) {}
};

class NOLSCHED_API XNolSchedRfcOvr : public NolSchedOverrideTab {
  public:
    XNolSchedRfcOvr() : NolSchedOverrideTab(rfcOverride) {}
};

class NOLSCHED_API XNolSchedVcsOvr : public NolSchedOverrideTab {
  public:
    XNolSchedVcsOvr() : NolSchedOverrideTab(vcsOverride) {}
};

}  // namespace NolSchedCtls
