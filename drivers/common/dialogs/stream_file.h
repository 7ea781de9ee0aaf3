#pragma once

#include <QDir>
#include <QFileDialog>
#include <QWidget>

namespace tessaview {

/// Lets the user choose the file that a stream is written to; empty when he does not. Whether an
/// existing file may go is asked at the start, where it may also have been typed.
inline QString chooseStreamFile(QWidget* parent, const QString& present)
{
    return QFileDialog::getSaveFileName(
        parent, parent->windowTitle(), present.isEmpty() ? QDir::homePath() : present,
        "Transport streams (*.ts);;All files (*)", nullptr, QFileDialog::DontConfirmOverwrite);
}

} // namespace tessaview
