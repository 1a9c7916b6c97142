// The eight classes that the library publishes, and their creation by name.
#pragma once

#include <memory>
#include <span>
#include <string_view>
#include <variant>

#include "NolSchedCtls/base/export.h"

namespace NolSchedCtls::inline v1 {

class CNolOverride;
class CNolSchedData;
class PaviseTab;

enum class ClassKind { DataClass, Control };

using PublishedObject =
    std::variant<std::shared_ptr<CNolSchedData>, std::shared_ptr<CNolOverride>, std::shared_ptr<PaviseTab>>;

struct PublishedClass {
    std::string_view sName;
    ClassKind kind;
    std::string_view sDefaultInterface;
    std::string_view
        sEventInterface;  // of a control, without events: tabs tell their host through the notifier
    std::string_view sAlsoImplements;
    std::string_view sProgId;  // of a control
    int nWidth;                // of a control's design, in twips
    int nHeight;
    std::span<const std::string_view> outsideControls;
    std::span<const std::string_view> members;  // of its own, in their published order
    PublishedObject (*create)();
};

// In their published order.
NOLSCHED_API std::span<const PublishedClass> PublishedClasses();

// By class name or program identifier, exactly; nothing for another.
NOLSCHED_API const PublishedClass* FindPublishedClass(std::string_view sName);

// Throws NolSchedError for what is no control's program identifier, and what the control's creation throws:
// the schedule tab reads its lists from the services, which have to be installed.
NOLSCHED_API std::shared_ptr<PaviseTab> CreateControl(std::string_view sProgId);

struct VersionBlock {
    const char* sName;
    const char* sVersion;
    const char* sMark;  // that the library registers itself
};

NOLSCHED_API const VersionBlock& LibraryVersion();

}  // namespace NolSchedCtls::inline v1
