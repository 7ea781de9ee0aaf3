#include "drivers/linuxdvb/dialogs/tuning_dialog.h"

#include "drivers/common/dialogs/qt_text.h"
#include "drivers/linuxdvb/dialogs/channel_form.h"
#include "drivers/linuxdvb/dialogs/parts.h"
#include "drivers/linuxdvb/dialogs/signal_panel.h"
#include "tuning/tuning_text.h"

#include <system_error>

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tessaview {

namespace {

QGroupBox* groupOf(const QString& title, QWidget* content, QWidget* parent)
{
    auto* const group = new QGroupBox(title, parent);
    (new QVBoxLayout(group))->addWidget(content);
    return group;
}

} // namespace

TuningDialog::TuningDialog(DvbTuner& tuner, QWidget* owner)
    : QDialog(owner)
    , tuner_(tuner)
    , panel_(new SignalPanel(nullptr))
    , tune_(new QPushButton("&Tune"))
    , close_(new QPushButton("Close"))
    , message_(messageLabel())
{
    setWindowTitle("Tuning");
    const DvbState now = tuner.state();
    form_ = makeChannelForm(now.type.value_or(TunerType::Satellite), now.facts, tuner).release();
    arrange();
    panel_->showChannel(now);
    if (now.channel)
        form_->setChannel(*now.channel);
    if (!now.type) {
        form_->setEnabled(false);
        tune_->setEnabled(false);
        setMessage(message_, now.facts.problem.empty()
                                 ? "No receiver: choose one under Device, Settings..."
                                 : toQt(now.facts.problem));
    } else if (!now.problem.empty()) {
        setMessage(message_, toQt(now.problem));
    }
    connect(tune_, &QPushButton::clicked, this, &TuningDialog::tuneOrCancel);
    connect(close_, &QPushButton::clicked, this, &TuningDialog::reject);
    startWatching();
}

TuningDialog::~TuningDialog() = default;

void TuningDialog::arrange()
{
    name(tune_, "tune", "Tune");
    tune_->setDefault(true);
    auto* const buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(tune_);
    buttons->addWidget(close_);
    auto* const rows = new QVBoxLayout(this);
    rows->addWidget(groupOf("Now", panel_, this));
    rows->addWidget(groupOf("New channel", form_, this));
    rows->addWidget(message_);
    rows->addStretch();
    rows->addLayout(buttons);
    resize(560, sizeHint().height());
    form_->setFocus();
}

void TuningDialog::startWatching()
{
    try {
        watch_ = std::make_unique<SignalWatch>(
            tuner_, [this](const TunerLook& look) { panel_->show(look); });
    } catch (const std::system_error& e) {
        setMessage(message_,
                   QString("The signal is not shown: no thread to ask for it (%1).").arg(e.what()));
    }
}

void TuningDialog::tuneOrCancel()
{
    if (!isTuning()) {
        tune();
        return;
    }
    worker_.request_stop();
    tune_->setEnabled(false);
}

void TuningDialog::tune()
{
    if (QWidget* const missing = form_->missingField()) {
        setMessage(message_, QString("Enter the %1.").arg(missing->accessibleName().toLower()));
        missing->setFocus();
        return;
    }
    try {
        worker_ = std::jthread([this, channel = form_->channel()](const std::stop_token& stop) {
            const QString outcome = outcomeOf(channel, stop);
            QMetaObject::invokeMethod(
                this, [this, outcome] { finish(outcome); }, Qt::QueuedConnection);
        });
    } catch (const std::system_error& e) {
        setMessage(message_, QString("Not tuned: no thread to do it on (%1).").arg(e.what()));
        return;
    }
    form_->setEnabled(false);
    close_->setEnabled(false);
    tune_->setText("&Cancel");
    tune_->setAccessibleName("Cancel");
    tune_->setFocus();
    setMessage(message_, "Tuning to " + toQt(tuningName(form_->channel().tuning)) + "...");
}

/// Tunes, on any thread.
QString TuningDialog::outcomeOf(const Channel& channel, const std::stop_token& stop)
{
    try {
        tuner_.tune(channel, [&stop] { return stop.stop_requested(); });
        return "Locked to " + toQt(tuningName(channel.tuning)) + ".";
    } catch (const Interrupted&) {
        return "Cancelled.";
    } catch (const std::exception& e) {
        return toQt(std::string(e.what()));
    }
}

void TuningDialog::finish(const QString& outcome)
{
    worker_.join();
    setMessage(message_, outcome);
    form_->setEnabled(true);
    close_->setEnabled(true);
    tune_->setText("&Tune");
    tune_->setAccessibleName("Tune");
    tune_->setEnabled(true);
    tune_->setFocus();
}

void TuningDialog::reject()
{
    if (isTuning())
        worker_.request_stop();
    else
        QDialog::reject();
}

} // namespace tessaview
