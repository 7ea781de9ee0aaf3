#pragma once

#include <QString>

class QWidget;

namespace tessaview {

/// Writes a document, which is an empty file whatever was read: asks before a file loses data by
/// it, and says where what was read can be kept, if `hasRead`. False when the file is not written,
/// of which the user knows.
bool saveEmptyDocument(QWidget* parent, const QString& path, bool hasRead);

} // namespace tessaview
