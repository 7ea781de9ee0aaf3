#include "ui/export/export_progress_dlg.h"

#include "export/database_export.h"
#include "ui/message.h"

#include <system_error>
#include <utility>

#include <QLabel>
#include <QShowEvent>
#include <QVBoxLayout>

namespace tessaview {

CExportProgressDlg::CExportProgressDlg(QWidget* parent, const NetworkMap& model,
                                       std::filesystem::path file, CharsetPolicy charsets)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint)
    , model_(model)
    , file_(std::move(file))
    , charsets_(std::move(charsets))
{
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 24, 24, 24);
    layout->addWidget(new QLabel("Exporting to database. Please wait..."));
    // Queued, so that a message stands over the open dialog.
    connect(this, &CExportProgressDlg::shown, this, &CExportProgressDlg::start,
            Qt::QueuedConnection);
    connect(this, &CExportProgressDlg::workerEnded, this, &CExportProgressDlg::finish,
            Qt::QueuedConnection);
}

void CExportProgressDlg::reject()
{
    if (!worker_.joinable())
        QDialog::reject();
}

void CExportProgressDlg::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (!event->spontaneous())
        emit shown();
}

std::jthread CExportProgressDlg::startThread(std::function<void()> work)
{
    return std::jthread(std::move(work));
}

void CExportProgressDlg::start()
{
    try {
        worker_ = startThread([this] {
            failure_ = exportDatabase(model_, file_, charsets_);
            emit workerEnded();
        });
    } catch (const std::system_error&) {
        complain(this, "Failed to create thread");
    }
}

void CExportProgressDlg::finish()
{
    worker_.join();
    hasExported_ = !failure_;
    if (failure_)
        complain(this, failure_->what());
    done(0);
}

} // namespace tessaview
