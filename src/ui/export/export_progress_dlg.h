#pragma once

#include "charset/charset_policy.h"
#include "export/database_error.h"
#include "model/network_map.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <thread>

#include <QDialog>

namespace tessaview {

/// "Exporting to database. Please wait...": exports on a worker thread and closes itself when
/// that has ended. Cannot be closed before.
class CExportProgressDlg : public QDialog {
    Q_OBJECT

public:
    /// The model must outlive this and stay as it is meanwhile.
    CExportProgressDlg(QWidget* parent, const NetworkMap& model, std::filesystem::path file,
                       CharsetPolicy charsets = {});

    void reject() override;

    /// Once it has closed: whether the database holds everything.
    bool hasExported() const { return hasExported_; }

signals:
    void shown();
    void workerEnded(); ///< from the worker

protected:
    void showEvent(QShowEvent* event) override;
    /// Throws std::system_error when there can be no thread.
    virtual std::jthread startThread(std::function<void()> work);

private:
    void start();
    void finish();

    const NetworkMap& model_;
    std::filesystem::path file_;
    CharsetPolicy charsets_;
    std::optional<DatabaseError> failure_; ///< the worker's until it is joined
    bool hasExported_ = false;
    std::jthread worker_; ///< last: joined before anything else goes
};

} // namespace tessaview
