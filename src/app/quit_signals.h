#pragma once

#include <functional>

#include <QObject>

namespace tessaview {

/// Turns the signals that ask a program to end (hang-up, interrupt, terminate) into a call on the
/// window's thread, so that what has to be saved is saved. A second signal ends the program at
/// once. One of these at a time.
class QuitSignals : public QObject {
public:
    explicit QuitSignals(std::function<void()> quit);
    ~QuitSignals() override;

private:
    int readEnd_ = -1;
};

} // namespace tessaview
