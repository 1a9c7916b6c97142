#include "NolSchedCtls/base/error.h"

#include <exception>

namespace NolSchedCtls::inline v1 {

namespace {

constexpr std::size_t longestQuote = 60;

bool IsContinuationByte(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

}  // namespace

std::string Quoted(std::string_view text) {
    if (text.size() <= longestQuote) return '"' + std::string(text) + '"';
    std::size_t end = longestQuote;
    while (end > 0 && IsContinuationByte(text[end])) --end;
    return '"' + std::string(text.substr(0, end)) + "...\"";
}

std::string PresentFailure() {
    try {
        if (const auto failure = std::current_exception()) std::rethrow_exception(failure);
    } catch (const std::exception& failure) {
        return failure.what();
    } catch (...) {
        return "a failure that bears no text";
    }
    return "no failure";
}

}  // namespace NolSchedCtls::inline v1
