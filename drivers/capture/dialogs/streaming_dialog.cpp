#include "drivers/capture/dialogs/streaming_dialog.h"

#include "drivers/capture/capture_tuner.h"
#include "drivers/capture/packet_file.h"
#include "drivers/common/dialogs/qt_text.h"
#include "drivers/common/dialogs/stream_file.h"

#include <algorithm>
#include <cmath>
#include <system_error>

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>

namespace tessaview {

namespace {

constexpr int kUpdateInterval = 200; // ms
constexpr int kBarSteps = 1000;      // sizes do not fit into the bar's int

QString elapsedText(double seconds)
{
    const long whole = std::lround(seconds);
    return QString("%1:%2").arg(whole / 60).arg(whole % 60, 2, 10, QChar('0'));
}

} // namespace

StreamingDialog::StreamingDialog(CaptureTuner& tuner, QWidget* owner)
    : QDialog(owner)
    , destination_(new StreamFileField(this,
                                       [this](const QString& free) {
                                           progress_->setText(
                                               free.isEmpty() ? free : free + " free there");
                                       }))
    , start_(new QPushButton("&Start", this))
    , close_(new QPushButton("Close", this))
    , bar_(new QProgressBar(this))
    , progress_(new QLabel(this))
    , message_(new QLabel(this))
{
    setWindowTitle("Streaming to file");
    const TunerState now = tuner.state();
    QString source = "none: choose a capture with \"Tuning...\"";
    if (const Capture* const capture = now.capture()) {
        source_ = capture->file;
        source = toQt(source_) + " (" + toQt(sizeText(capture->size)) + ")";
    }
    start_->setEnabled(!source_.empty());
    arrange(source);

    connect(start_, &QPushButton::clicked, this, &StreamingDialog::startOrCancel);
    connect(close_, &QPushButton::clicked, this, &StreamingDialog::reject);
    connect(&timer_, &QTimer::timeout, this, &StreamingDialog::showProgress);
}

StreamingDialog::~StreamingDialog()
{
    destination_->forget();
}

void StreamingDialog::arrange(const QString& source)
{
    auto* const sourceLabel = new QLabel(this);
    sourceLabel->setWordWrap(true);
    for (QLabel* const label : {sourceLabel, progress_, message_})
        label->setTextFormat(Qt::PlainText); // they show names of files
    sourceLabel->setText(source);
    sourceLabel->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    start_->setObjectName("start");
    start_->setDefault(true);
    bar_->setRange(0, kBarSteps);
    bar_->setAccessibleName("Progress of the copy");
    message_->setObjectName("message");
    message_->setWordWrap(true);
    message_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);

    auto* const destinationLabel = new QLabel("&File:", this);
    destinationLabel->setBuddy(destination_);
    auto* const buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(start_);
    buttons->addWidget(close_);
    auto* const layout = new QFormLayout(this);
    layout->addRow("Stream:", sourceLabel);
    layout->addRow(destinationLabel, destination_);
    layout->addRow(bar_);
    layout->addRow(progress_);
    layout->addRow(message_);
    layout->addRow(buttons);
    resize(std::min(560, screen()->availableSize().width()), sizeHint().height());
}

void StreamingDialog::startOrCancel()
{
    if (!copy_) {
        start();
        return;
    }
    worker_.request_stop();
    start_->setEnabled(false);
}

void StreamingDialog::start()
{
    message_->clear();
    if (destination_->isEmpty()) {
        message_->setText("Name the file to write.");
        destination_->setFocus();
        return;
    }
    const std::filesystem::path destination = destination_->file();
    std::error_code unknown;
    if (std::filesystem::is_regular_file(destination, unknown) && !destination_->mayReplace())
        return;
    copy_ = std::make_unique<StreamCopy>(source_, destination);
    try {
        worker_ =
            startJob(*copy_, this, [this](const StreamCopy::Result& result) { finish(result); });
    } catch (const std::system_error& e) {
        copy_.reset();
        message_->setText(QString("Not copied: no thread to do it on (%1).").arg(e.what()));
        return;
    }
    destination_->setEnabled(false);
    close_->setEnabled(false);
    start_->setText("&Cancel");
    elapsed_.start();
    timer_.start(kUpdateInterval);
}

void StreamingDialog::showProgress()
{
    const auto copied = static_cast<double>(copy_->copied());
    const auto total = static_cast<double>(copy_->total());
    const double seconds = std::max(0.001, static_cast<double>(elapsed_.elapsed()) / 1000);
    const double rate = copied / seconds;
    if (total > 0)
        bar_->setValue(static_cast<int>(copied / total * kBarSteps));
    QString text = toQt(sizeText(copy_->copied())) + " of " + toQt(sizeText(copy_->total())) +
                   ", " + toQt(sizeText(static_cast<std::uintmax_t>(rate))) + "/s";
    if (rate > 0 && copied < total)
        text += ", " + elapsedText((total - copied) / rate) + " left";
    progress_->setText(text + ", " + toQt(sizeText(copy_->free())) + " free");
}

void StreamingDialog::finish(const StreamCopy::Result& result)
{
    timer_.stop();
    worker_.join();
    showProgress();
    copy_.reset();
    message_->setText(toQt(result.text));
    destination_->setEnabled(true);
    close_->setEnabled(true);
    start_->setText("&Start");
    start_->setEnabled(true);
    if (result.end == StreamCopy::End::Done)
        close_->setFocus();
    else
        bar_->reset();
}

void StreamingDialog::reject()
{
    if (copy_)
        worker_.request_stop();
    else
        QDialog::reject();
}

} // namespace tessaview
