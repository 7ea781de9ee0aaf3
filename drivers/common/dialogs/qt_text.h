#pragma once

#include <filesystem>
#include <string>

#include <QFile>
#include <QString>

namespace tessaview {

inline QString toQt(const std::string& utf8)
{
    return QString::fromStdString(utf8);
}

/// A file's name as its bytes are, whatever the locale.
inline QString toQt(const std::filesystem::path& path)
{
    return QFile::decodeName(path.c_str());
}

inline std::filesystem::path toPath(const QString& text)
{
    return QFile::encodeName(text).toStdString();
}

} // namespace tessaview
