#include "ui/message.h"

#include <QTextDocument>

namespace tessaview {

MessageBox::MessageBox(QWidget* parent, Icon icon, const QString& text, StandardButtons buttons)
    : QMessageBox(icon, QLatin1String(kProgramTitle), text, buttons, parent)
{
    setTextFormat(Qt::PlainText);
}

void MessageBox::setDetail(const QString& text)
{
    // The text format does not hold for this one.
    setInformativeText(Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal));
}

int ask(QWidget* parent, QMessageBox::Icon icon, const QString& text,
        QMessageBox::StandardButtons buttons, QMessageBox::StandardButton preset)
{
    MessageBox box(parent, icon, text, buttons);
    box.setDefaultButton(preset);
    return box.exec();
}

void complain(QWidget* parent, const QString& text, const QString& detail)
{
    MessageBox box(parent, QMessageBox::Warning, text);
    if (!detail.isEmpty())
        box.setDetail(detail);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    box.setDefaultButton(QMessageBox::Ok); // it has the focus, which the text could take
    box.exec();
}

} // namespace tessaview
