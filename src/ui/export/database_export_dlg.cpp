#include "ui/export/database_export_dlg.h"

#include "ui/export/export_progress_dlg.h"
#include "ui/message.h"

#include <utility>

#include <QFile>
#include <QFileDialog>
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
    , exportButton_(new QPushButton("Export..."))
    , outcome_(new QLabel)
{
    setWindowTitle("Database export");
    auto* const label = new QLabel("Database:");
    label->setBuddy(edit_);
    edit_->setReadOnly(true); // the path comes from the file dialog alone
    edit_->setPlaceholderText("No file chosen");
    edit_->setMinimumWidth(edit_->fontMetrics().averageCharWidth() * 50);
    auto* const browseButton = new QPushButton("Browse...");
    auto* const cancelButton = new QPushButton("Cancel");
    outcome_->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto* const layout = new QGridLayout(this);
    layout->addWidget(label, 0, 0);
    layout->addWidget(edit_, 0, 1, 1, 2);
    layout->addWidget(browseButton, 0, 3);
    layout->addWidget(outcome_, 1, 0, 1, 2);
    layout->addWidget(exportButton_, 1, 2);
    layout->addWidget(cancelButton, 1, 3);
    layout->setColumnStretch(1, 1);

    connect(browseButton, &QPushButton::clicked, this, &CDatabaseExportDlg::browse);
    connect(exportButton_, &QPushButton::clicked, this, &CDatabaseExportDlg::exportModel);
    connect(cancelButton, &QPushButton::clicked, this, &CDatabaseExportDlg::reject);
    exportButton_->setDefault(true); // takes effect in the dialog only
    browseButton->setFocus();
}

QString CDatabaseExportDlg::chooseFile(const QString& path)
{
    return QFileDialog::getSaveFileName(this, "Save As", path,
                                        "SQLite databases (*.sqlite *.db);;All files (*)");
}

void CDatabaseExportDlg::browse()
{
    const QString chosen = chooseFile(path_);
    if (chosen.isEmpty())
        return;
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
    if (progress.hasExported())
        outcome_->setText("The database is written.");
}

void runDatabaseExport(QWidget* parent, const NetworkMap& model, const CharsetPolicy& charsets)
{
    CDatabaseExportDlg(parent, model, charsets).exec();
}

} // namespace tessaview
