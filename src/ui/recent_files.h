#pragma once

#include <QStringList>

// The files that were last the document's, the newest first, as the user's settings keep them.

namespace tessaview::recent_files {

inline constexpr int kMostFiles = 4;

QStringList list();
void add(const QString& path);
void remove(const QString& path);

} // namespace tessaview::recent_files
