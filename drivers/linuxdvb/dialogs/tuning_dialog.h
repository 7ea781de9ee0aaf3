#pragma once

#include "drivers/linuxdvb/dialogs/signal_watch.h"

#include <memory>
#include <thread>

#include <QDialog>

class QLabel;
class QPushButton;

namespace tessaview {

class ChannelForm;
class SignalPanel;

/// "Tuning...": what the receiver is tuned to and how well it is received, twice a second, and
/// another channel to tune to.
class TuningDialog : public QDialog {
public:
    TuningDialog(DvbTuner& tuner, QWidget* owner);
    ~TuningDialog() override;

    /// Escape and the title bar: cancels what is being tuned to, else closes.
    void reject() override;

private:
    void arrange();
    void startWatching();
    void tuneOrCancel();
    void tune();
    QString outcomeOf(const Channel& channel, const std::stop_token& stop);
    void finish(const QString& outcome);
    bool isTuning() const { return worker_.joinable(); }

    DvbTuner& tuner_;
    SignalPanel* panel_;
    ChannelForm* form_;
    QPushButton* tune_;
    QPushButton* close_;
    QLabel* message_;
    std::unique_ptr<SignalWatch> watch_;
    std::jthread worker_; // after all that it uses
};

} // namespace tessaview
