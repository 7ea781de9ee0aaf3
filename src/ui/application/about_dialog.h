#pragma once

#include <QDialog>

namespace tessaview {

/// The About box: the program's icon and version.
class AboutDialog : public QDialog {
    Q_OBJECT

public:
    explicit AboutDialog(QWidget* parent = nullptr);
};

} // namespace tessaview
