// Opens the shared library by its path and reaches everything by its entry points alone.
#ifdef _WIN32
#include <windows.h>
#else
#include <dlfcn.h>
#endif

#include <iostream>

#include "NolSchedCtls/library/c_interface.h"
#include "NolSchedCtls/library/component.h"
#include "NolSchedCtls/tabs/contract/pavise_control.h"
#include "NolSchedCtls/tabs/contract/pavise_tab.h"

using namespace NolSchedCtls;

namespace {

#ifdef _WIN32
HMODULE Open(const char* path) { return LoadLibraryA(path); }
auto Find(HMODULE library, const char* name) { return GetProcAddress(library, name); }
bool Close(HMODULE library) { return FreeLibrary(library) != 0; }
#else
void* Open(const char* path) { return dlopen(path, RTLD_NOW); }
void* Find(void* library, const char* name) { return dlsym(library, name); }
bool Close(void* library) { return dlclose(library) == 0; }
#endif

template <class Function, class Library>
Function* Entry(Library library, const char* name) {
    return reinterpret_cast<Function*>(Find(library, name));
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
    const auto library = Open(arguments[1]);
    if (library == nullptr) {
        std::cout << "no library: " << arguments[1] << '\n';
        return 1;
    }
    const auto registerServer = Entry<DllRegisterServerFunction>(library, "DllRegisterServer");
    const auto unregisterServer = Entry<DllUnregisterServerFunction>(library, "DllUnregisterServer");
    const auto classObject = Entry<DllGetClassObjectFunction>(library, "DllGetClassObject");
    const auto canUnloadNow = Entry<DllCanUnloadNowFunction>(library, "DllCanUnloadNow");

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
    return Close(library) ? 0 : 1;
}
