#include "ui/export/export_progress_dlg.h"

#include "export/database_export.h"
#include "ui/export/export_message.h"

#include <system_error>
#include <utility>

#include <QLabel>
#include <QShowEvent>
#include <QVBoxLayout>

namespace tessaview {

CExportProgressDlg::CExportProgressDlg(QWidget* parent, const NetworkMap& model,
                                       std::filesystem::path file)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint)
    , model_(model)
    , file_(std::move(file))
{
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 24, 24, 24);
    layout->addWidget(new QLabel("Exporting to database. Please wait..."));
}

void CExportProgressDlg::reject()
{
    if (!worker_.joinable())
        QDialog::reject();
}

void CExportProgressDlg::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    // Queued, so that a message stands over the open dialog.
    if (!event->spontaneous())
        QMetaObject::invokeMethod(this, &CExportProgressDlg::start, Qt::QueuedConnection);
}

std::jthread CExportProgressDlg::startThread(std::function<void()> work)
{
    return std::jthread(std::move(work));
}

void CExportProgressDlg::start()
{
    try {
        worker_ = startThread([this] {
            failure_ = exportDatabase(model_, file_);
            QMetaObject::invokeMethod(this, &CExportProgressDlg::finish, Qt::QueuedConnection);
        });
    } catch (const std::system_error&) {
        showExportMessage(this, "Failed to create thread");
    }
}

void CExportProgressDlg::finish()
{
    worker_.join();
    if (failure_)
        showExportMessage(this, failure_->what());
    done(0);
}

} // namespace tessaview
