#include "drivers/linuxdvb/dialogs/streaming_dialog.h"

#include "drivers/common/dialogs/qt_text.h"
#include "drivers/common/dialogs/stream_file.h"
#include "drivers/linuxdvb/dialogs/parts.h"
#include "drivers/linuxdvb/dialogs/recording_panel.h"
#include "drivers/linuxdvb/dialogs/signal_panel.h"
#include "drivers/linuxdvb/pid_list.h"

#include <stdexcept>
#include <system_error>

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>

namespace tessaview {

namespace {

constexpr int kUpdateInterval = 500; // ms

} // namespace

StreamingDialog::StreamingDialog(DvbTuner& tuner, QWidget* owner)
    : QDialog(owner)
    , tuner_(tuner)
    , channel_(valueLabel(this))
    , whole_(new QRadioButton("&Whole stream", this))
    , chosen_(new QRadioButton("Only these &PIDs:", this))
    , pids_(new QLineEdit(this))
    , destination_(
          new StreamFileField(this, [this](const QString& free) { panel_->showFree(free); }))
    , panel_(new RecordingPanel(this))
    , message_(messageLabel(this))
    , start_(new QPushButton("&Start", this))
    , close_(new QPushButton("Close", this))
{
    setWindowTitle("Streaming to file");
    arrange();
    showTuner({tuner.state(), std::nullopt});
    connect(chosen_, &QRadioButton::toggled, pids_, &QLineEdit::setEnabled);
    connect(chosen_, &QRadioButton::clicked, pids_, [this] { pids_->setFocus(); });
    connect(start_, &QPushButton::clicked, this, &StreamingDialog::startOrStop);
    connect(close_, &QPushButton::clicked, this, &StreamingDialog::reject);
    connect(&timer_, &QTimer::timeout, this, [this] { panel_->show(*recorder_); });
    startWatching();
}

StreamingDialog::~StreamingDialog()
{
    destination_->forget();
}

void StreamingDialog::arrange()
{
    name(start_, "start", "Start");
    start_->setDefault(true);
    auto* const grid = new QGridLayout;
    grid->setColumnStretch(1, 1);
    grid->addWidget(new QLabel("Stream:", this), 0, 0);
    grid->addWidget(channel_, 0, 1, 1, 2);
    arrangeChoice(*grid);
    auto* const label = new QLabel("&File:", this);
    label->setBuddy(destination_);
    grid->addWidget(label, 3, 0);
    grid->addWidget(destination_, 3, 1, 1, 2);
    auto* const buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(start_);
    buttons->addWidget(close_);
    auto* const recording = new QGroupBox("Recording", this);
    (new QVBoxLayout(recording))->addWidget(panel_);
    auto* const rows = new QVBoxLayout(this);
    rows->addLayout(grid);
    rows->addWidget(recording);
    rows->addWidget(message_);
    rows->addStretch();
    rows->addLayout(buttons);
    resize(620, sizeHint().height());
    destination_->setFocus();
}

void StreamingDialog::arrangeChoice(QGridLayout& grid)
{
    channel_->setObjectName("stream");
    whole_->setObjectName("whole");
    whole_->setChecked(true);
    chosen_->setObjectName("chosen");
    name(pids_, "pids", "PIDs");
    pids_->setPlaceholderText("0x100, 256, 17-20");
    pids_->setEnabled(false);
    grid.addWidget(whole_, 1, 0, 1, 3);
    grid.addWidget(chosen_, 2, 0);
    grid.addWidget(pids_, 2, 1, 1, 2);
}

void StreamingDialog::startWatching()
{
    try {
        watch_ = std::make_unique<SignalWatch>(tuner_, [this](const TunerLook& look) {
            showTuner(look);
            panel_->showSignal(look);
        });
    } catch (const std::system_error&) { // what needs a thread to record says so
    }
}

void StreamingDialog::showTuner(const TunerLook& look)
{
    isTuned_ = look.state.system.has_value();
    const QString text = toQt(look.state.settings.device.name()) + ": " +
                         (isTuned_ || look.state.isTuning
                              ? channelText(look.state)
                              : QString("not tuned; choose a channel with \"Tuning...\""));
    setValue(channel_, "Stream", text);
    if (!recorder_)
        start_->setEnabled(isTuned_);
}

/// Says what has to be mended first.
void StreamingDialog::complain(const QString& text, QWidget* toMend)
{
    setMessage(message_, text);
    toMend->setFocus();
}

void StreamingDialog::startOrStop()
{
    if (recorder_) {
        worker_.request_stop();
        start_->setEnabled(false);
        return;
    }
    setMessage(message_, {});
    auto recording = wanted();
    if (recording && mayRecordTo(*recording))
        start(std::move(*recording));
}

/// What the fields say; nothing, and a message, where they say nothing that can be done.
std::optional<Recording> StreamingDialog::wanted()
{
    Recording recording;
    if (chosen_->isChecked()) {
        try {
            recording.pids = parsePids(pids_->text().toStdString());
        } catch (const std::invalid_argument& e) {
            complain("Not recorded: " + toQt(std::string(e.what())) + ".", pids_);
            return std::nullopt;
        }
    }
    if (destination_->isEmpty()) {
        complain("Name the file to write.", destination_);
        return std::nullopt;
    }
    recording.demultiplexer = tuner_.demultiplexer();
    recording.destination = destination_->file();
    return recording;
}

bool StreamingDialog::mayRecordTo(Recording& recording)
{
    std::error_code unknown;
    if (!is_regular_file(symlink_status(recording.destination, unknown)))
        return true;
    recording.mayReplace = destination_->mayReplace();
    return recording.mayReplace;
}

void StreamingDialog::start(Recording recording)
{
    recorder_ = std::make_unique<StreamRecorder>(tuner_.kernel(), std::move(recording));
    try {
        worker_ = startJob(*recorder_, this,
                           [this](const StreamRecorder::Result& result) { finish(result); });
    } catch (const std::system_error& e) {
        recorder_.reset();
        setMessage(message_, QString("Not recorded: no thread to do it on (%1).").arg(e.what()));
        return;
    }
    setRecording(true);
    panel_->start();
    panel_->show(*recorder_);
    timer_.start(kUpdateInterval);
}

void StreamingDialog::setRecording(bool isRecording)
{
    for (QWidget* const each : std::initializer_list<QWidget*>{whole_, chosen_, destination_})
        each->setEnabled(!isRecording);
    pids_->setEnabled(!isRecording && chosen_->isChecked());
    start_->setText(isRecording ? "&Stop" : "&Start");
    start_->setAccessibleName(isRecording ? "Stop" : "Start");
    start_->setEnabled(isRecording || isTuned_);
    start_->setFocus();
}

void StreamingDialog::finish(const StreamRecorder::Result& result)
{
    timer_.stop();
    worker_.join();
    panel_->show(*recorder_);
    recorder_.reset();
    setRecording(false);
    setMessage(message_, toQt(result.text));
}

void StreamingDialog::reject()
{
    if (!recorder_) {
        QDialog::reject();
        return;
    }
    const bool isToStop =
        QMessageBox::question(this, windowTitle(), "A recording goes on. Stop it?",
                              QMessageBox::Yes | QMessageBox::No,
                              QMessageBox::No) == QMessageBox::Yes;
    // What was written is told before the window closes; it may have ended by itself meanwhile.
    if (isToStop && recorder_)
        worker_.request_stop();
}

} // namespace tessaview
