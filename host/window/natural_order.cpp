#include "host/window/natural_order.h"

namespace NolSchedCtls {

namespace {

bool IsDigit(QChar letter) { return letter >= u'0' && letter <= u'9'; }

// The digits at the place, which moves behind them, without zeros before them.
QStringView TakeNumber(QStringView text, qsizetype& place) {
    while (place < text.size() && text[place] == u'0') ++place;
    const qsizetype start = place;
    while (place < text.size() && IsDigit(text[place])) ++place;
    return text.sliced(start, place - start);
}

int CompareNumbers(QStringView left, QStringView right) {
    const qsizetype longer = left.size() - right.size();
    return longer != 0 ? static_cast<int>(longer) : left.compare(right);
}

}  // namespace

// Most letters that meet are equal, and so are most texts of a column like that of the groups.
int CompareNaturally(QStringView left, QStringView right) {
    if (left == right) return 0;
    qsizetype l = 0;
    qsizetype r = 0;
    while (l < left.size() && r < right.size()) {
        int order = 0;
        if (IsDigit(left[l]) && IsDigit(right[r]))
            order = CompareNumbers(TakeNumber(left, l), TakeNumber(right, r));
        else if (const QChar one = left[l++], other = right[r++]; one != other)
            order = one.toCaseFolded().unicode() - other.toCaseFolded().unicode();
        if (order != 0) return order;
    }
    return static_cast<int>((left.size() - l) - (right.size() - r));
}

}  // namespace NolSchedCtls
