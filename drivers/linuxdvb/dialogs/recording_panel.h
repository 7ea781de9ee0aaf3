#pragma once

#include "drivers/linuxdvb/dialogs/signal_watch.h"

#include <deque>

#include <QElapsedTimer>
#include <QWidget>

class QFormLayout;
class QLabel;

namespace tessaview {

class StreamRecorder;

/// How a recording goes on: size, rate, time, free disk, what was lost, and the signal meanwhile.
class RecordingPanel : public QWidget {
public:
    explicit RecordingPanel(QWidget* parent);

    /// Begins with nothing.
    void start();
    void show(const StreamRecorder& recorder);
    void showFree(const QString& text);
    void showSignal(const TunerLook& look);

private:
    struct Moment {
        qint64 time; // ms
        std::uintmax_t written;
    };
    QLabel* addRow(QFormLayout& form, const char* rowName);
    static void setText(QLabel* label, const QString& text);
    double bitsPerSecond(std::uintmax_t written);

    QLabel* size_;
    QLabel* rate_;
    QLabel* time_;
    QLabel* free_;
    QLabel* lost_;
    QLabel* signal_;
    QElapsedTimer elapsed_;
    std::deque<Moment> lately_;
};

} // namespace tessaview
