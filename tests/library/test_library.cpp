// What a host finds by name: the published classes and their fields, the controls, the entry points.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

#include "NolSchedCtls/base/text.h"
#include "NolSchedCtls/library/component.h"
#include "NolSchedCtls/toolkit/fields.h"
#include "tests/library/test_schedule_tools.h"

extern "C" {
NolSchedCtls::DllRegisterServerFunction DllRegisterServer, DllUnregisterServer;
NolSchedCtls::DllGetClassObjectFunction DllGetClassObject;
NolSchedCtls::DllCanUnloadNowFunction DllCanUnloadNow;
}

namespace NolSchedCtls::Testing {
namespace {

// What a new field holds beside what all fields have.
struct Content {
    std::string operator()(const TextBox* box) const {
        return Barred(box->Text(), box->MaxLength(), box->Locked() ? "locked" : "");
    }
    std::string operator()(const DropDownList* list) const { return Joined(list->Entries()); }
    std::string operator()(const ViewField* /*field*/) const { return {}; }
};

std::string PrintedField(ViewField& field) {
    static constexpr std::array kinds = {"CheckBox",    "DropDownList",  "TextBox",  "Label",
                                         "Frame",       "SSDateCombo",   "DTPicker", "XMarlet",
                                         "XAmbitPurge", "XAmbitDownload"};
    const FieldKind kind = field.Kind();
    EXPECT_EQ(std::visit([](ViewField* known) { return known; }, kind), &field) << field.Name();
    const Frame* const frame = field.Container();
    return "    " + std::string(kinds.at(kind.index())) + " " + (frame ? frame->Name() + "." : "") +
           field.Name() + " " +
           Barred(field.Caption(), field.Left(), field.Width(), field.IsShown() ? "" : "hidden",
                  field.Enabled() ? "" : "disabled", std::visit(Content(), kind)) +
           "\n";
}

TEST(Library, PublishesWhatItsCatalogueTells) {
    const InstalledWorld world;
    std::string printed = Barred(LibraryVersion().sName, LibraryVersion().sMark) + "\n";
    for (const PublishedClass& published : PublishedClasses()) {
        printed += Barred(published.sName, published.kind == ClassKind::Control ? "control" : "data",
                          published.sDefaultInterface, published.sEventInterface, published.sAlsoImplements,
                          published.sProgId, published.nWidth, published.nHeight) +
                   "\n    outside|" + Joined(published.outsideControls) + "|\n    members|" +
                   Joined(published.members) + "|\n";
        if (published.kind != ClassKind::Control) continue;
        const auto control = CreateControl(published.sProgId);
        for (ViewField* field : control->Fields()) printed += PrintedField(*field);
        EXPECT_EQ(FailureOf([&] { control->LoadData(nullptr, "", nullptr); }), "There is no record to load.");
        EXPECT_FALSE(control->HandleTabProcess("any"));
    }
    XNolScheduleTab tab;
    for (const auto mode :
         {&XNolScheduleTab::SetCtlsOnce, &XNolScheduleTab::SetCtlsDaily, &XNolScheduleTab::SetCtlsWeekly,
          &XNolScheduleTab::SetCtlsMonthly, &XNolScheduleTab::SetCtlsHourly})
        (tab.*mode)(), printed += ScheduleSentence(tab) + "\n";
    std::ifstream file(CATALOGUE);
    const std::string written{std::istreambuf_iterator<char>(file), {}};
    if (std::getenv("NOLSCHED_UPDATE") != nullptr) std::ofstream(CATALOGUE) << printed;
    EXPECT_EQ(printed, written);
}

TEST(Library, MakesControlsByTheirExactProgramIdentifierAlone) {
    const InstalledWorld world;
    for (const char* name : {"", "XNolScheduleTab", "CNolSchedData", "nolschedctls.XNolScheduleTab"})
        EXPECT_EQ(FailureOf([=] { CreateControl(name); }), "There is no control " + Quoted(name) + ".");
    EXPECT_EQ(FindPublishedClass(""), nullptr);
}

TEST(Library, HandsOutClassObjects) {
    const InstalledWorld world;
    const char* const byName = "XNolScheduleTab";
    const char* const byId = "NolSchedCtls.XNolScheduleTab";
    // Class, interface, and the results while identifiers are not registered and while they are.
    const std::tuple<const char*, const char*, int, int> cases[] = {
        {byName, classObjectInterface, componentOk, componentOk},
        {byId, classObjectInterface, componentNoClass, componentOk},
        {byName, "IUnheardOf", componentNoInterface, componentNoInterface},
        {"XUnheardOf", "IUnheardOf", componentNoClass, componentNoClass},
        {"", classObjectInterface, componentNoClass, componentNoClass},
        {nullptr, classObjectInterface, componentBadPointer, componentBadPointer},
        {byName, nullptr, componentBadPointer, componentBadPointer}};
    for (const bool registered : {false, true, false}) {
        EXPECT_EQ(registered ? DllRegisterServer() : DllUnregisterServer(), componentOk);
        EXPECT_EQ(DllGetClassObject(byName, classObjectInterface, nullptr), componentBadPointer);
        for (const auto& [name, interface, before, after] : cases) {
            void* found = &found;
            const auto result = DllGetClassObject(name, interface, &found);
            EXPECT_EQ(result, registered ? after : before) << (name ? name : "no class");
            EXPECT_EQ(found != nullptr, result == componentOk);
            if (result != componentOk) continue;
            EXPECT_EQ(static_cast<IClassObject*>(found)->Published().sProgId, byId);
            const auto object = static_cast<IClassObject*>(found)->CreateInstance();
            EXPECT_EQ(DllCanUnloadNow(), componentNo);
        }
        EXPECT_EQ(DllCanUnloadNow(), componentOk);
    }
    const auto record = std::make_shared<CNolSchedData>();
    {
        const auto tab = std::get<std::shared_ptr<PaviseTab>>(PublishedClasses()[4].create());
        tab->LoadData(record, "", nullptr);
        tab->Field<CheckBox>("chkOverride").Click();
        tab->SaveData();
    }
    EXPECT_EQ(DllCanUnloadNow(), componentNo) << "the override that the save has made";
    record->RemoveNolOverride("HOM Study");
    EXPECT_EQ(DllCanUnloadNow(), componentOk);
}

}  // namespace
}  // namespace NolSchedCtls::Testing
