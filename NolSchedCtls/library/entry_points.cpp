#include "NolSchedCtls/library/component_runtime.h"

using NolSchedCtls::ComponentRuntime;

std::int32_t DllRegisterServer() { return ComponentRuntime::Instance().Register(); }

std::int32_t DllUnregisterServer() { return ComponentRuntime::Instance().Unregister(); }

std::int32_t DllGetClassObject(const char* sClass, const char* sInterface, void** ppObject) {
    return ComponentRuntime::Instance().ClassObject(sClass, sInterface, ppObject);
}

std::int32_t DllCanUnloadNow() { return ComponentRuntime::Instance().CanUnload(); }
