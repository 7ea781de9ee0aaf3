#include "component/bstr.h"
#include "tests/acquisition/recorder.h"
#include "tests/acquisition/scripted_satellites.h"
#include "tests/support/scripted_driver.h"
#include "tests/support/windows.h"
#include "tools/multiplex/descriptors.h"
#include "tools/multiplex/sections.h"
#include "ui/si_reading/si_reading_dlg.h"
#include "ui/window_handle.h"

#include <future>
#include <gmock/gmock.h>

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace {

using namespace tessaview; // NOLINT(google-build-using-namespace)
using test::ScriptedDriver;
using test::waitFor;
using testing::ElementsAre;

struct SiReading : testing::Test {
    SiReading()
    {
        driver->satellite = "quay 5w";
        driver->air = {{{0x0000, 0x00}, {test::pat(1, {})}},
                       {{0x0010, 0x40},
                        {test::nit(0x40, 0x3001, {},
                                   {{.stream = 1,
                                     .network = 1,
                                     .descriptors = {test::satelliteDelivery(
                                         {.frequency = 1110000, .orbitalPosition = 192})}}})}},
                       {{0x0011, 0x42}, {test::sdt(0x42, 1, 1, {})}}};
    }

    void open(ScanMode mode)
    {
        dialog.reset(); // one scan at a time
        dialog = std::make_unique<CSiReadingDlg>(
            nullptr, model, mode, static_cast<IDriverInfo*>(driver.get()), satellites.get());
        QObject::connect(dialog.get(), &QDialog::finished,
                         [this](int result) { results.push_back(result); });
        dialog->open();
    }

    template <class Widget>
    Widget& control(int id) const
    {
        return test::control<Widget>(*dialog, id);
    }
    QPushButton& start() const { return control<QPushButton>(1011); }
    QPushButton& close() const { return control<QPushButton>(1); }
    std::string text(int id) const { return control<QLineEdit>(id).text().toStdString(); }

    void openIdle(ScanMode mode)
    {
        open(mode);
        ASSERT_TRUE(waitFor([this] { return start().isEnabled(); }));
    }
    static void click(QPushButton& button) { QTest::mouseClick(&button, Qt::LeftButton); }
    bool waitForEnd() const
    {
        return waitFor([this] { return start().isEnabled() && start().text() == "Start"; });
    }

    /// Lets the driver wait in its first call of an operation until `go` is set.
    void stopIn(const std::string& operation)
    {
        driver->duringCall = [this, operation](std::string_view called, int time) {
            if (called != operation || time != 0)
                return;
            isStopped = true;
            go.get_future().wait();
        };
    }
    void startAndStopInReading()
    {
        stopIn("ReadTables");
        click(start());
        ASSERT_TRUE(waitFor([this] { return isStopped.load(); }));
    }

    test::Recorder recorder;
    NetworkMap model;
    ComPtr<ScriptedDriver> driver = ScriptedDriver::make();
    ComPtr<test::ScriptedSatellites> satellites = test::ScriptedSatellites::make(
        {{.name = "Astra"},
         {.name = "Quay 5W", .transponders = {{.frequency = 1110000}}},
         {.name = "Not this one", .isSelected = false}});
    std::atomic<bool> isStopped = false;
    std::promise<void> go;
    std::vector<int> results; ///< of the dialog, as it ended
    std::unique_ptr<CSiReadingDlg> dialog;
};

TEST_F(SiReading, offersWhatTheModeAndTheTunerAdmit)
{
    struct Case {
        ScanMode mode;
        std::uint16_t tuner;
        std::vector<int> disabled;
        std::vector<int> notApplicable;
    };
    const std::vector<int> none;
    const std::vector<Case> cases{
        {ScanMode::CurrentTransponder,
         1,
         {1032, 1035, 1036, 1037, 1038, 1039, 1040, 1041, 1042},
         {1036, 1040, 1042}},
        {ScanMode::CurrentNit, 1, {1032, 1035, 1036, 1037, 1038}, {1036, 1042}},
        {ScanMode::SingleSatellite, 1, {1035, 1036}, {1036}},
        {ScanMode::AllSatellites, 1, {1032}, none},
        {ScanMode::CurrentNit, 2, {1032, 1035, 1036, 1037, 1038, 1043}, {1036, 1042}},
        {ScanMode::AllSatellites, 9, {1032, 1035, 1036, 1037, 1038, 1043}, none},
    };
    for (const Case& each : cases) {
        driver->tunerType = each.tuner;
        openIdle(each.mode);
        std::vector<int> disabled;
        std::vector<int> notApplicable;
        for (const int id : {1, 1011, 1032, 1035, 1036, 1037, 1038, 1039, 1040, 1041, 1042, 1043}) {
            auto& widget = control<QWidget>(id);
            if (!widget.isEnabled())
                disabled.push_back(id);
            const auto* const box = qobject_cast<QLineEdit*>(&widget);
            if (box && box->text() == "N/A")
                notApplicable.push_back(id);
            EXPECT_TRUE(!box || box->isReadOnly());
        }
        EXPECT_EQ(disabled, each.disabled) << static_cast<int>(each.mode);
        EXPECT_EQ(notApplicable, each.notApplicable) << static_cast<int>(each.mode);
    }
}

TEST_F(SiReading, choosesTheCurrentSatelliteAmongTheSelectedOnes)
{
    for (const auto& [current, chosen] : {std::pair{"", -1}, {"Quay", -1}, {"quay 5w", 1}}) {
        driver->satellite = current;
        openIdle(ScanMode::SingleSatellite);
        const auto& list = control<QComboBox>(1032);
        EXPECT_EQ(list.count(), 2);
        EXPECT_EQ(list.itemText(1).toStdString(), "Quay 5W");
        EXPECT_EQ(list.currentIndex(), chosen) << current;
        EXPECT_EQ(dialog->focusWidget() == &list, chosen < 0) << "it is what is wanted";
    }
}

TEST_F(SiReading, takesTheReceivedNetworkToBeOnTheSatelliteOfTheDriver)
{
    for (const auto& [current, count, passed] :
         {std::tuple{"quay 5w", 2, "Quay 5W"}, {"Folder", 3, "Folder"}}) {
        driver->satellite = current;
        driver->tunings.clear();
        openIdle(ScanMode::CurrentNit);
        EXPECT_EQ(control<QComboBox>(1032).count(), count) << current;
        click(start());
        ASSERT_TRUE(waitForEnd());
        EXPECT_EQ(driver->tunings.front().satellite, passed);
    }
}

TEST_F(SiReading, scansAndShowsHowFarItIs)
{
    openIdle(ScanMode::SingleSatellite);
    QTest::keyClick(dialog.get(), Qt::Key_Return);
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(text(1036), "N/A");
    EXPECT_EQ(text(1037), "1 of 1");
    EXPECT_EQ(text(1042), "1 of 1");
    EXPECT_EQ(text(1040), "1 of 1");
    EXPECT_EQ(model.size(), 1);
    EXPECT_EQ(driver->tunings.front().satellite, "Quay 5W") << "the list's spelling";
    EXPECT_EQ(driver->tunings.front().owner, windowHandle(dialog.get()));
    EXPECT_EQ(dialog->focusWidget(), &close());
    QTest::keyClick(&close(), Qt::Key_Return);
    EXPECT_THAT(results, ElementsAre(QDialog::Accepted)) << "the keys that start a scan end it";
}

TEST_F(SiReading, asksForASatelliteWithoutOne)
{
    const test::MessageReader messages;
    driver->satellite = "";
    openIdle(ScanMode::SingleSatellite);
    click(start());
    EXPECT_TRUE(waitForEnd());
    EXPECT_THAT(messages.texts, ElementsAre("You must select a satellite to scan"));
}

TEST_F(SiReading, cancelsAndOffersToStartAgain)
{
    openIdle(ScanMode::CurrentTransponder);
    startAndStopInReading();
    EXPECT_EQ(start().text(), "Cancel");
    EXPECT_FALSE(close().isEnabled());
    click(start());
    EXPECT_FALSE(start().isEnabled());
    go.set_value();
    ASSERT_TRUE(waitForEnd());
    EXPECT_TRUE(close().isEnabled());
    EXPECT_TRUE(model.empty());
    click(close());
    EXPECT_THAT(results, ElementsAre(QDialog::Rejected));
}

TEST_F(SiReading, goesAfterTheScanThatIsClosed)
{
    using Closing = void (*)(QDialog&);
    const Closing byKey = [](QDialog& d) { QTest::keyClick(&d, Qt::Key_Escape); };
    const Closing byTitleBar = [](QDialog& d) { static_cast<QWidget&>(d).close(); };
    for (const Closing closing : {byKey, byTitleBar}) {
        driver = ScriptedDriver::make();
        isStopped = false;
        go = {};
        results.clear();
        openIdle(ScanMode::CurrentTransponder);
        startAndStopInReading();
        closing(*dialog);
        bool isServed = false;
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, [&] { isServed = true; });
        timer.start(0);
        EXPECT_TRUE(waitFor([&] { return isServed; }));
        EXPECT_TRUE(dialog->isVisible()) << "the driver is still at work";
        go.set_value();
        EXPECT_TRUE(waitFor([this] { return !results.empty(); }));
        EXPECT_THAT(results, ElementsAre(QDialog::Rejected));
    }
}

TEST_F(SiReading, endsWithOkWhenNothingWasCancelled)
{
    openIdle(ScanMode::CurrentTransponder);
    QTest::keyClick(dialog.get(), Qt::Key_Escape);
    EXPECT_THAT(results, ElementsAre(QDialog::Accepted));
}

TEST_F(SiReading, opensOverADriverThatDoesNotAnswer)
{
    stopIn("GetTunerType");
    open(ScanMode::CurrentTransponder);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_FALSE(start().isEnabled());
    go.set_value();
    EXPECT_TRUE(waitFor([this] { return start().isEnabled(); }));
}

/// The end of the program takes every window with it.
TEST_F(SiReading, isDestroyedInMidScanWithoutHanging)
{
    driver->missing = {IInterrupt::kId};
    openIdle(ScanMode::CurrentTransponder);
    startAndStopInReading();
    QTimer timer;
    timer.setSingleShot(true);
    QObject::connect(&timer, &QTimer::timeout, [this] { go.set_value(); });
    timer.start(0);
    dialog.reset();
    EXPECT_THAT(driver->calls, ElementsAre("GetTunerType", "GetSatelliteTuning", "ReadTables"));
}

TEST_F(SiReading, opensScansAndClosesAgainAndAgain)
{
    for (int i = 0; i < 250; ++i) {
        openIdle(ScanMode::CurrentNit);
        click(start());
        if (i % 2 == 0)
            click(start());
        dialog->reject();
    }
    dialog.reset();
    driver->AddRef();
    EXPECT_EQ(driver->Release(), 1);
}

} // namespace
