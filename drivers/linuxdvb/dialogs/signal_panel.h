#pragma once

#include "drivers/linuxdvb/dialogs/signal_watch.h"

#include <vector>

#include <QWidget>

class QLabel;
class QProgressBar;

namespace tessaview {

/// What the tuner is tuned to: "DVB-S2 12187 H 27500, Astra 19.2E"; what it was tuned to, where
/// that is not received now.
QString channelText(const DvbState& state);

/// What the receiver is tuned to and how well it is received. Empty where it is not told. All of it
/// can be copied as text.
class SignalPanel : public QWidget {
public:
    explicit SignalPanel(QWidget* parent);

    void show(const TunerLook& look);
    /// What there is to show before the receiver was asked.
    void showChannel(const DvbState& state);
    /// All of it as lines of a name and a value.
    QString report() const;

private:
    struct Row {
        const char* name;
        QLabel* value;     // null for a bar
        QProgressBar* bar; // null for a value
    };
    void addRow(const char* rowName, bool isBar);
    void setText(std::size_t row, const QString& text);
    void setLevel(std::size_t row, const Level& level, const char* unit, double lowest,
                  double highest);
    void showSignal(const SignalReport& signal, const DvbState& state);

    std::vector<Row> rows_;
};

} // namespace tessaview
