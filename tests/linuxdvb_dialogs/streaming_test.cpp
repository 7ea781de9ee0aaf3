#include "tests/linuxdvb_dialogs/dialog_fixture.h"
#include "tests/support/no_threads.h"

#include <gmock/gmock.h>

#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

namespace {

namespace fs = std::filesystem;
using namespace test;
using namespace tessaview;
using testing::HasSubstr;

class StreamingOfReceivers : public DvbDialogs {
protected:
    static constexpr long kSize = 188L * 100;

    /// Answers the next question.
    static void answer(QDialog& dialog, QMessageBox::StandardButton button)
    {
        QTimer::singleShot(0, &dialog, [button] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
                box->button(button)->click();
        });
    }
    static QPushButton& start(const QDialog& dialog) { return the<QPushButton>(dialog, "start"); }
    static void setFile(const QDialog& dialog, const fs::path& file)
    {
        the<QLineEdit>(dialog, "destination").setText(QString::fromStdString(file.string()));
    }
    static bool hasEnded(const QDialog& dialog)
    {
        return QTest::qWaitFor([&] { return start(dialog).text() == "&Start"; }, 20'000);
    }
};

TEST_F(StreamingOfReceivers, recordsUntilItIsStopped)
{
    show(DriverDialog::Streaming,
         [](QDialog& dialog) { EXPECT_FALSE(start(dialog).isEnabled()) << "not tuned"; });
    tune();
    const fs::path file = folder_ / "stream.ts";
    kernel_.packets = {kSize};
    show(DriverDialog::Streaming, [&](QDialog& dialog) {
        setFile(dialog, file);
        start(dialog).click();
        EXPECT_TRUE(comesToSay(dialog, "Written", "18.8 kB"));
        EXPECT_TRUE(comesToSay(dialog, "Signal", "locked, 71 %, 12.4 dB"));
        kernel_.at({}, [this] { kernel_.frontends[{}].receives = receivesNothing; });
        EXPECT_TRUE(comesToSay(dialog, "Signal", "no lock"));
        EXPECT_EQ(start(dialog).text(), "&Stop") << "a recording outlives the lock";
        start(dialog).click();
        EXPECT_TRUE(hasEnded(dialog));
        EXPECT_EQ(textOf(dialog, "message"), "18.8 kB were written to " + file.string() + ".");
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
        start(dialog).click();
        EXPECT_TRUE(comesToSay(dialog, "Written", "18.8 kB"));
        answer(dialog, QMessageBox::No);
        QTest::keyClick(&dialog, Qt::Key_Escape);
        EXPECT_EQ(start(dialog).text(), "&Stop");
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
            start(dialog).click();
            EXPECT_TRUE(hasEnded(dialog));
            EXPECT_THAT(textOf(dialog, "message"), HasSubstr(each.message));
        });
    EXPECT_EQ(readFile(folder_ / "old.ts"), "old");
    EXPECT_TRUE(kernel_.pids.empty());

    show(DriverDialog::Streaming, [&](QDialog& dialog) {
        setFile(dialog, folder_ / "new.ts");
        const NoThreads none;
        start(dialog).click();
        EXPECT_THAT(textOf(dialog, "message"), HasSubstr("no thread"));
        EXPECT_EQ(start(dialog).text(), "&Start");
    });
}

} // namespace
