#pragma once

#include <QMessageBox>

namespace tessaview {

/// The program's title, which all its message boxes have.
inline constexpr const char* kProgramTitle = "Tessaview3";

/// A message box with the program's title, whose texts are no markup: file names may look like it.
class MessageBox : public QMessageBox {
public:
    MessageBox(QWidget* parent, Icon icon, const QString& text,
               StandardButtons buttons = QMessageBox::Ok);

    /// What stands below the text in smaller type.
    void setDetail(const QString& text);
};

/// Shows a modal box and returns the button that ended it.
int ask(QWidget* parent, QMessageBox::Icon icon, const QString& text,
        QMessageBox::StandardButtons buttons,
        QMessageBox::StandardButton preset = QMessageBox::NoButton);

/// Tells what is wrong, in texts that can be selected and copied; returns when the user has closed
/// the box.
void complain(QWidget* parent, const QString& text, const QString& detail = {});

} // namespace tessaview
