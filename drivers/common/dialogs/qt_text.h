#pragma once

#include <filesystem>
#include <string>

#include <QFile>
#include <QString>
#include <QUrl>

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

/// The file of a local address, byte for byte: not every name is UTF-8.
inline std::filesystem::path toPath(const QUrl& url)
{
    const QByteArray encoded = url.path(QUrl::FullyEncoded).toLatin1();
    return QByteArray::fromPercentEncoding(encoded).toStdString();
}

inline std::filesystem::path toPath(const QString& text)
{
    return QFile::encodeName(text).toStdString();
}

} // namespace tessaview
