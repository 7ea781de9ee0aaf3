#pragma once

#include <QString>

class QWidget;

namespace tessaview {

/// A message box; returns when the user has closed it. Both texts are shown as they are and can
/// be copied; the detail, which may be empty, stands below in smaller type.
void showMessage(QWidget* parent, const QString& text, const QString& detail = {});

} // namespace tessaview
