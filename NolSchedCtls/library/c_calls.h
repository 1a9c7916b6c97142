// How a call through the C interface ends, and the handles that it is given.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "NolSchedCtls/base/error.h"
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

// What a handle stands for.
struct Object {
    Object() = default;
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;
    virtual ~Object() = default;
    virtual void Silence() {}  // its handle has been released: it calls nobody back any more
};

NolSchedHandle Keep(std::shared_ptr<Object> object);
// Throws CallError for a handle that stands for nothing, as do the next two.
std::shared_ptr<Object> ObjectOf(NolSchedHandle handle);
void Drop(NolSchedHandle handle);

template <class T>
std::shared_ptr<T> ObjectAs(NolSchedHandle handle) {
    if (auto object = std::dynamic_pointer_cast<T>(ObjectOf(handle))) return object;
    throw CallError(NOLSCHED_BAD_HANDLE, "The handle " + std::to_string(handle) + " is no " + T::name + ".");
}

// What a call-back answers.
struct Answer : Object {
    static constexpr const char* name = "answer of a call-back";
    std::vector<std::vector<LintelField>> rows;
    std::string failure;  // of a row or column that it gave
};

// Throws CallError for a null pointer, and for a text that is no UTF-8; `what` it is, with its article.
void CheckPointer(const void* pointer, const char* what);
std::string Text(const char* text, const char* what);

// Hands a text out until the thread's next call.
void HandOut(const char** place, std::string text);

}  // namespace NolSchedCtls::inline v1::C
