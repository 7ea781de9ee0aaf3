#pragma once

#include "drivers/linuxdvb/dialogs/signal_watch.h"
#include "drivers/linuxdvb/stream_recorder.h"

#include <memory>
#include <optional>
#include <thread>

#include <QDialog>
#include <QTimer>

class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace tessaview {

class RecordingPanel;
class StreamFileField;

/// "Streaming to file...": records what the receiver is tuned to.
class StreamingDialog : public QDialog {
public:
    StreamingDialog(DvbTuner& tuner, QWidget* owner);
    ~StreamingDialog() override;

    /// Escape and the title bar: offers to stop a recording under way, else closes.
    void reject() override;

private:
    void arrange();
    void arrangeChoice(QGridLayout& grid);
    void startWatching();
    void showTuner(const TunerLook& look);
    void startOrStop();
    std::optional<Recording> wanted();
    bool mayRecordTo(Recording& recording);
    void start(Recording recording);
    void setRecording(bool isRecording);
    void finish(const StreamRecorder::Result& result);
    void complain(const QString& text, QWidget* toMend);

    DvbTuner& tuner_;
    bool isTuned_ = false;
    QLabel* channel_;
    QRadioButton* whole_;
    QRadioButton* chosen_;
    QLineEdit* pids_;
    StreamFileField* destination_;
    RecordingPanel* panel_;
    QLabel* message_;
    QPushButton* start_;
    QPushButton* close_;
    QTimer timer_;
    std::unique_ptr<SignalWatch> watch_;
    std::unique_ptr<StreamRecorder> recorder_;
    std::jthread worker_; // after all that it uses
};

} // namespace tessaview
