#pragma once

#include "drivers/linuxdvb/dialogs/dish_model.h"
#include "drivers/linuxdvb/frontend_facts.h"
#include "drivers/linuxdvb/receiver_settings.h"

#include <QDialog>

class QComboBox;
class QFormLayout;
class QLabel;
class QPushButton;
class QSpinBox;
class QTreeView;

namespace tessaview {

class DishDelegate;

/// "Settings...": which receiver is used, how long is waited for it, and how each satellite is
/// received.
class SettingsDialog : public QDialog {
public:
    SettingsDialog(DvbTuner& tuner, QWidget* owner);

    void accept() override;

private:
    void arrange();
    void arrangeReceiver(QFormLayout& form);
    void arrangeTimes(QFormLayout& form);
    void arrangeDishes(QFormLayout& form);
    void listReceivers(DeviceId current);
    void showReceiver();
    void enableDishes();
    void showOscillator();
    const FrontendFacts& receiver() const;
    Lnb lnb() const;
    ReceiverSettings chosen() const;

    DvbTuner& tuner_;
    ReceiverSettings stored_;
    std::vector<FrontendFacts> receivers_;
    DishModel dishes_;
    QComboBox* receiver_;
    QPushButton* refresh_;
    QLabel* problem_;
    QComboBox* type_;
    QSpinBox* lockLimit_;
    QSpinBox* readCeiling_;
    QComboBox* lnb_;
    QSpinBox* oscillator_;
    QTreeView* satellites_;
    DishDelegate* delegate_;
};

} // namespace tessaview
