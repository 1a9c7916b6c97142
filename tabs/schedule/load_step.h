// One step of a load.
#pragma once

#include <string>

#include "records/services/error.h"

namespace NolSchedCtls {

// Runs the step that shows a property. A view field's failure names what the view lacks; this puts the
// record's property and value before it.
template <class Step>
void ShowProperty(const char* sProperty, const std::string& sValue, Step step) {
    try {
        step();
    } catch (const NolSchedError& failure) {
        throw NolSchedError("The entry's " + std::string(sProperty) + " " + sValue +
                            " cannot be shown: " + failure.what());
    }
}

}  // namespace NolSchedCtls
