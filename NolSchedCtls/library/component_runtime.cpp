#include "NolSchedCtls/library/component_runtime.h"

#include <string_view>
#include <vector>

namespace NolSchedCtls {

namespace {

// The same object under a holder that counts.
template <class T>
std::shared_ptr<T> Counted(std::shared_ptr<T> object) {
    T* const plain = object.get();
    ComponentRuntime::Instance().ObjectCreated();
    return {plain, [held = std::move(object)](T*) mutable {
                held.reset();
                ComponentRuntime::Instance().ObjectEnded();
            }};
}

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

}  // namespace

ComponentRuntime& ComponentRuntime::Instance() {
    static ComponentRuntime runtime;
    return runtime;
}

ComponentResult ComponentRuntime::Register() {
    fRegistered = true;
    return componentOk;
}

ComponentResult ComponentRuntime::Unregister() {
    fRegistered = false;
    return componentOk;
}

ComponentResult ComponentRuntime::ClassObject(const char* sClass, const char* sInterface,
                                              void** ppObject) const {
    if (ppObject == nullptr) return componentBadPointer;
    *ppObject = nullptr;
    if (sClass == nullptr || sInterface == nullptr) return componentBadPointer;
    const PublishedClass* const published = FindPublishedClass(sClass);
    if (published == nullptr || (published->sName != sClass && !fRegistered)) return componentNoClass;
    if (std::string_view(sInterface) != classObjectInterface) return componentNoInterface;
    *ppObject = &ClassObjectOf(*published);
    return componentOk;
}

ComponentResult ComponentRuntime::CanUnload() const { return nLiveObjects == 0 ? componentOk : componentNo; }

}  // namespace NolSchedCtls
