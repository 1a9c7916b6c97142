// Texts between the tabs, which hold UTF-8, and Qt.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace NolSchedCtls {

using namespace Qt::StringLiterals;

inline QString ToQt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// Captions carry blanks for their spacing, which a layout gives by itself.
inline QString Trimmed(std::string_view caption) { return ToQt(caption).trimmed(); }

inline QString WithoutMnemonic(QString caption) { return caption.remove(u'&'); }

}  // namespace NolSchedCtls
