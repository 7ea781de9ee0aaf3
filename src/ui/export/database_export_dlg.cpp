#include "ui/export/database_export_dlg.h"

#include "ui/export/export_progress_dlg.h"
#include "ui/message.h"
#include "ui/read_only_box.h"

#include <utility>

#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace tessaview {

CDatabaseExportDlg::CDatabaseExportDlg(QWidget* parent, const NetworkMap& model,
                                       CharsetPolicy charsets)
    : QDialog(parent)
    , model_(model)
    , charsets_(std::move(charsets))
    , edit_(new QLineEdit)
    , browseButton_(new QPushButton("Browse..."))
    , exportButton_(new QPushButton("Export..."))
    , cancelButton_(new QPushButton("Cancel"))
    , outcome_(new QLabel)
{
    setWindowTitle("Database export");
    auto* const label = new QLabel("Database:");
    label->setBuddy(edit_);
    makeReadOnly(*edit_); // the path comes from the file dialog alone
    edit_->setPlaceholderText("No file chosen");
    edit_->setMinimumWidth(edit_->fontMetrics().averageCharWidth() * 50);
    outcome_->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto* const layout = new QGridLayout(this);
    layout->addWidget(label, 0, 0);
    layout->addWidget(edit_, 0, 1, 1, 2);
    layout->addWidget(browseButton_, 0, 3);
    layout->addWidget(outcome_, 1, 0, 1, 2);
    layout->addWidget(exportButton_, 1, 2);
    layout->addWidget(cancelButton_, 1, 3);
    layout->setColumnStretch(1, 1);

    connect(browseButton_, &QPushButton::clicked, this, &CDatabaseExportDlg::browse);
    connect(exportButton_, &QPushButton::clicked, this, &CDatabaseExportDlg::exportModel);
    connect(cancelButton_, &QPushButton::clicked, this, &CDatabaseExportDlg::reject);
    exportButton_->setDefault(true); // takes effect in the dialog only
    browseButton_->setFocus();
}

QString CDatabaseExportDlg::chooseFile(const QString& path)
{
    return QFileDialog::getSaveFileName(this, "Save As", path,
                                        "SQLite databases (*.sqlite *.db);;All files (*)", nullptr,
                                        QFileDialog::DontConfirmOverwrite);
}

/// An export writes no file that is there: whoever chooses one is not asked whether it may go.
bool CDatabaseExportDlg::isAnotherWanted(const QString& path)
{
    return ask(this, QMessageBox::Question,
               QStringLiteral("%1 exists already, and an export never replaces a file.\n"
                              "Do you want to choose another name ?")
                   .arg(path),
               QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes) == QMessageBox::Yes;
}

void CDatabaseExportDlg::browse()
{
    QString chosen = path_;
    do {
        chosen = chooseFile(chosen);
        if (chosen.isEmpty())
            return;
        if (QFileInfo(chosen).suffix().isEmpty())
            chosen += ".sqlite";
    } while (QFileInfo::exists(chosen) && isAnotherWanted(chosen));
    path_ = chosen;
    edit_->setText(path_);
    outcome_->clear();
    exportButton_->setFocus();
}

void CDatabaseExportDlg::exportModel()
{
    if (path_.isEmpty()) {
        complain(this, "Choose the file of the new database with \"Browse...\" first.");
        return;
    }
    outcome_->clear();
    CExportProgressDlg progress(this, model_, QFile::encodeName(path_).toStdString(), charsets_);
    progress.exec();
    activateWindow(); // the window that had the keys is gone
    if (progress.hasExported()) {
        outcome_->setText("The database is written.");
        cancelButton_->setFocus();
    } else {
        browseButton_->setFocus();
    }
}

void runDatabaseExport(QWidget* parent, const NetworkMap& model, const CharsetPolicy& charsets)
{
    CDatabaseExportDlg(parent, model, charsets).exec();
}

} // namespace tessaview
