#include "NolSchedCtls/library/c_calls.h"

#include <algorithm>
#include <mutex>
#include <utility>

#include "NolSchedCtls/base/utf8.h"
#include "NolSchedCtls/services/provider.h"

namespace NolSchedCtls::inline v1::C {

namespace {

thread_local std::string lastFailure;
thread_local int runningCalls = 0;
thread_local std::vector<std::shared_ptr<Object>> released;

struct Handle {
    NolSchedHandle number;
    std::shared_ptr<Object> object;  // nothing: released
};

struct HandleTable {
    std::mutex mutex;
    std::vector<Handle> handles;  // by number
    std::size_t releasedHandles = 0;
    NolSchedHandle last = 0;
};

HandleTable& TheTable() {
    static HandleTable table;
    return table;
}

[[noreturn]] void TellBadHandle(NolSchedHandle handle, const std::string& why) {
    throw CallError(NOLSCHED_BAD_HANDLE, "The handle " + std::to_string(handle) + why + ".");
}

std::vector<Handle>::iterator Find(HandleTable& table, NolSchedHandle handle) {
    const auto isBefore = [](const Handle& held, NolSchedHandle number) { return held.number < number; };
    const auto found = std::lower_bound(table.handles.begin(), table.handles.end(), handle, isBefore);
    if (found != table.handles.end() && found->number == handle && found->object) return found;
    TellBadHandle(handle,
                  handle > 0 && handle <= table.last ? " has been released" : " was never handed out");
}

std::int32_t ResultOfFailure() {
    try {
        throw;
    } catch (const CallError& error) {
        return error.result;
    } catch (const ValueError&) {
        return NOLSCHED_BAD_VALUE;
    } catch (const NoServicesError&) {
        return NOLSCHED_BAD_ORDER;
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
    HandleTable& table = TheTable();
    const std::lock_guard lock(table.mutex);
    table.handles.push_back({table.last + 1, std::move(object)});
    return ++table.last;
}

std::shared_ptr<Object> ObjectOf(NolSchedHandle handle, std::string_view kind) {
    HandleTable& table = TheTable();
    const std::lock_guard lock(table.mutex);
    const auto found = Find(table, handle);
    if (!kind.empty() && found->object->kind != kind) TellBadHandle(handle, " is no " + std::string(kind));
    return found->object;
}

// The object ends outside the lock: its end may use the table.
void Drop(NolSchedHandle handle) {
    const std::shared_ptr<Object> object = ObjectOf(handle);
    if (runningCalls > 0) released.push_back(object);
    object->Silence();
    HandleTable& table = TheTable();
    const std::lock_guard lock(table.mutex);
    Find(table, handle)->object.reset();
    // Many at once, so that the end of all of them takes no longer than their beginning.
    if (++table.releasedHandles * 2 <= table.handles.size()) return;
    std::erase_if(table.handles, [](const Handle& held) { return !held.object; });
    table.releasedHandles = 0;
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
