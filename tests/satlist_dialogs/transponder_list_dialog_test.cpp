#include "ui/satlist/transponder_list_dialog.h"

#include "tests/satlist_dialogs/dialog_fixture.h"

#include <gmock/gmock.h>
#include <optional>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

using namespace tessaview;
using test::control;
using Dialog = TransponderListDialog;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

class TransponderListDialogTest : public test::DialogTest {
protected:
    void open(const std::vector<TransponderEntry>& transponders)
    {
        manager_.put("<b>&x", transponders);
        dialog_.emplace(manager_.get(), manager_.satellite("<b>&x"));
        show(*dialog_);
    }

    void type(int id, const QString& text) { control<QLineEdit>(*dialog_, id).setText(text); }

    void typeGoodEntry()
    {
        type(Dialog::kNid, " 0x13e ");
        type(Dialog::kTsid, "FFFF");
        type(Dialog::kFrequency, "12187009");
        type(Dialog::kSymbolRate, "27500099");
        control<QComboBox>(*dialog_, Dialog::kPolarization).setCurrentIndex(3);
        control<QComboBox>(*dialog_, Dialog::kFec).setCurrentIndex(7);
    }

    std::vector<std::string> list() const { return lines(*dialog_, Dialog::kList); }

    std::optional<Dialog> dialog_;
};

TEST_F(TransponderListDialogTest, hasALineForEachEntry)
{
    open({{0x13E, 0x2B5C, 1071900, 1, 275000, 3, 1},
          {0, 0xFFFF, -1, 3, 0, 0, 0},
          {1, 1, 0, 2, 0, 0, -1},
          {2, 2, 5, 0, 0, 0, 7},
          {3, 3, 5, 77, 0, 0, 0}});
    EXPECT_EQ(control<QLabel>(*dialog_, Dialog::kSatellite).text(), "<b>&x");
    EXPECT_EQ(control<QLabel>(*dialog_, Dialog::kSatellite).textFormat(), Qt::PlainText);
    EXPECT_THAT(list(), ElementsAre("013E 2B5C P 10719000 V", "0000 FFFF   42949672950 R",
                                    "0001 0001   0 L", "0002 0002 P 50 H", "0003 0003   50 R"));
}

TEST_F(TransponderListDialogTest, deletesTheSelectedEntries)
{
    open({{.tsid = 1}, {.nid = 0xABCD, .tsid = 2}, {.tsid = 3}, {.tsid = 4}});
    select(*dialog_, Dialog::kList, {0, 1});
    press(*dialog_, Dialog::kDelete);
    EXPECT_THAT(manager_.transponders("<b>&x"),
                ElementsAre(TransponderEntry{.tsid = 3}, TransponderEntry{.tsid = 4}));
    auto& entries = control<QListWidget>(*dialog_, Dialog::kList);
    entries.setFocus();
    select(*dialog_, Dialog::kList, {1});
    QTest::keyClick(&entries, Qt::Key_Delete);
    EXPECT_EQ(list().size(), 1U);
    press(*dialog_, Dialog::kNitUpdate);
    EXPECT_THAT(manager_.transponders("<b>&x"), ElementsAre(TransponderEntry{.tsid = 3}));
}

TEST_F(TransponderListDialogTest, addsWhatWasTyped)
{
    open({{.tsid = 1}});
    typeGoodEntry();
    press(*dialog_, Dialog::kAdd);
    EXPECT_THAT(manager_.transponders("<b>&x"),
                ElementsAre(TransponderEntry{.tsid = 1},
                            TransponderEntry{0x13E, 0xFFFF, 1218700, 3, 275000, 7, 1}));
    EXPECT_EQ(list().back(), "013E FFFF P 12187000 R");
    press(*dialog_, Dialog::kAdd);
    EXPECT_THAT(messages_, ElementsAre(HasSubstr("NID 013E, TSID FFFF is in the list already")));
    EXPECT_EQ(list().size(), 2U);

    auto& tsid = control<QLineEdit>(*dialog_, Dialog::kTsid);
    tsid.setFocus();
    tsid.setText("0");
    QTest::keyClick(&tsid, Qt::Key_Enter);
    EXPECT_EQ(list().size(), 3U);
    EXPECT_TRUE(dialog_->isVisible());
}

TEST_F(TransponderListDialogTest, asksAboutARateInTheUnitOfTheLabel)
{
    open({});
    typeGoodEntry();
    type(Dialog::kSymbolRate, "99999");
    press(*dialog_, Dialog::kAdd);
    EXPECT_THAT(messages_, ElementsAre(HasSubstr("would be stored as 99.9 kS/s")));
    EXPECT_THAT(list(), IsEmpty());
    EXPECT_EQ(dialog_->focusWidget(), &control<QLineEdit>(*dialog_, Dialog::kSymbolRate));
    reader_.answer = QMessageBox::Yes;
    press(*dialog_, Dialog::kAdd);
    EXPECT_EQ(control<QListWidget>(*dialog_, Dialog::kList).item(0)->toolTip(),
              "Symbol rate 99.9 kS/s, FEC no coding");
    type(Dialog::kTsid, "1");
    type(Dialog::kSymbolRate, "100000");
    press(*dialog_, Dialog::kAdd);
    EXPECT_EQ(messages_.size(), 2U) << "that rate is one";
}

TEST_F(TransponderListDialogTest, refusesWhatItCannotRead)
{
    open({});
    struct Case {
        int id;
        const char* typed;
        const char* message;
    };
    for (const Case& bad : {Case{Dialog::kNid, "", "NID (hex) is empty: type one to four"},
                            Case{Dialog::kNid, "12G", "NID (hex) is '12G': type one to four"},
                            Case{Dialog::kNid, "0x", "NID (hex) is '0x'"},
                            Case{Dialog::kTsid, "10000", "TSID (hex) is '10000'"},
                            Case{Dialog::kTsid, "-1", "TSID (hex) is '-1'"},
                            Case{Dialog::kFrequency, "12187 MHz", "Frequency (kHz) is '12187 MHz'"},
                            Case{Dialog::kFrequency, "4294967296", "Frequency (kHz) is '42949"},
                            Case{Dialog::kSymbolRate, "%1%2", "Symbol rate (kS/s) is '%1%2'"},
                            Case{Dialog::kSymbolRate, "27.5", "Symbol rate (kS/s) is '27.5'"}}) {
        typeGoodEntry();
        type(bad.id, bad.typed);
        messages_.clear();
        press(*dialog_, Dialog::kAdd);
        EXPECT_THAT(messages_, ElementsAre(HasSubstr(bad.message)));
        EXPECT_EQ(dialog_->focusWidget(), &control<QLineEdit>(*dialog_, bad.id));
    }
    EXPECT_THAT(manager_.transponders("<b>&x"), IsEmpty());
}

} // namespace
