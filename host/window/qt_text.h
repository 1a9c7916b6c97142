// Texts between the tabs, which hold UTF-8, and Qt.
#pragma once

#include <QString>
#include <string>
#include <string_view>

#include "host/entries/visible_text.h"

namespace NolSchedCtls {

using namespace Qt::StringLiterals;

inline QString ToQt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// What users and other programs have stored, for one line: its controls and marks of direction as escapes.
inline QString ToVisible(std::string_view text) { return ToQt(WithoutControls(text)); }

// Captions carry blanks for their spacing, which a layout gives by itself.
inline QString Trimmed(std::string_view caption) { return ToQt(caption).trimmed(); }

inline QString WithoutMnemonic(QString caption) { return caption.remove(u'&'); }

}  // namespace NolSchedCtls
