#pragma once

#include <QDialog>

class QComboBox;

namespace tessaview {

class CaptureTuner;

/// "Settings...": the tuner type where captures carry none.
class SettingsDialog : public QDialog {
public:
    SettingsDialog(CaptureTuner& tuner, QWidget* owner);

    void accept() override;

private:
    CaptureTuner& tuner_;
    QComboBox* type_;
};

} // namespace tessaview
