// Opens the shared library by its path and reaches everything by its entry points alone.
#include <dlfcn.h>

#include <iostream>

#include "NolSchedCtls/library/component.h"
#include "NolSchedCtls/tabs/contract/pavise_control.h"
#include "NolSchedCtls/tabs/contract/pavise_tab.h"

using namespace NolSchedCtls;

namespace {

template <class Function>
Function Entry(void* library, const char* name) {
    return reinterpret_cast<Function>(dlsym(library, name));
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
    std::cout << "unregistering: " << unregisterServer() << '\n';
    std::cout << "after unregistering: " << classObject(name, classObjectInterface, &found) << '\n';
    return dlclose(library);
}
