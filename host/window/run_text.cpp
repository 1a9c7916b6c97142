#include "host/window/run_text.h"

#include <QLocale>
#include <QTime>
#include <array>

#include "NolSchedCtls/services/provider.h"
#include "NolSchedCtls/toolkit/date_text.h"
#include "host/window/date_combo.h"
#include "host/window/qt_text.h"

namespace NolSchedCtls {

namespace {

constexpr DateTime farDays = 300;

// By the order of the regional settings' short form.
using Formats = std::array<const char16_t*, 3>;
constexpr Formats dayFormats = {u"ddd MMM d", u"ddd d MMM", u"ddd MMM d"};
constexpr Formats dateFormats = {u"MMM d, yyyy", u"d MMM yyyy", u"yyyy MMM d"};
constexpr Formats farFormats = {u"ddd MMM d, yyyy", u"ddd d MMM yyyy", u"ddd yyyy MMM d"};

QString Formatted(DateTime day, const Formats& formats) {
    const auto order = static_cast<std::size_t>(DateSettings().DateOrder());
    return QLocale().toString(ToQDate(day), QString::fromUtf16(formats[order]));
}

}  // namespace

QString TimeText(DateTime moment) {
    const DateTimeParts parts = SplitDateTime(moment);
    return QTime(parts.hour, parts.minute).toString(u"h:mm AP"_s);
}

QString ShortRunText(DateTime run) { return ToQt(ShortDateText(run)) + u' ' + TimeText(run); }

QString RunText(DateTime run, DateTime now) {
    return Formatted(run, run - now < farDays ? dayFormats : farFormats) + u' ' + TimeText(run);
}

QString DayText(DateTime day) { return Formatted(day, dayFormats); }
QString DateText(DateTime day) { return Formatted(day, dateFormats); }

Qt::DayOfWeek FirstDayOfWeek() {
    const int day = DateSettings().FirstDayOfWeek();
    return day == 1 ? Qt::Sunday : static_cast<Qt::DayOfWeek>(day - 1);
}

QString CountText(int runs) { return runs == 1 ? u"1 run"_s : u"%1 runs"_s.arg(QLocale().toString(runs)); }

}  // namespace NolSchedCtls
