#pragma once

#include <string>
#include <string_view>

#include <QString>

namespace tessaview {

inline QString toQString(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

/// For labels and menus, which take an ampersand for the mark of a mnemonic.
inline QString withoutMnemonic(QString text)
{
    return text.replace(QLatin1Char('&'), QLatin1String("&&"));
}

} // namespace tessaview
