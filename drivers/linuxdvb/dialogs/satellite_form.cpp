#include "drivers/linuxdvb/dialogs/satellite_form.h"

#include "drivers/common/dialogs/qt_text.h"
#include "drivers/linuxdvb/dialogs/form_fields.h"
#include "drivers/linuxdvb/dialogs/value_box.h"
#include "drivers/linuxdvb/dvb_tuner.h"
#include "tuning/tuning_text.h"

#include <QComboBox>
#include <QGridLayout>
#include <QSpinBox>

namespace tessaview {

namespace {

constexpr unsigned kReservedRollOff = 3;

/// What a tuning record itself tells of DVB-S2, where nothing else does.
S2Parameters describedIn(const SatelliteTuning& tuning)
{
    const auto described = SatelliteModulation::of(tuning);
    if (!described.isS2)
        return {};
    S2Parameters s2;
    s2.system = 1;
    if (described.type > 0)
        s2.modulation = static_cast<int>(described.type);
    if (described.rollOff < kReservedRollOff)
        s2.rollOff = static_cast<int>(described.rollOff);
    return s2;
}

} // namespace

SatelliteForm::SatelliteForm(bool hasS2, const DvbTuner& tuner)
    : tuner_(tuner)
    , satellite_(new QComboBox)
    , transponder_(new QComboBox)
    , frequency_(new ValueBox(2, 99999, "MHz"))
    , polarization_(new QComboBox)
    , symbolRate_(new ValueBox(1, 99999, "kS/s"))
    , system_(choiceOf({"DVB-S", "DVB-S2"}, 0))
    , modulation_(choiceOf({"QPSK", "8PSK", "16APSK", "32APSK"}, 1))
    , rollOff_(choiceOf({"0.35", "0.25", "0.20"}, 0))
    , pilot_(choiceOf({"off", "on"}, 0))
    , streamId_(streamIdBox())
{
    satellite_->addItem("none of the list", "");
    for (const std::string& each : tuner.satellites())
        satellite_->addItem(toQt(each), toQt(each));
    polarization_->addItems(
        {"H (horizontal)", "V (vertical)", "L (left circular)", "R (right circular)"});
    for (QWidget* const field :
         std::initializer_list<QWidget*>{system_, modulation_, rollOff_, pilot_, streamId_})
        field->setEnabled(hasS2);
    arrange();
    connect(satellite_, &QComboBox::currentIndexChanged, this, &SatelliteForm::listTransponders);
    connect(transponder_, &QComboBox::activated, this, &SatelliteForm::takeTransponder);
    listTransponders();
}

void SatelliteForm::arrange()
{
    setFocusProxy(frequency_);
    FieldGrid grid(this);
    grid.add("&Satellite:", "satellite", satellite_, FieldGrid::Whole);
    grid.add("Tr&ansponder:", "transponder", transponder_, FieldGrid::Whole);
    grid.add("&Frequency:", "frequency", frequency_);
    grid.add("&Polarization:", "polarization", polarization_);
    grid.add("Symbol &rate:", "symbolRate", symbolRate_);
    grid.add("S&ystem:", "system", system_);
    grid.add("&Modulation:", "modulation", modulation_);
    grid.add("Roll-&off:", "rollOff", rollOff_);
    grid.add("P&ilot:", "pilot", pilot_);
    grid.add("Input stream i&d:", "streamId", streamId_);
}

std::string SatelliteForm::satellite() const
{
    return satellite_->currentData().toString().toStdString();
}

void SatelliteForm::listTransponders()
{
    transponders_.clear();
    transponder_->clear();
    transponder_->addItem("as entered below");
    for (const TransponderEntry& entry : tuner_.transponders(satellite())) {
        const SatelliteTuning tuning = tuningOf(entry);
        transponders_.push_back(tuning);
        transponder_->addItem(toQt(tuningSummary(tuning)));
    }
    transponder_->setEnabled(!transponders_.empty());
}

/// Fills in what the list says. What it says of DVB-S2 is used where nothing else is chosen.
void SatelliteForm::takeTransponder()
{
    if (transponder_->currentIndex() > 0)
        setTuning(transponders_[static_cast<std::size_t>(transponder_->currentIndex()) - 1], {});
}

S2Parameters SatelliteForm::s2() const
{
    return {.system = chosen(system_),
            .modulation = chosen(modulation_),
            .rollOff = chosen(rollOff_),
            .pilot = chosen(pilot_),
            .streamId = streamId_->value()};
}

void SatelliteForm::setS2(const S2Parameters& s2)
{
    choose(system_, s2.system);
    choose(modulation_, s2.modulation);
    choose(rollOff_, s2.rollOff);
    choose(pilot_, s2.pilot);
    streamId_->setValue(s2.streamId);
}

Channel SatelliteForm::channel() const
{
    // What is not given is left to the receiver: the codes 0 say so.
    SatelliteTuning tuning{};
    tuning.frequency = frequency_->units();
    tuning.polarization = static_cast<std::uint8_t>(polarization_->currentIndex());
    tuning.symbol_rate = symbolRate_->units();
    return {.satellite = satellite(), .tuning = tuning, .s2 = s2()};
}

void SatelliteForm::showSatellite(const QString& satellite)
{
    if (satellite_->findData(satellite) < 0)
        satellite_->addItem(satellite + " (not in the list)", satellite);
    satellite_->setCurrentIndex(satellite_->findData(satellite));
}

void SatelliteForm::setChannel(const Channel& channel)
{
    const auto* const tuning = std::get_if<SatelliteTuning>(&channel.tuning);
    if (!tuning)
        return;
    showSatellite(toQt(channel.satellite));
    setTuning(*tuning, channel.s2 == S2Parameters() ? describedIn(*tuning) : channel.s2);
}

void SatelliteForm::setTuning(const SatelliteTuning& tuning, const S2Parameters& s2)
{
    frequency_->setUnits(tuning.frequency);
    polarization_->setCurrentIndex(tuning.polarization & 3);
    symbolRate_->setUnits(tuning.symbol_rate);
    setS2(s2);
}

QWidget* SatelliteForm::missingField() const
{
    return firstEmpty({frequency_, symbolRate_});
}

} // namespace tessaview
