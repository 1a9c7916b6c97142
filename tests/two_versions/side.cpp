#include "side.h"

#include "NolSchedCtls/library/component.h"
#include "NolSchedCtls/records/nol_sched_data.h"
#include "NolSchedCtls/services/memory_services.h"

// The static archive lacks them.
extern "C" {
[[gnu::weak]] NolSchedCtls::DllGetClassObjectFunction DllGetClassObject;
[[gnu::weak]] NolSchedCtls::DllCanUnloadNowFunction DllCanUnloadNow;
}

using namespace NolSchedCtls;

namespace SIDE {

std::shared_ptr<CNolSchedData> record;

std::shared_ptr<CNolSchedData> MakeRecord() {
    if (&DllGetClassObject == nullptr) return std::make_shared<CNolSchedData>();
    void* found = nullptr;
    DllGetClassObject("CNolSchedData", classObjectInterface, &found);
    return std::get<std::shared_ptr<CNolSchedData>>(static_cast<IClassObject*>(found)->CreateInstance());
}

void Begin() {
    InstallMemoryServices();
    record = MakeRecord();
    record->InitNew(std::make_shared<CaddisScenarioType>(), false, 7, "Nightly");
}

void End() {
    record = {};
    InstallServices({});
}

std::string Tell() {
    std::string told =
        LibraryVersion().sVersion + (record ? " holds " + record->EditorName : " holds nothing");
    if (&DllCanUnloadNow != nullptr)
        told += DllCanUnloadNow() == componentOk ? ", can be unloaded" : ", in use";
    try {
        return told + (Clock().Now() > 0 ? ", has a clock" : ", has none");
    } catch (const NolSchedError& error) {
        return told + ", " + error.what();
    }
}

}  // namespace SIDE
