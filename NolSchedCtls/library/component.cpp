#include "NolSchedCtls/library/component.h"

#include <atomic>
#include <vector>

#include "NolSchedCtls/base/live_objects.h"
#include "NolSchedCtls/library/c_table.h"

namespace NolSchedCtls::inline v1 {

namespace {

std::atomic<bool> isRegistered = false;

class CatalogueClassObject final : public IClassObject {
  public:
    explicit CatalogueClassObject(const PublishedClass& publishedA) : published(publishedA) {}

    const PublishedClass& Published() const override { return published; }

    PublishedObject CreateInstance() const override {
        return std::visit([](auto object) -> PublishedObject { return Counted(std::move(object)); },
                          published.create());
    }

  private:
    const PublishedClass& published;
};

IClassObject& ClassObjectOf(const PublishedClass& published) {
    static std::vector<CatalogueClassObject> objects(PublishedClasses().begin(), PublishedClasses().end());
    return objects[static_cast<std::size_t>(&published - PublishedClasses().data())];
}

std::int32_t CTableUnder(std::string_view sInterface, void** ppObject) {
    if (sInterface != NOLSCHED_C1_INTERFACE) return componentNoInterface;
    *ppObject = const_cast<NolSchedC1*>(&CTable());
    return componentOk;
}

}  // namespace

}  // namespace NolSchedCtls::inline v1

using namespace NolSchedCtls;

extern "C" {
NOLSCHED_API DllRegisterServerFunction DllRegisterServer;
NOLSCHED_API DllUnregisterServerFunction DllUnregisterServer;
NOLSCHED_API DllGetClassObjectFunction DllGetClassObject;
NOLSCHED_API DllCanUnloadNowFunction DllCanUnloadNow;
}

std::int32_t DllRegisterServer() {
    isRegistered = true;
    return componentOk;
}

std::int32_t DllUnregisterServer() {
    isRegistered = false;
    return componentOk;
}

std::int32_t DllGetClassObject(const char* sClass, const char* sInterface, void** ppObject) {
    if (ppObject == nullptr) return componentBadPointer;
    *ppObject = nullptr;
    if (sClass == nullptr || sInterface == nullptr) return componentBadPointer;
    if (std::string_view(sClass) == NOLSCHED_C_CLASS) return CTableUnder(sInterface, ppObject);
    const PublishedClass* const published = FindPublishedClass(sClass);
    if (published == nullptr || (published->sName != sClass && !isRegistered)) return componentNoClass;
    if (std::string_view(sInterface) != classObjectInterface) return componentNoInterface;
    *ppObject = &ClassObjectOf(*published);
    return componentOk;
}

std::int32_t DllCanUnloadNow() { return liveObjects == 0 ? componentOk : componentNo; }
