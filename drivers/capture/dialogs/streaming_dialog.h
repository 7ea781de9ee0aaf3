#pragma once

#include "drivers/capture/stream_copy.h"

#include <memory>
#include <thread>

#include <QDialog>
#include <QElapsedTimer>
#include <QTimer>

class QLabel;
class QProgressBar;
class QPushButton;

namespace tessaview {

class CaptureTuner;
class StreamFileField;

/// "Streaming to file...": writes the capture the tuner is set to to another file.
class StreamingDialog : public QDialog {
public:
    StreamingDialog(CaptureTuner& tuner, QWidget* owner);
    ~StreamingDialog() override;

    /// Escape and the title bar: cancels a copy under way, else closes.
    void reject() override;

private:
    void arrange(const QString& source);
    void startOrCancel();
    void start();
    void showProgress();
    void finish(const StreamCopy::Result& result);

    std::filesystem::path source_;
    StreamFileField* destination_;
    QPushButton* start_;
    QPushButton* close_;
    QProgressBar* bar_;
    QLabel* progress_;
    QLabel* message_;
    QTimer timer_;
    QElapsedTimer elapsed_;
    std::unique_ptr<StreamCopy> copy_;
    std::jthread worker_; // after all that it uses
};

} // namespace tessaview
