#include "ui/export/export_message.h"

#include <QMessageBox>

namespace tessaview {

void showExportMessage(QWidget* parent, const QString& text)
{
    QMessageBox box(QMessageBox::Warning, "Tessaview3", text, QMessageBox::Ok, parent);
    box.setTextFormat(Qt::PlainText); // file names may look like markup
    box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    box.exec();
}

} // namespace tessaview
