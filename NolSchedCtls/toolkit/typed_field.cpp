#include "NolSchedCtls/toolkit/typed_field.h"

namespace NolSchedCtls::inline v1 {

bool TypedField::TypeText(std::string_view text) {
    if (!BeginUserAct()) return false;
    std::string why = Take(text);
    if (why.empty()) return true;
    typed = text;
    refusal = std::move(why);
    Tell(FieldPart::Value);
    return false;
}

void TypedField::DropRefusedText() { Assign(FieldPart::Value, refusal, {}); }

}  // namespace NolSchedCtls::inline v1
