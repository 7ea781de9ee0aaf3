#include "ui/application/message.h"

#include <QMessageBox>
#include <QTextDocument>

namespace tessaview {

void showMessage(QWidget* parent, const QString& text, const QString& detail)
{
    QMessageBox box(QMessageBox::Warning, QStringLiteral("Tessaview3"), text, QMessageBox::Ok,
                    parent);
    box.setTextFormat(Qt::PlainText);
    if (!detail.isEmpty())
        box.setInformativeText(Qt::convertFromPlainText(detail, Qt::WhiteSpaceNormal));
    box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    box.exec();
}

} // namespace tessaview
