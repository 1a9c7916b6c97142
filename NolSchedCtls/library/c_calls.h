// How a call through the C interface ends, and the handles that it is given.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "NolSchedCtls/base/error.h"
#include "NolSchedCtls/base/live_objects.h"
#include "NolSchedCtls/library/c_interface.h"
#include "NolSchedCtls/services/lintel.h"

namespace NolSchedCtls::inline v1::C {

// A failure with the result that it gives.
class CallError : public NolSchedError {
  public:
    CallError(std::int32_t resultA, const std::string& text) : NolSchedError(text), result(resultA) {}
    std::int32_t result;
};

// The result of the failure that is being handled, which it keeps for LastFailure.
std::int32_t KeepFailure() noexcept;
const char* LastFailure() noexcept;

// While one stands, what the thread releases stays: a call-back may release what the call still uses.
struct RunningCall {
    RunningCall() noexcept;
    RunningCall(const RunningCall&) = delete;
    RunningCall& operator=(const RunningCall&) = delete;
    ~RunningCall();
};

template <class Step>
std::int32_t Call(Step step) noexcept {
    const RunningCall running;
    try {
        step();
        return NOLSCHED_OK;
    } catch (...) {
        return KeepFailure();
    }
}

// What a handle stands for. Counts as alive, with all that it holds.
struct Object {
    explicit Object(std::string_view kindA) : kind(kindA) { ++liveObjects; }
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;
    virtual ~Object() { --liveObjects; }
    virtual void Silence() {}  // its handle has been released: it calls nobody back any more

    const std::string_view kind;  // its class's own
};

NolSchedHandle Keep(std::shared_ptr<Object> object);
// Of that kind, or of any for nothing. Throws CallError for a handle that stands for no such object.
std::shared_ptr<Object> ObjectOf(NolSchedHandle handle, std::string_view kind = {});
// Throws CallError for a handle that stands for nothing.
void Drop(NolSchedHandle handle);

template <class T>
std::shared_ptr<T> ObjectAs(NolSchedHandle handle) {
    return std::static_pointer_cast<T>(ObjectOf(handle, T::name));
}

// What a call-back answers.
struct Answer : Object {
    static constexpr std::string_view name = "answer of a call-back";
    Answer() : Object(name) {}
    std::vector<std::vector<LintelField>> rows;
    std::string failure;  // of a row or column that it gave
};

// Throws CallError for a null pointer, and for a text that is no UTF-8; `what` it is, with its article.
void CheckPointer(const void* pointer, const char* what);
std::string Text(const char* text, const char* what);

// Hands a text out until the thread's next call.
void HandOut(const char** place, std::string text);

}  // namespace NolSchedCtls::inline v1::C
