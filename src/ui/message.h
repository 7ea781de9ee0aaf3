#pragma once

#include <QMessageBox>

namespace tessaview {

/// The program's title, which all its message boxes have.
inline constexpr const char* kProgramTitle = "Tessaview3";

/// Shows a modal box, whose text is no markup, and returns the button that ended it.
inline int ask(QWidget* parent, QMessageBox::Icon icon, const QString& text,
               QMessageBox::StandardButtons buttons,
               QMessageBox::StandardButton preset = QMessageBox::NoButton)
{
    QMessageBox box(icon, QLatin1String(kProgramTitle), text, buttons, parent);
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(preset);
    return box.exec();
}

inline void complain(QWidget* parent, const QString& text)
{
    ask(parent, QMessageBox::Warning, text, QMessageBox::Ok);
}

} // namespace tessaview
