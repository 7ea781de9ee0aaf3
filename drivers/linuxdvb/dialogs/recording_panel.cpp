#include "drivers/linuxdvb/dialogs/recording_panel.h"

#include "drivers/common/dialogs/qt_text.h"
#include "drivers/linuxdvb/dialogs/parts.h"
#include "drivers/linuxdvb/stream_recorder.h"

#include <QFormLayout>
#include <QLabel>

namespace tessaview {

namespace {

constexpr qint64 kRateTime = 5000; // ms that the rate is taken over

QString timeText(qint64 milliseconds)
{
    const qint64 seconds = milliseconds / 1000;
    return QString("%1:%2:%3")
        .arg(seconds / 3600)
        .arg(seconds / 60 % 60, 2, 10, QChar('0'))
        .arg(seconds % 60, 2, 10, QChar('0'));
}

QString lostText(unsigned gaps)
{
    return gaps == 0 ? QString("nothing")
                     : QString("packets in %1 place%2: the computer does not keep up")
                           .arg(gaps)
                           .arg(gaps == 1 ? "" : "s");
}

QString signalText(const TunerLook& look)
{
    const auto& signal = look.signal;
    if (!signal || !look.state.system)
        return "not tuned";
    if (!signal->isLocked())
        return "no lock, so that nothing comes in (" + toQt(signal->statusText()) + ")";
    QStringList parts{"locked"};
    for (const std::string& level : {signal->strength.text("dBm"), signal->quality.text("dB")})
        if (!level.empty())
            parts << toQt(level);
    return parts.join(", ");
}

} // namespace

RecordingPanel::RecordingPanel(QWidget* parent) : QWidget(parent)
{
    auto* const form = new QFormLayout(this);
    form->setContentsMargins(0, 0, 0, 0);
    size_ = addRow(*form, "Written");
    rate_ = addRow(*form, "Rate");
    time_ = addRow(*form, "Time");
    free_ = addRow(*form, "Free disk");
    lost_ = addRow(*form, "Lost");
    signal_ = addRow(*form, "Signal");
}

QLabel* RecordingPanel::addRow(QFormLayout& form, const char* rowName)
{
    QLabel* const label = valueLabel(this);
    label->setObjectName(rowName);
    form.addRow(QString(rowName) + ":", label);
    return label;
}

void RecordingPanel::setText(QLabel* label, const QString& text)
{
    setValue(label, label->objectName(), text);
}

void RecordingPanel::start()
{
    lately_.clear();
    elapsed_.start();
}

double RecordingPanel::bitsPerSecond(std::uintmax_t written)
{
    const Moment now{elapsed_.elapsed(), written};
    lately_.push_back(now);
    // The last before that time stays, so that all of it is covered.
    while (lately_.size() > 2 && lately_[1].time <= now.time - kRateTime)
        lately_.pop_front();
    const Moment& first = lately_.front();
    if (first.time == now.time)
        return 0;
    return static_cast<double>(now.written - first.written) * 8000 /
           static_cast<double>(now.time - first.time);
}

void RecordingPanel::show(const StreamRecorder& recorder)
{
    const std::uintmax_t written = recorder.written();
    setText(size_, toQt(sizeText(written)));
    setText(rate_, QString("%1 Mbit/s").arg(bitsPerSecond(written) / 1e6, 0, 'f', 1));
    setText(time_, timeText(elapsed_.elapsed()));
    setText(lost_, lostText(recorder.gaps()));
    if (recorder.free() > 0)
        showFree(toQt(sizeText(recorder.free())));
}

void RecordingPanel::showFree(const QString& text)
{
    setText(free_, text);
}

void RecordingPanel::showSignal(const TunerLook& look)
{
    setText(signal_, signalText(look));
}

} // namespace tessaview
