#include "NolSchedCtls/toolkit/check_box.h"

namespace NolSchedCtls {

void CheckBox::SetValue(int valueA) {
    if (Assign(value, valueA)) Clicked.Raise();
}

bool CheckBox::Click() {
    if (!BeginUserAct()) return false;
    SetValue(value == 0 ? 1 : 0);
    return true;
}

}  // namespace NolSchedCtls
