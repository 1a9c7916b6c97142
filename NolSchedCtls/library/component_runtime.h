// The component run time: which classes are registered in this process, their class objects, and the live
// objects.
#pragma once

#include <atomic>

#include "NolSchedCtls/library/component.h"

namespace NolSchedCtls {

// Safe from any thread.
class ComponentRuntime {
  public:
    static ComponentRuntime& Instance();

    ComponentResult Register();
    ComponentResult Unregister();
    ComponentResult ClassObject(const char* sClass, const char* sInterface, void** ppObject) const;
    ComponentResult CanUnload() const;

    void ObjectCreated() { ++nLiveObjects; }
    void ObjectEnded() { --nLiveObjects; }

  private:
    ComponentRuntime() = default;

    std::atomic<bool> fRegistered = false;
    std::atomic<int> nLiveObjects = 0;
};

}  // namespace NolSchedCtls
