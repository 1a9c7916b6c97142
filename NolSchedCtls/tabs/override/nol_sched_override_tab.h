// The page of one study kind's override: a box that switches it on, and the settings that it then has.
#pragma once

#include <memory>
#include <vector>

#include "NolSchedCtls/base/export.h"
#include "NolSchedCtls/tabs/contract/pavise_tab.h"
#include "NolSchedCtls/toolkit/check_box.h"
#include "NolSchedCtls/toolkit/text_box.h"
#include "NolSchedCtls/toolkit/x_marlet.h"

namespace NolSchedCtls::inline v1 {

class CNolOverride;
struct NumberField;
struct OverrideKind;

// One class serves all kinds: it makes its fields from the kind's row, and a kind's own class names them.
// While the state is off the tab checks nothing and writes nothing; the fields keep what they hold.
class NOLSCHED_API NolSchedOverrideTab : public PaviseTab {
  public:
    explicit NolSchedOverrideTab(const OverrideKind& kindA);

    bool IsTabValid(const std::string& sMsgBoxTitle) override;
    // Puts a new override, made from the view alone, in the place of the record's. Throws NolSchedError for a
    // text that is no 32-bit number, before the record is touched.
    void SaveData() override;
    void LoadData(std::shared_ptr<CNolSchedData> v, const std::string& sName,
                  std::shared_ptr<CPaviseNotify> dtN) override;

  private:
    struct Scenario {
        explicit Scenario(UserControl& control) : fraScenario(control, "fraScenario", "References  ") {}

        Frame fraScenario;
        Label lblScenario{fraScenario, "lblScenario", "Sc&enario:"};
        XMarlet fdocCBScenario{fraScenario, "fdocCBScenario", "Scenario"};
    };

    struct Number {
        Number(UserControl& control, const NumberField& fieldA);

        const NumberField& field;
        Frame frame;
        TextBox text;
        Label unit;
    };

    const OverrideKind& kind;

  public:
    CheckBox chkOverride;

  protected:
    // Made in tab order; what a kind does not have is not there.
    std::unique_ptr<Scenario> scenario;
    std::vector<std::unique_ptr<Number>> numbers;
    std::unique_ptr<Label> note;

  public:
    Frame& fraDuration = numbers.at(0)->frame;
    TextBox& txtDuration = numbers.at(0)->text;
    Label& Label1(std::size_t index);  // the unit after each number; NolSchedError beyond the last

  private:
    std::vector<std::unique_ptr<Number>> MakeNumbers();
    void OnEvent(ViewField& field, const Event<>& event) override;
    void OnKeyTyped(TextBox& box, char32_t& key) override;
    void SetOverrideState(bool fState);
    void TabOverride(const std::string& TheName, bool TheState);
    void LoadOverride(const CNolOverride& item);
    void LoadNoOverride();
    void ShowScenario(const CNolOverride& item);
    bool IsScenarioValid(const std::string& sMsgBoxTitle);
    bool IsNumberValid(Number& number, const std::string& sMsgBoxTitle);
    std::shared_ptr<CNolOverride> OverrideOfView() const;

    std::string sOverrideKey;  // from the first load on
    bool fOverrideOn = false;
    ScopedConnection tabOverride;
};

class NOLSCHED_API XNolSchedHomOvr : public NolSchedOverrideTab {
  public:
    XNolSchedHomOvr();

    Frame& fraScenario = scenario->fraScenario;
    Label& lblScenario = scenario->lblScenario;
    XMarlet& fdocCBScenario = scenario->fdocCBScenario;
};

class NOLSCHED_API XNolSchedPlmOvr : public NolSchedOverrideTab {
  public:
    XNolSchedPlmOvr();

    Frame& fraScenario = scenario->fraScenario;
    Label& lblScenario = scenario->lblScenario;
    XMarlet& fdocCBScenario = scenario->fdocCBScenario;
    Frame& fraRetrieveDelay = numbers[1]->frame;
    TextBox& txtRetrieveDelay = numbers[1]->text;
};

class NOLSCHED_API XNolSchedRfcOvr : public NolSchedOverrideTab {
  public:
    XNolSchedRfcOvr();

    Frame& fraPollingInterval = numbers[1]->frame;
    TextBox& txtPollingInterval = numbers[1]->text;
};

class NOLSCHED_API XNolSchedVcsOvr : public NolSchedOverrideTab {
  public:
    XNolSchedVcsOvr();

    Frame& fraRetrieveDelay = numbers[1]->frame;
    TextBox& txtRetrieveDelay = numbers[1]->text;
    Label& lblNote = *note;
};

}  // namespace NolSchedCtls::inline v1
