#include "tests/linuxdvb_dialogs/dialog_fixture.h"
#include "tests/support/no_threads.h"
#include "tests/support/tests.h"

#include <QApplication>
#include <QClipboard>
#include <QDoubleSpinBox>
#include <QProgressBar>

namespace {

class TuningOfReceivers : public DvbDialogs {
protected:
    static void press(QDialog& dialog) { the<QPushButton>(dialog, "tune").click(); }
    static bool isReady(const QDialog& dialog)
    {
        const auto& button = the<QPushButton>(dialog, "tune");
        return button.isEnabled() && button.text() == "&Tune";
    }
    static bool tuneAndWait(QDialog& dialog)
    {
        press(dialog);
        return waitFor([&] { return isReady(dialog); });
    }
    static void set(const QDialog& dialog, const char* field, double value)
    {
        the<QDoubleSpinBox>(dialog, field).setValue(value);
    }
    static void choose(const QDialog& dialog, const char* field, const char* text)
    {
        auto& choice = the<QComboBox>(dialog, field);
        choice.setCurrentIndex(choice.findText(text));
    }
};

TEST_F(TuningOfReceivers, takesFieldsInTheUnitsOfTheRecords)
{
    /// The channel is as it is stored; shown again, and tuned to as it stands, it is the same.
    const auto takes = [this](DeviceId device, const std::function<void(QDialog&)>& fill,
                              const char* channel, const Tuned& tuned) {
        SCOPED_TRACE(channel);
        tuner().useAndStore({.device = device, .type = {}, .dish = {}});
        for (const auto& act : {fill, std::function<void(QDialog&)>([](QDialog&) {})}) {
            show(DriverDialog::Tune, [&](QDialog& dialog) {
                act(dialog);
                EXPECT_TRUE(tuneAndWait(dialog));
                EXPECT_THAT(labelOf(dialog, "message"), HasSubstr("Locked to "));
            });
            EXPECT_EQ(storedText(tuner().state().channel.value()), channel);
            EXPECT_THAT(kernel_.frontends[device].tunings.back(), testing::IsSupersetOf(tuned));
        }
    };
    takes({0, 0},
          [](QDialog& dialog) {
              choose(dialog, "satellite", "Hot Bird");
              set(dialog, "frequency", 12187.29);
              choose(dialog, "polarization", "V (vertical)");
              set(dialog, "symbolRate", 27500.5);
              choose(dialog, "system", "DVB-S2");
              choose(dialog, "modulation", "16APSK");
              choose(dialog, "rollOff", "0.20");
              choose(dialog, "pilot", "on");
              the<QSpinBox>(dialog, "streamId").setValue(7);
          },
          "1 1218729 0 0 1 0 275005 0",
          {{DTV_DELIVERY_SYSTEM, SYS_DVBS2},
           {DTV_FREQUENCY, 1587290},
           {DTV_SYMBOL_RATE, 27500500},
           {DTV_MODULATION, APSK_16},
           {DTV_ROLLOFF, ROLLOFF_20},
           {DTV_PILOT, PILOT_ON},
           {DTV_STREAM_ID, 7}});
    takes({1, 0},
          [](QDialog& dialog) {
              set(dialog, "frequency", 346.1253);
              set(dialog, "symbolRate", 6875);
              choose(dialog, "modulation", "256-QAM");
          },
          "2 3461253 0 5 68750 0",
          {{DTV_FREQUENCY, 346125300}, {DTV_SYMBOL_RATE, 6875000}, {DTV_MODULATION, QAM_256}});
    takes({2, 0},
          [](QDialog& dialog) {
              set(dialog, "frequency", 474.16667);
              choose(dialog, "bandwidth", "7 MHz");
          },
          "3 47416667 1 0 0 0 0 0 0 0",
          {{DTV_FREQUENCY, 474166670},
           {DTV_BANDWIDTH_HZ, 7000000},
           {DTV_MODULATION, QAM_AUTO},
           {DTV_CODE_RATE_HP, FEC_AUTO},
           {DTV_GUARD_INTERVAL, GUARD_INTERVAL_AUTO},
           {DTV_TRANSMISSION_MODE, TRANSMISSION_MODE_AUTO}});
}

TEST_F(TuningOfReceivers, takesATransponderOfTheList)
{
    show(DriverDialog::Tune, [](QDialog& dialog) {
        auto& transponder = the<QComboBox>(dialog, "transponder");
        EXPECT_FALSE(transponder.isEnabled()) << "no satellite chosen";
        choose(dialog, "satellite", "Hot Bird");
        EXPECT_EQ(transponder.count(), 3);
        transponder.setFocus();
        QTest::keyClick(&transponder, Qt::Key_End);
        EXPECT_EQ(transponder.currentText(), "11746.25 V 27500");
        EXPECT_TRUE(tuneAndWait(dialog));
    });
    ASSERT_TRUE(tuner().state().channel);
    EXPECT_EQ(tuner().state().channel->satellite, "Hot Bird");
    EXPECT_EQ(storedText(*tuner().state().channel), "1 1174625 0 0 1 0 275000 0");
}

TEST_F(TuningOfReceivers, showsTheSignalAndCopiesIt)
{
    tune("Astra");
    show(DriverDialog::Tune, [](QDialog& dialog) {
        EXPECT_TRUE(comesToSay(dialog, "Lock", "locked"));
        EXPECT_EQ(the<QProgressBar>(dialog, "Strength").value(), 71);
        EXPECT_EQ(the<QProgressBar>(dialog, "Quality").value(), 62); // of 20 dB
        QTest::keyClick(&the<QPushButton>(dialog, "tune"), Qt::Key_C, Qt::ControlModifier);
        EXPECT_EQ(QApplication::clipboard()->text().toStdString(),
                  "Receiver\tadapter0/frontend0: Sat\n"
                  "Channel\tDVB-S 12187.5 H 27500, Astra\n"
                  "Lock\tlocked (signal, carrier, FEC, sync, lock)\n"
                  "Strength\t71 %\n"
                  "Quality\t12.4 dB\n"
                  "Bit errors\t\n"
                  "Lost blocks\t7\n");
    });
}

TEST_F(TuningOfReceivers, saysWhyNothingIsReceived)
{
    kernel_.frontends[{}].receives = receivesNothing;
    show(DriverDialog::Tune, [](QDialog& dialog) {
        EXPECT_TRUE(tuneAndWait(dialog));
        EXPECT_EQ(labelOf(dialog, "message"), "Enter the frequency.");
        set(dialog, "frequency", 12187);
        set(dialog, "symbolRate", 27500);
        EXPECT_TRUE(tuneAndWait(dialog));
        EXPECT_EQ(labelOf(dialog, "message"),
                  "adapter0/frontend0: no signal at 12187 MHz H within 10 s");
        const NoThreads none;
        press(dialog);
        EXPECT_THAT(labelOf(dialog, "message"), HasSubstr("no thread"));
        EXPECT_TRUE(isReady(dialog));
    });
    kernel_.frontends[{}].isGone = true;
    restart();
    show(DriverDialog::Tune, [](QDialog& dialog) {
        EXPECT_FALSE(the<QPushButton>(dialog, "tune").isEnabled());
        EXPECT_THAT(labelOf(dialog, "message"), HasSubstr("no such device; plug it in"));
    });
}

TEST_F(TuningOfReceivers, isCancelledByEscape)
{
    kernel_.isTimeStill = true; // it would wait for ever
    show(DriverDialog::Tune, [](QDialog& dialog) {
        set(dialog, "frequency", 12187);
        set(dialog, "symbolRate", 27500);
        press(dialog);
        EXPECT_EQ(the<QPushButton>(dialog, "tune").text(), "&Cancel");
        EXPECT_TRUE(comesToSay(dialog, "Lock", "tuning"));
        QTest::keyClick(&dialog, Qt::Key_Escape);
        EXPECT_TRUE(dialog.isVisible()) << "the tuning has to end first";
        EXPECT_TRUE(comesToSay(dialog, "message", "Cancelled."));
        EXPECT_TRUE(isReady(dialog));
        QTest::keyClick(&dialog, Qt::Key_Escape);
        EXPECT_FALSE(dialog.isVisible());
    });
}

} // namespace
