#include "tests/linuxdvb_dialogs/dialog_fixture.h"
#include "tests/support/no_threads.h"
#include "tests/support/tests.h"

#include <QRadioButton>

namespace {

constexpr long kSize = 188L * 100;

using StreamingOfReceivers = DvbDialogs;

TEST_F(StreamingOfReceivers, recordsUntilItIsStopped)
{
    show(DriverDialog::Streaming,
         [](QDialog& dialog) { EXPECT_FALSE(startOf(dialog).isEnabled()) << "not tuned"; });
    tune();
    const fs::path file = folder_ / "stream.ts";
    kernel_.packets = {kSize};
    show(DriverDialog::Streaming, [&](QDialog& dialog) {
        setFile(dialog, file);
        startOf(dialog).click();
        EXPECT_TRUE(comesToSay(dialog, "Written", "18.8 kB"));
        EXPECT_TRUE(comesToSay(dialog, "Signal", "locked, 71 %, 12.4 dB"));
        kernel_.at({}, [this] { kernel_.frontends[{}].receives = receivesNothing; });
        EXPECT_TRUE(comesToSay(dialog, "Signal", "no lock"));
        EXPECT_EQ(startOf(dialog).text(), "&Stop") << "a recording outlives the lock";
        startOf(dialog).click();
        EXPECT_TRUE(hasEnded(dialog));
        EXPECT_EQ(labelOf(dialog, "message"), "18.8 kB were written to " + file.string() + ".");
    });
    EXPECT_EQ(fs::file_size(file), static_cast<std::uintmax_t>(kSize));
    EXPECT_EQ(kernel_.openFiles(), 1U) << "the receiver stays tuned";
}

TEST_F(StreamingOfReceivers, isLeftOnlyWhenTheUserStopsIt)
{
    tune();
    kernel_.packets = {kSize};
    show(DriverDialog::Streaming, [&](QDialog& dialog) {
        the<QRadioButton>(dialog, "chosen").click();
        the<QLineEdit>(dialog, "pids").setText("0x100, 17-18");
        setFile(dialog, folder_ / "stream.ts");
        startOf(dialog).click();
        EXPECT_TRUE(comesToSay(dialog, "Written", "18.8 kB"));
        answer(dialog, QMessageBox::No);
        QTest::keyClick(&dialog, Qt::Key_Escape);
        EXPECT_EQ(startOf(dialog).text(), "&Stop");
        answer(dialog, QMessageBox::Yes);
        QTest::keyClick(&dialog, Qt::Key_Escape);
        EXPECT_TRUE(hasEnded(dialog));
        EXPECT_TRUE(dialog.isVisible()) << "what was written is told first";
    });
    EXPECT_THAT(kernel_.pids, testing::ElementsAre(17, 18, 256));
}

TEST_F(StreamingOfReceivers, saysWhyItDoesNotBegin)
{
    tune();
    writeFile(folder_ / "old.ts", "old");
    const struct {
        const char* file;
        const char* pids; // empty: the whole stream
        QMessageBox::StandardButton answer;
        const char* message;
    } cases[] = {
        {"", "", QMessageBox::NoButton, "Name the file"},
        {"new.ts", "video", QMessageBox::NoButton, "\"video\" is no PID"},
        {"missing/new.ts", "", QMessageBox::NoButton, "No such file"},
        {"old.ts", "", QMessageBox::No, ""},
    };
    for (const auto& each : cases)
        show(DriverDialog::Streaming, [&](QDialog& dialog) {
            if (*each.file != '\0')
                setFile(dialog, folder_ / each.file);
            if (*each.pids != '\0')
                the<QRadioButton>(dialog, "chosen").click();
            the<QLineEdit>(dialog, "pids").setText(each.pids);
            answer(dialog, each.answer);
            startOf(dialog).click();
            EXPECT_TRUE(hasEnded(dialog));
            EXPECT_THAT(labelOf(dialog, "message"), HasSubstr(each.message));
        });
    EXPECT_EQ(readFile(folder_ / "old.ts"), "old");
    EXPECT_TRUE(kernel_.pids.empty());

    show(DriverDialog::Streaming, [&](QDialog& dialog) {
        setFile(dialog, folder_ / "new.ts");
        const NoThreads none;
        startOf(dialog).click();
        EXPECT_THAT(labelOf(dialog, "message"), HasSubstr("no thread"));
        EXPECT_EQ(startOf(dialog).text(), "&Start");
    });
}

} // namespace
