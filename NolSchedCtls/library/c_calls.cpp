#include "NolSchedCtls/library/c_calls.h"

#include <map>
#include <mutex>
#include <utility>

#include "NolSchedCtls/base/utf8.h"

namespace NolSchedCtls::inline v1::C {

namespace {

thread_local std::string lastFailure;
thread_local int runningCalls = 0;
thread_local std::vector<std::shared_ptr<Object>> released;

struct HandleTable {
    std::mutex mutex;
    std::map<NolSchedHandle, std::shared_ptr<Object>> objects;
    NolSchedHandle last = 0;
};

HandleTable& Handles() {
    static HandleTable handles;
    return handles;
}

[[noreturn]] void TellNoHandle(NolSchedHandle handle, NolSchedHandle last) {
    const bool wasOne = handle > 0 && handle <= last;
    throw CallError(NOLSCHED_BAD_HANDLE, "The handle " + std::to_string(handle) +
                                             (wasOne ? " has been released." : " was never handed out."));
}

std::int32_t ResultOfFailure() {
    try {
        throw;
    } catch (const CallError& error) {
        return error.result;
    } catch (const ValueError&) {
        return NOLSCHED_BAD_VALUE;
    } catch (...) {
        return NOLSCHED_FAILED;
    }
}

}  // namespace

RunningCall::RunningCall() noexcept { ++runningCalls; }

RunningCall::~RunningCall() {
    if (--runningCalls == 0) std::exchange(released, {}).clear();
}

std::int32_t KeepFailure() noexcept {
    const std::int32_t result = ResultOfFailure();
    try {
        lastFailure = PresentFailure();
    } catch (...) {
        lastFailure.clear();  // there is no memory for the text
    }
    return result;
}

const char* LastFailure() noexcept { return lastFailure.c_str(); }

NolSchedHandle Keep(std::shared_ptr<Object> object) {
    HandleTable& handles = Handles();
    const std::lock_guard lock(handles.mutex);
    handles.objects.emplace(++handles.last, std::move(object));
    return handles.last;
}

std::shared_ptr<Object> ObjectOf(NolSchedHandle handle) {
    HandleTable& handles = Handles();
    const std::lock_guard lock(handles.mutex);
    const auto found = handles.objects.find(handle);
    if (found == handles.objects.end()) TellNoHandle(handle, handles.last);
    return found->second;
}

// The object ends outside the lock: its end may use the table.
void Drop(NolSchedHandle handle) {
    const std::shared_ptr<Object> object = ObjectOf(handle);
    if (runningCalls > 0) released.push_back(object);
    object->Silence();
    HandleTable& handles = Handles();
    const std::lock_guard lock(handles.mutex);
    handles.objects.erase(handle);
}

void CheckPointer(const void* pointer, const char* what) {
    if (pointer == nullptr)
        throw CallError(NOLSCHED_BAD_POINTER, "A null pointer stands for " + std::string(what) + ".");
}

std::string Text(const char* text, const char* what) {
    CheckPointer(text, what);
    if (!IsUtf8(text))
        throw CallError(NOLSCHED_BAD_VALUE, "What stands for " + std::string(what) + " is no UTF-8.");
    return text;
}

void HandOut(const char** place, std::string text) {
    thread_local std::string handedOut;
    handedOut = std::move(text);
    *place = handedOut.c_str();
}

}  // namespace NolSchedCtls::inline v1::C
