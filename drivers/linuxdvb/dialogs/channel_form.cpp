#include "drivers/linuxdvb/dialogs/channel_form.h"

#include "drivers/linuxdvb/dialogs/form_fields.h"
#include "drivers/linuxdvb/dialogs/satellite_form.h"
#include "drivers/linuxdvb/dialogs/value_box.h"

#include <QComboBox>
#include <QSpinBox>

namespace tessaview {

namespace {

class CableForm : public ChannelForm {
public:
    CableForm()
    {
        setFocusProxy(frequency_);
        FieldGrid grid(this);
        grid.add("&Frequency:", "frequency", frequency_);
        grid.add("Symbol &rate:", "symbolRate", symbolRate_);
        grid.add("&Modulation:", "modulation", modulation_);
    }

    Channel channel() const override
    {
        CableTuning tuning{};
        tuning.frequency = frequency_->units();
        tuning.symbol_rate = symbolRate_->units();
        tuning.modulation = static_cast<std::uint8_t>(chosen(modulation_));
        return {.satellite = {}, .tuning = tuning, .s2 = {}};
    }

    void setChannel(const Channel& channel) override
    {
        const auto* const tuning = std::get_if<CableTuning>(&channel.tuning);
        if (!tuning)
            return;
        frequency_->setUnits(tuning->frequency);
        symbolRate_->setUnits(tuning->symbol_rate);
        choose(modulation_, tuning->modulation);
    }

    QWidget* missingField() const override { return firstEmpty({frequency_, symbolRate_}); }

private:
    ValueBox* const frequency_ = new ValueBox(4, 9999, "MHz");
    ValueBox* const symbolRate_ = new ValueBox(1, 99999, "kS/s");
    QComboBox* const modulation_ =
        choiceOf({"16-QAM", "32-QAM", "64-QAM", "128-QAM", "256-QAM"}, 1, 0);
};

class TerrestrialForm : public ChannelForm {
public:
    explicit TerrestrialForm(bool hasT2)
    {
        bandwidth_->addItems({"8 MHz", "7 MHz", "6 MHz", "5 MHz"});
        streamId_->setEnabled(hasT2);
        setFocusProxy(frequency_);
        FieldGrid grid(this);
        grid.add("&Frequency:", "frequency", frequency_);
        grid.add("&Bandwidth:", "bandwidth", bandwidth_);
        grid.add("P&LP of DVB-T2:", "streamId", streamId_);
    }

    /// The receiver finds all else.
    Channel channel() const override
    {
        TerrestrialTuning tuning{};
        tuning.centre_frequency = frequency_->units();
        tuning.bandwidth = static_cast<std::uint8_t>(bandwidth_->currentIndex());
        S2Parameters more;
        more.streamId = streamId_->value();
        return {.satellite = {}, .tuning = tuning, .s2 = more};
    }

    void setChannel(const Channel& channel) override
    {
        const auto* const tuning = std::get_if<TerrestrialTuning>(&channel.tuning);
        if (!tuning)
            return;
        frequency_->setUnits(tuning->centre_frequency);
        bandwidth_->setCurrentIndex(tuning->bandwidth < bandwidth_->count() ? tuning->bandwidth
                                                                            : 0);
        streamId_->setValue(channel.s2.streamId);
    }

    QWidget* missingField() const override { return firstEmpty({frequency_}); }

private:
    ValueBox* const frequency_ = new ValueBox(5, 9999, "MHz");
    QComboBox* const bandwidth_ = new QComboBox;
    QSpinBox* const streamId_ = streamIdBox();
};

} // namespace

std::unique_ptr<ChannelForm> makeChannelForm(TunerType type, const FrontendFacts& facts,
                                             const DvbTuner& tuner)
{
    switch (type) {
    case TunerType::Cable:
        return std::make_unique<CableForm>();
    case TunerType::Terrestrial:
        return std::make_unique<TerrestrialForm>(facts.supports(SYS_DVBT2));
    default:
        return std::make_unique<SatelliteForm>(facts.supports(SYS_DVBS2), tuner);
    }
}

} // namespace tessaview
