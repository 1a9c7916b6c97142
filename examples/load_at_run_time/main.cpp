// Opens the shared library by its path and reaches everything by its entry points alone.
#include <dlfcn.h>

#include <iostream>

#include "NolSchedCtls/library/c_interface.h"
#include "NolSchedCtls/library/component.h"
#include "NolSchedCtls/tabs/contract/pavise_control.h"
#include "NolSchedCtls/tabs/contract/pavise_tab.h"

using namespace NolSchedCtls;

namespace {

template <class Function>
Function Entry(void* library, const char* name) {
    return reinterpret_cast<Function>(dlsym(library, name));
}

// An entry is made, edited and saved by the table alone; what fails is told and counted.
int Edit(const NolSchedC1& c) {
    int failures = 0;
    const auto run = [&](int32_t result) {
        if (result == NOLSCHED_OK) return;
        std::cout << result << ": " << c.LastFailure() << '\n';
        ++failures;
    };
    NolSchedServices services{};
    services.size = sizeof services;
    services.Execute = [](void*, const char* statement, NolSchedHandle) -> int32_t {
        std::cout << statement << '\n';
        return NOLSCHED_OK;
    };
    run(c.InstallServices(&services));
    NolSchedHandle record = 0;
    NolSchedHandle hom = 0;
    run(c.CreateRecord(&record));
    run(c.InitNew(record, 0, 7, "Nightly"));
    run(c.CreateTab("XNolSchedHomOvr", &hom));
    run(c.LoadData(hom, record, 0));
    run(c.Act(hom, "txtDuration", "type", "45"));  // not before the override is on
    run(c.Act(hom, "chkOverride", "click", nullptr));
    run(c.Act(hom, "txtDuration", "type", "45"));
    run(c.IsTabValid(hom, "Nightly"));
    run(c.SaveData(hom));
    run(c.SetColumn(record, "Id", "1"));
    run(c.SaveNolOverrides(record));
    run(c.Release(hom));
    run(c.Release(record));
    run(c.InstallServices(nullptr));
    return failures;
}

}  // namespace

int main(int, char** arguments) {
    void* const library = dlopen(arguments[1], RTLD_NOW);
    if (library == nullptr) {
        std::cout << dlerror() << '\n';
        return 1;
    }
    const auto registerServer = Entry<decltype(&DllRegisterServer)>(library, "DllRegisterServer");
    const auto unregisterServer = Entry<decltype(&DllUnregisterServer)>(library, "DllUnregisterServer");
    const auto classObject = Entry<decltype(&DllGetClassObject)>(library, "DllGetClassObject");
    const auto canUnloadNow = Entry<decltype(&DllCanUnloadNow)>(library, "DllCanUnloadNow");

    constexpr const char* name = "NolSchedCtls.XNolSchedHomOvr";
    void* found = nullptr;
    std::cout << "before registering: " << classObject(name, classObjectInterface, &found) << '\n';
    std::cout << "registering: " << registerServer() << '\n';
    std::cout << "class object: " << classObject(name, classObjectInterface, &found) << '\n';
    std::cout << "another interface: " << classObject(name, "IUnheardOf", &found) << '\n';
    std::cout << "another class: " << classObject("XUnheardOf", classObjectInterface, &found) << '\n';

    classObject(name, classObjectInterface, &found);
    const auto* const object = static_cast<const IClassObject*>(found);
    std::cout << object->Published().sName << ", " << object->Published().nWidth << " twips wide\n";
    {
        const auto control = std::get<std::shared_ptr<PaviseTab>>(object->CreateInstance());
        std::cout << "can unload with a live object: " << canUnloadNow() << '\n';
        std::cout << "handles a process: " << control->HandleTabProcess("any") << '\n';
    }
    std::cout << "can unload: " << canUnloadNow() << '\n';

    classObject(NOLSCHED_C_CLASS, NOLSCHED_C1_INTERFACE, &found);
    const int refused = Edit(*static_cast<const NolSchedC1*>(found));
    std::cout << "refused: " << refused << '\n';
    std::cout << "can unload: " << canUnloadNow() << '\n';
    std::cout << "unregistering: " << unregisterServer() << '\n';
    std::cout << "after unregistering: " << classObject(name, classObjectInterface, &found) << '\n';
    return dlclose(library);
}
