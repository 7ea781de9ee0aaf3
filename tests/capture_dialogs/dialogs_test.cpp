#include "platform/settings.h"
#include "tests/capture/loaded_driver.h"
#include "tests/support/driver_dialogs.h"
#include "tests/support/tests.h"
#include "tools/multiplex/descriptors.h"
#include "tools/multiplex/sections.h"
#include "tools/multiplex/stream_builder.h"

#include <QTreeView>

// The dialogs as a user sees them, in the library that the driver loads for them.

namespace {

class CaptureDialogs : public testing::Test {
protected:
    CaptureDialogs()
    {
        const Bytes delivery =
            satelliteDelivery({.frequency = 1218700, .orbitalPosition = 192, .polarization = 1});
        stream_ =
            StreamBuilder()
                .put(0x0000, pat(0x8001, {}))
                .put(0x0010, nit(0x40, 1, {},
                                 {{.stream = 0x8001, .network = 1, .descriptors = {delivery}}}))
                .build();
        bare_ = StreamBuilder().put(0x0000, pat(2, {})).build();
    }

    using Show = Status (IDeviceDialogs::*)(WindowHandle) noexcept;

    void show(Show which, const std::function<void(QDialog&)>& act) const
    {
        const auto dialogs = driver_.as<IDeviceDialogs>();
        actOn([&](WindowHandle owner) { return (dialogs.get()->*which)(owner); }, act);
    }

    static void add(QDialog& dialog, const std::vector<fs::path>& files)
    {
        drop(dialog, files);
        EXPECT_TRUE(waitFor([&] { return the<QPushButton>(dialog, "remove").isEnabled(); }));
    }

    /// The rows of the tree, those of a folder indented; the checked one has a plus sign.
    static std::string rows(const QDialog& dialog)
    {
        const QAbstractItemModel& model = *the<QTreeView>(dialog, "captures").model();
        std::string text;
        const std::function<void(const QModelIndex&, int)> list = [&](const QModelIndex& parent,
                                                                      int depth) {
            for (int i = 0; i < model.rowCount(parent); ++i) {
                text.append(static_cast<std::size_t>(depth), ' ');
                const QModelIndex first = model.index(i, 0, parent);
                if (first.data(Qt::CheckStateRole).toInt() == Qt::Checked)
                    text += '+';
                for (int column = 0; column < model.columnCount(); ++column)
                    text += first.siblingAtColumn(column).data().toString().toStdString() + '|';
                text += '\n';
                list(first, depth + 1);
            }
        };
        list({}, 0);
        return text;
    }

    /// Makes a capture the current one of the list.
    static void choose(const QDialog& dialog, int row)
    {
        auto& view = the<QTreeView>(dialog, "captures");
        view.setFocus();
        view.setCurrentIndex(view.model()->index(row, 0));
    }

    LoadedDriver driver_;
    Bytes stream_;
    Bytes bare_;
};

TEST_F(CaptureDialogs, tuningChoosesAndStoresCaptures)
{
    const fs::path set = driver_.folder() / "set";
    driver_.file("set/a.ts", bare_);
    driver_.file("set/Astra/b.ts", stream_);
    driver_.file("set/empty.ts", {});
    const fs::path single = driver_.file("c.ts", bare_);
    const std::string sizeA = std::to_string(bare_.size()) + " bytes|";
    const std::string sizeB = std::to_string(stream_.size()) + " bytes|";
    show(&IDeviceDialogs::ShowTuningDialog, [&](QDialog& dialog) {
        EXPECT_EQ(rows(dialog), "");
        add(dialog, {set, single});
        EXPECT_EQ(rows(dialog), set.string() + "|||||\n +Astra/b.ts|8001|12187 MHz V 27500 kS/s|" +
                                    sizeB + "|\n a.ts|0002||" + sizeA +
                                    "|\n empty.ts||||is empty|\n" + single.string() + "|0002||" +
                                    sizeA + "|\n");
    });
    EXPECT_FALSE(driver_.isLocked()) << "the dialog was not left with OK";

    show(&IDeviceDialogs::ShowTuningDialog, [&](QDialog& dialog) {
        add(dialog, {set, single});
        choose(dialog, 1);
        QTest::keyClick(&the<QTreeView>(dialog, "captures"), Qt::Key_Space);
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    EXPECT_EQ(driver_.statusText(), "capture c.ts locked");
    EXPECT_EQ(driver_.initialize(), status::kOk);
    EXPECT_EQ(driver_.statusText(), "capture c.ts locked");

    show(&IDeviceDialogs::ShowTuningDialog, [&](QDialog& dialog) {
        choose(dialog, 1);
        the<QPushButton>(dialog, "remove").click();
        EXPECT_EQ(rows(dialog).find("c.ts"), std::string::npos);
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    EXPECT_EQ(Settings(defaultSettingsFile()).texts("drivers", "captures"),
              std::vector<std::string>{set.string()});
    EXPECT_TRUE(driver_.isLocked());
}

TEST_F(CaptureDialogs, settingsStoreTheTunerType)
{
    const auto choose = [this](int row) {
        show(&IDeviceDialogs::ShowSettingsDialog, [row](QDialog& dialog) {
            the<QComboBox>(dialog, "type").setCurrentIndex(row);
            QTest::keyClick(&dialog, Qt::Key_Return);
        });
        return driver_.tunerType();
    };
    driver_.use({driver_.file("a.ts", bare_)});
    for (const unsigned row : {1U, 2U, 0U, 2U}) {
        EXPECT_EQ(choose(static_cast<int>(row)), row + 1);
        EXPECT_EQ(Settings(defaultSettingsFile()).number("drivers", "tunertype"), row + 1);
    }
    driver_.use({driver_.file("b.ts", stream_)});
    EXPECT_EQ(choose(2), 1U) << "what the captures say themselves goes before";
}

TEST_F(CaptureDialogs, streamingWritesTheStreamOrSaysWhyNot)
{
    const fs::path source = driver_.file("a.ts", stream_);
    const std::string content = readFile(source);
    show(&IDeviceDialogs::ShowStreamingDialog,
         [](QDialog& dialog) { EXPECT_FALSE(startOf(dialog).isEnabled()) << "no capture chosen"; });
    driver_.use({source});
    writeFile(driver_.folder() / "old.ts", "old");
    const struct {
        const char* name;
        QMessageBox::StandardButton answer; // to the question whether the file may be replaced
        const char* message;
        const char* written; // null: the stream
    } cases[] = {
        {"", QMessageBox::NoButton, "Name the file", ""},
        {"a.ts", QMessageBox::Yes, "is the capture itself", ""},
        {"missing/a.ts", QMessageBox::NoButton, "No such file", ""},
        {"old.ts", QMessageBox::No, "", "old"},
        {"old.ts", QMessageBox::Yes, "were written to", nullptr},
        {"new.ts", QMessageBox::NoButton, "were written to", nullptr},
    };
    for (const auto& each : cases)
        show(&IDeviceDialogs::ShowStreamingDialog, [&](QDialog& dialog) {
            const fs::path target = driver_.folder() / each.name;
            if (*each.name != '\0')
                setFile(dialog, target);
            answer(dialog, each.answer);
            startOf(dialog).click();
            EXPECT_TRUE(hasEnded(dialog));
            EXPECT_THAT(labelOf(dialog, "message"), HasSubstr(each.message));
            if (!each.written || *each.written != '\0') {
                EXPECT_EQ(readFile(target), each.written ? each.written : content);
            }
        });
    EXPECT_EQ(readFile(source), content);
}

TEST_F(CaptureDialogs, streamingIsCancelledByEscape)
{
    // Large enough to be under way still, whatever the machine: a hole takes no room on the disk,
    // and the copy never gets far.
    const fs::path source = driver_.file("a.ts", stream_);
    driver_.use({source});
    fs::resize_file(source, std::uintmax_t{1} << 36);
    show(&IDeviceDialogs::ShowStreamingDialog, [&](QDialog& dialog) {
        const fs::path target = driver_.folder() / "copy.ts";
        setFile(dialog, target);
        startOf(dialog).click();
        QTest::keyClick(&dialog, Qt::Key_Escape);
        EXPECT_TRUE(dialog.isVisible()) << "the copy has to end first";
        EXPECT_TRUE(hasEnded(dialog));
        EXPECT_FALSE(fs::exists(target));
        EXPECT_FALSE(fs::exists(target.string() + ".part"));
        QTest::keyClick(&dialog, Qt::Key_Escape);
        EXPECT_FALSE(dialog.isVisible());
    });
}

TEST_F(CaptureDialogs, areRefusedOnOtherThreads)
{
    const auto dialogs = driver_.as<IDeviceDialogs>();
    std::thread([&] { EXPECT_EQ(dialogs->ShowTuningDialog(nullptr), status::kNotReady); }).join();
}

} // namespace
