#include "ui/empty_document.h"

#include "ui/message.h"

#include <QFileInfo>
#include <QSaveFile>

namespace tessaview {

namespace {

bool isToBeEmptied(QWidget* parent, const QString& path)
{
    return ask(parent, QMessageBox::Warning,
               QStringLiteral("%1 holds data, which would be lost: a document is saved as an "
                              "empty file, and what was read is not saved with it.\n"
                              "Do you want to empty the file ?")
                   .arg(path),
               QMessageBox::Yes | QMessageBox::No, QMessageBox::No) == QMessageBox::Yes;
}

} // namespace

bool saveEmptyDocument(QWidget* parent, const QString& path, bool hasRead)
{
    if (QFileInfo(path).size() > 0 && !isToBeEmptied(parent, path))
        return false;
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || !file.commit()) {
        complain(parent, QStringLiteral("%1 cannot be saved: %2").arg(path, file.errorString()));
        return false;
    }
    if (hasRead)
        ask(parent, QMessageBox::Information,
            QStringLiteral("%1 is saved as an empty file: what was read is not in it, but can be "
                           "kept with \"Database export...\" in the menu File, or read again "
                           "from captures.")
                .arg(path),
            QMessageBox::Ok);
    return true;
}

} // namespace tessaview
