#include "tests/linuxdvb_dialogs/dialog_fixture.h"

#include <dlfcn.h>

namespace test {

using namespace tessaview;

DvbDialogs::DvbDialogs()
{
    kernel_.frontends = {{{0, 0},
                          {.name = "Sat",
                           .statistics = {{DTV_STAT_SIGNAL_STRENGTH, {FE_SCALE_RELATIVE, 46530}},
                                          {DTV_STAT_CNR, {FE_SCALE_DECIBEL, 12400}},
                                          {DTV_STAT_ERROR_BLOCK_COUNT, {FE_SCALE_COUNTER, 7}}}}},
                         {{1, 0}, {.name = "Cable", .systems = {SYS_DVBC_ANNEX_A}}},
                         {{2, 0}, {.name = "Aerial", .systems = {SYS_DVBT, SYS_DVBT2}}}};
    kernel_.trueWait = milliseconds(1); // the windows' clock is the system's
    satellites_.put("Astra", {});
    satellites_.put(
        "Hot Bird",
        {{.nid = 318, .tsid = 200, .frequency = 1072700},
         {.nid = 318, .tsid = 300, .frequency = 1174625, .polarization = 1, .symbolRate = 275000}});
    void* const library =
        dlopen(TESSAVIEW_BUILD_DIR "/lib/tessaview3/components/linuxdvb_dialogs.so", RTLD_NOW);
    show_ =
        reinterpret_cast<ShowDriverDialog>(library ? dlsym(library, kShowDriverDialog) : nullptr);
    restart();
}

DvbDialogs::~DvbDialogs() = default;

void DvbDialogs::restart()
{
    tuner_ = std::make_unique<DvbTuner>(kernel_);
    tuner_->setSatelliteList(&satellites_.get());
    tuner_->open("drivers");
}

void DvbDialogs::tune(const std::string& satellite)
{
    SatelliteTuning tuning{};
    tuning.frequency = 1218750;
    tuning.symbol_rate = 275000;
    tuner_->tune({.satellite = satellite, .tuning = tuning, .s2 = {}});
}

void DvbDialogs::show(DriverDialog which, const std::function<void(QDialog&)>& act)
{
    ASSERT_NE(show_, nullptr) << "the library of the dialogs cannot be loaded";
    actOn([&](WindowHandle owner) { return show_(which, tuner_.get(), owner); }, act);
}

bool DvbDialogs::comesToSay(const QDialog& dialog, const char* label, const char* text)
{
    return waitFor([&] { return the<QLabel>(dialog, label).text().contains(text); });
}

} // namespace test
