// All kinds of view fields, and how to treat a field as what it is.
#pragma once

#include <utility>

#include "NolSchedCtls/toolkit/check_box.h"
#include "NolSchedCtls/toolkit/drop_down_list.h"
#include "NolSchedCtls/toolkit/dt_picker.h"
#include "NolSchedCtls/toolkit/ss_date_combo.h"
#include "NolSchedCtls/toolkit/text_box.h"
#include "NolSchedCtls/toolkit/view_field.h"
#include "NolSchedCtls/toolkit/x_ambit.h"
#include "NolSchedCtls/toolkit/x_marlet.h"

namespace NolSchedCtls::inline v1 {

// Calls the visitor with the field as what it is, and gives what it gives.
template <class Visitor>
decltype(auto) VisitField(ViewField& field, Visitor&& visitor) {
    return std::visit([&visitor](auto* kind) -> decltype(auto) { return visitor(*kind); }, field.Kind());
}

template <class Visitor>
decltype(auto) VisitField(const ViewField& field, Visitor&& visitor) {
    return VisitField(const_cast<ViewField&>(field),
                      [&visitor](const auto& kind) -> decltype(auto) { return visitor(kind); });
}

}  // namespace NolSchedCtls::inline v1
