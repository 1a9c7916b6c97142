// What the fields of the tabs are called and are for, in words for those who use them.
#pragma once

#include <QString>

#include "NolSchedCtls/toolkit/view_field.h"

namespace NolSchedCtls {

struct FieldText {
    QString name;  // without a text of its own the field's caption, its label's or its frame's
    QString purpose;
};
FieldText TextOf(const ViewField& field);

}  // namespace NolSchedCtls
