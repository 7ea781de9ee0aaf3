#pragma once

#include <QString>

class QLabel;
class QWidget;

namespace tessaview {

/// Names a control for those who look for it and for those who hear it.
void name(QWidget* control, const char* objectName, const QString& spoken);

/// A label whose text can be marked and copied.
QLabel* valueLabel(QWidget* parent = nullptr);
/// The same for sentences, by key too, with room for two lines.
QLabel* messageLabel(QWidget* parent = nullptr);

/// Shows a value, which is read out behind the name that it has on the window.
void setValue(QLabel* label, const QString& spoken, const QString& value);

/// The same for the outcome of something, which the window grows for if need be.
void setMessage(QLabel* label, const QString& text);

} // namespace tessaview
