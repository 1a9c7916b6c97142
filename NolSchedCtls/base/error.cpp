#include "NolSchedCtls/base/error.h"

namespace NolSchedCtls {

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

}  // namespace NolSchedCtls
