#include "NolSchedCtls/services/lintel.h"

#include <limits>
#include <optional>

#include "NolSchedCtls/base/error.h"
#include "NolSchedCtls/base/text.h"

namespace NolSchedCtls::inline v1 {

namespace {

struct ToInteger {
    std::optional<std::int64_t> operator()(std::monostate) const { return {}; }
    std::optional<std::int64_t> operator()(std::int64_t number) const { return number; }
    std::optional<std::int64_t> operator()(double number) const {
        const bool inRange = number >= -9.0e15 && number <= 9.0e15;
        const auto whole = inRange ? static_cast<std::int64_t>(number) : 0;
        if (!inRange || static_cast<double>(whole) != number) return {};
        return whole;
    }
    std::optional<std::int64_t> operator()(const std::string& text) const {
        return ParseWhole<std::int64_t>(text);
    }
};

struct ToText {
    std::string operator()(std::monostate) const { return {}; }
    std::string operator()(std::int64_t number) const { return std::to_string(number); }
    std::string operator()(double number) const {
        const auto whole = ToInteger{}(number);
        return whole ? std::to_string(*whole) : std::to_string(number);
    }
    std::string operator()(const std::string& text) const { return text; }
};

bool FitsNumber(std::int64_t number) {
    return number >= std::numeric_limits<std::int32_t>::min() &&
           number <= std::numeric_limits<std::int32_t>::max();
}

}  // namespace

LintelValue ILintelDb::NumberToValue(std::int32_t nNumber, std::int32_t nNoValue) const {
    return nNumber == nNoValue ? LintelValue{} : LintelValue{std::int64_t{nNumber}};
}

std::int32_t ILintelDb::FieldToNumber(const LintelField& field, std::int32_t nFallback) const {
    if (std::holds_alternative<std::monostate>(field.Value)) return nFallback;
    const auto number = std::visit(ToInteger{}, field.Value);
    if (!number || !FitsNumber(*number))
        throw NolSchedError("The column " + field.Name + " holds " + Quoted(FieldToText(field)) +
                            ", which is no 32-bit number.");
    return static_cast<std::int32_t>(*number);
}

std::string FieldToText(const LintelField& field) { return std::visit(ToText{}, field.Value); }

}  // namespace NolSchedCtls::inline v1
