#include "drivers/linuxdvb/dialogs/signal_panel.h"

#include "drivers/common/dialogs/qt_text.h"
#include "drivers/linuxdvb/dialogs/parts.h"
#include "platform/format.h"
#include "tuning/tuning_text.h"

#include <algorithm>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QGridLayout>
#include <QLabel>
#include <QProgressBar>

namespace tessaview {

namespace {

enum RowOf : std::size_t { Receiver, ChannelNow, Lock, Strength, Quality, BitErrors, LostBlocks };

// What the ends of the bars stand for, where a receiver tells decibels.
constexpr double kWeakest = -90; // dBm
constexpr double kStrongest = -20;
constexpr double kBestSatellite = 20; // dB
constexpr double kBest = 40;

QString receiverText(const DvbState& state)
{
    const QString device = toQt(state.settings.device.name());
    return state.facts.name.empty() ? device : device + ": " + toQt(state.facts.name);
}

QString lockText(const TunerLook& look)
{
    if (!look.signal)
        return look.state.isTuning ? "tuning" : "not tuned";
    const char* const lock = look.state.isTuning       ? "tuning"
                             : look.signal->isLocked() ? "locked"
                                                       : "no lock";
    return QString(lock) + " (" + toQt(look.signal->statusText()) + ")";
}

QString bitErrorText(const SignalReport& signal)
{
    QStringList parts;
    if (signal.preBitErrorRate)
        parts << toQt(formatted("%.1e before the inner code", *signal.preBitErrorRate));
    if (signal.postBitErrorRate)
        parts << toQt(formatted("%.1e behind the inner code", *signal.postBitErrorRate));
    if (signal.bitErrors)
        parts << QString::number(*signal.bitErrors);
    return parts.join(", ");
}

} // namespace

QString channelText(const DvbState& state)
{
    if (state.isTuning)
        return "tuning...";
    if (!state.channel)
        return "none";
    QString text = state.system ? QString(systemName(*state.system)) + " " : QString();
    text += toQt(tuningSummary(state.channel->tuning));
    if (!state.channel->satellite.empty())
        text += ", " + toQt(state.channel->satellite);
    return state.system ? text : text + " (not received)";
}

SignalPanel::SignalPanel(QWidget* parent) : QWidget(parent)
{
    auto* const grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setColumnStretch(1, 1);
    addRow("Receiver", false);
    addRow("Channel", false);
    addRow("Lock", false);
    addRow("Strength", true);
    addRow("Quality", true);
    addRow("Bit errors", false);
    addRow("Lost blocks", false);

    auto* const copy = new QAction("&Copy all", this);
    copy->setShortcut(QKeySequence::Copy);
    connect(copy, &QAction::triggered, this,
            [this] { QApplication::clipboard()->setText(report()); });
    addAction(copy);
    setContextMenuPolicy(Qt::ActionsContextMenu);
}

void SignalPanel::addRow(const char* rowName, bool isBar)
{
    auto* const grid = static_cast<QGridLayout*>(layout());
    const int at = grid->rowCount();
    Row row{rowName, nullptr, nullptr};
    QWidget* shown = nullptr;
    if (isBar) {
        shown = row.bar = new QProgressBar(this);
        row.bar->setRange(0, 100);
        row.bar->setFormat("");
        name(row.bar, rowName, rowName);
    } else {
        shown = row.value = valueLabel(this);
        row.value->setObjectName(rowName);
        row.value->setContextMenuPolicy(Qt::NoContextMenu); // its own copies less
    }
    grid->addWidget(new QLabel(QString(rowName) + ":", this), at, 0,
                    isBar ? Qt::AlignVCenter : Qt::AlignTop);
    grid->addWidget(shown, at, 1);
    rows_.push_back(row);
}

void SignalPanel::setText(std::size_t row, const QString& text)
{
    setValue(rows_[row].value, rows_[row].name, text);
}

void SignalPanel::setLevel(std::size_t row, const Level& level, const char* unit, double lowest,
                           double highest)
{
    QProgressBar* const bar = rows_[row].bar;
    const QString text = toQt(level.text(unit));
    double share = 0;
    if (level.relative)
        share = *level.relative;
    else if (level.decibel)
        share = (*level.decibel - lowest) * 100 / (highest - lowest);
    bar->setValue(static_cast<int>(std::clamp(share, 0.0, 100.0)));
    bar->setFormat(text);
    bar->setAccessibleDescription(text);
}

void SignalPanel::showSignal(const SignalReport& signal, const DvbState& state)
{
    const double best = state.type == TunerType::Satellite ? kBestSatellite : kBest;
    setLevel(Strength, signal.strength, "dBm", kWeakest, kStrongest);
    setLevel(Quality, signal.quality, "dB", 0, best);
    setText(BitErrors, bitErrorText(signal));
    setText(LostBlocks, signal.lostBlocks ? QString::number(*signal.lostBlocks) : QString());
}

void SignalPanel::showChannel(const DvbState& state)
{
    setText(Receiver, receiverText(state));
    setText(ChannelNow, channelText(state));
}

void SignalPanel::show(const TunerLook& look)
{
    showChannel(look.state);
    setText(Lock, lockText(look));
    showSignal(look.signal.value_or(SignalReport()), look.state);
}

QString SignalPanel::report() const
{
    QString text;
    for (const Row& row : rows_)
        text += QString(row.name) + '\t' + (row.bar ? row.bar->format() : row.value->text()) + '\n';
    return text;
}

} // namespace tessaview
