#pragma once

#include "drivers/linuxdvb/dialogs/channel_form.h"

#include <string>
#include <vector>

class QComboBox;
class QSpinBox;

namespace tessaview {

class ValueBox;

/// A channel of a satellite: one of the list, or what is entered.
class SatelliteForm : public ChannelForm {
public:
    SatelliteForm(bool hasS2, const DvbTuner& tuner);

    Channel channel() const override;
    void setChannel(const Channel& channel) override;
    QWidget* missingField() const override;

private:
    void arrange();
    void showSatellite(const QString& satellite);
    std::string satellite() const;
    void listTransponders();
    void takeTransponder();
    void setTuning(const SatelliteTuning& tuning, const S2Parameters& s2);
    S2Parameters s2() const;
    void setS2(const S2Parameters& s2);

    const DvbTuner& tuner_;
    std::vector<SatelliteTuning> transponders_; // of the satellite, as they are listed
    QComboBox* satellite_;
    QComboBox* transponder_;
    ValueBox* frequency_;
    QComboBox* polarization_;
    ValueBox* symbolRate_;
    QComboBox* system_;
    QComboBox* modulation_;
    QComboBox* rollOff_;
    QComboBox* pilot_;
    QSpinBox* streamId_;
};

} // namespace tessaview
