// How many objects that were made inside are alive: as long as there is one, the library stays loaded.
#pragma once

#include <atomic>
#include <memory>
#include <utility>

namespace NolSchedCtls::inline v1 {

inline std::atomic<int> liveObjects = 0;

// The same object under a holder that counts.
template <class T>
std::shared_ptr<T> Counted(std::shared_ptr<T> object) {
    T* const plain = object.get();
    ++liveObjects;
    return {plain, [held = std::move(object)](T*) mutable {
                held.reset();
                --liveObjects;
            }};
}

}  // namespace NolSchedCtls::inline v1
