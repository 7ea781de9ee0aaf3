#pragma once

#include <QString>

class QWidget;

namespace tessaview {

/// A message box with a text as it stands, which can be selected and copied.
void showExportMessage(QWidget* parent, const QString& text);

} // namespace tessaview
