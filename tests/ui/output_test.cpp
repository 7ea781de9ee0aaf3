#include "tests/ui/window_test.h"
#include "ui/hex_view.h"
#include "ui/output_bar.h"
#include "ui/output_lines.h"
#include "ui/output_list.h"

#include <map>
#include <numeric>
#include <thread>

#include <QApplication>
#include <QClipboard>
#include <QScrollBar>
#include <QTabBar>

namespace {

using namespace tessaview; // NOLINT(google-build-using-namespace)

TEST(OutputLines, comeInOrderFromAnyThreadBeforeWhatThatThreadPostsNext)
{
    OutputLines lines;
    OutputPrint("%s", "first");
    int shown = 0;
    std::thread worker([&] {
        for (int i = 0; i < 1000; ++i)
            OutputPrint("line %d", i);
        QMetaObject::invokeMethod(
            &lines, [&] { shown = lines.rowCount(); }, Qt::QueuedConnection);
    });
    worker.join(); // while it prints, this thread waits
    EXPECT_EQ(lines.rowCount(), 0);
    ASSERT_TRUE(test::waitFor([&] { return shown > 0; }));
    EXPECT_EQ(shown, 1001);
    EXPECT_EQ(lines.line(0), "first");
    EXPECT_EQ(lines.line(1000), "line 999");
}

TEST(OutputLines, areAllThereWhenThreadsPrintWhileOthersAreShown)
{
    constexpr int kEach = 2000;
    OutputLines lines;
    std::atomic<int> printing = 2;
    const auto print = [&](char thread) {
        for (int i = 0; i < kEach; ++i)
            OutputPrint("%c%d", thread, i);
        --printing;
    };
    std::jthread a(print, 'a');
    std::jthread b(print, 'b');
    while (printing > 0)
        lines.takePending();
    lines.takePending();
    std::map<QChar, int> next;
    for (int row = 0; row < lines.rowCount(); ++row)
        EXPECT_EQ(lines.line(row).mid(1).toInt(), next[lines.line(row)[0]]++);
    EXPECT_EQ(next, (std::map<QChar, int>{{'a', kEach}, {'b', kEach}}));
}

TEST(OutputLines, areClearedInTheirPlaceAmongTheLines)
{
    OutputLines lines;
    OutputPrint("%s", "old");
    lines.takePending();
    OutputPrint("%s", "older than the clearing");
    OutputClear();
    OutputPrint("%s", "new");
    lines.takePending();
    EXPECT_EQ(lines.text(), "new");
}

TEST(OutputLines, areEachOneLineOfBoundedLength)
{
    OutputLines lines;
    OutputPrint("%s", "two\nlines\x1b[0m");
    OutputPrint("%s", std::string(5000, 'x').c_str());
    lines.takePending();
    EXPECT_EQ(lines.line(0), "two lines [0m");
    EXPECT_EQ(lines.line(1).size(), OutputLines::kMaxLine);
}

TEST(OutputLines, areDroppedOnceTheirWindowIsGone)
{
    std::atomic<bool> ends = false;
    std::thread worker([&] {
        while (!ends)
            OutputPrint("%s", "line");
    });
    {
        const OutputLines lines;
    }
    OutputPrint("%s", "nobody listens");
    ends = true;
    worker.join();
}

class OutputBar : public test::WindowTest {};

TEST_F(OutputBar, keepsTheLastOfManyLinesInSight)
{
    open();
    constexpr int kLines = 100'000;
    for (int i = 0; i < kLines; ++i) {
        OutputPrint("Got %d EIT 0x50 sections", i);
        if (i % 1000 == 0)
            QApplication::processEvents();
    }
    auto& list = frame->outputBar().list();
    ASSERT_TRUE(test::waitFor([&] { return list.model()->rowCount() == kLines; }));
    const QRect last = list.visualRect(list.model()->index(kLines - 1, 0));
    EXPECT_TRUE(list.viewport()->rect().contains(QPoint(0, last.bottom())));
    OutputClear();
    ASSERT_TRUE(test::waitFor([&] { return list.model()->rowCount() == 0; }));
}

TEST_F(OutputBar, givesALongLineAScrollBarAndCopiesAll)
{
    open();
    auto& bar = frame->outputBar();
    OutputPrint("%s", std::string(1000, 'm').c_str());
    OutputPrint("%s", "end");
    bar.lines().takePending();
    ASSERT_TRUE(test::waitFor([&] { return bar.list().horizontalScrollBar()->maximum() > 0; }));
    test::pressIn(bar.list(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_TRUE(QApplication::clipboard()->text().endsWith("m\nend"));
}

TEST_F(OutputBar, showsOnePageAtATime)
{
    open();
    auto& bar = frame->outputBar();
    EXPECT_EQ(bar.tabs().tabText(0), "OUTPUT");
    EXPECT_EQ(bar.tabs().tabText(1), "VALUE");
    EXPECT_TRUE(bar.list().isVisible());
    bar.tabs().setCurrentIndex(1);
    EXPECT_FALSE(bar.list().isVisible());
    EXPECT_TRUE(bar.hexView().isVisible());
    EXPECT_EQ(frame->focusWidget(), &bar.hexView());
}

class HexView : public testing::Test {
protected:
    static std::vector<std::uint8_t> bytes(std::size_t count)
    {
        std::vector<std::uint8_t> made(count);
        std::iota(made.begin(), made.end(), std::uint8_t{0});
        return made;
    }

    HexView()
    {
        view.resize(700, 200);
        view.show();
    }

    int page() const { return view.verticalScrollBar()->pageStep(); }

    CHexView view{nullptr};
};

TEST_F(HexView, scrollsByKeys)
{
    constexpr int kRows = 100;
    view.setBytes(bytes(16 * kRows - 5));
    const int last = kRows - page();
    struct Case {
        Qt::Key key;
        int row;
    };
    for (const auto& [key, row] :
         {Case{Qt::Key_Up, 0}, Case{Qt::Key_Down, 1}, Case{Qt::Key_Down, 2}, Case{Qt::Key_Up, 1},
          Case{Qt::Key_PageDown, 1 + page()}, Case{Qt::Key_PageUp, 1}, Case{Qt::Key_End, last},
          Case{Qt::Key_Down, last}, Case{Qt::Key_Home, 0}}) {
        QTest::keyClick(&view, key);
        EXPECT_EQ(view.firstRow(), row) << key;
    }
}

TEST_F(HexView, startsAtTheTopWithNewBytesAndIsEmptyWithout)
{
    view.setBytes(bytes(1600));
    QTest::keyClick(&view, Qt::Key_End);
    view.setBytes(bytes(1600));
    EXPECT_EQ(view.firstRow(), 0);
    view.setBytes({});
    QTest::keyClick(&view, Qt::Key_End);
    EXPECT_EQ(view.firstRow(), 0);
}

TEST_F(HexView, paintsTheSameAfterScrollingAsAfresh)
{
    view.setBytes(bytes(1600));
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    QTest::keyClick(&view, Qt::Key_Down);
    QTest::keyClick(&view, Qt::Key_PageDown);
    const QImage scrolled = view.grab().toImage();
    view.viewport()->update();
    EXPECT_EQ(scrolled, view.grab().toImage());
    QTest::keyClick(&view, Qt::Key_Down);
    EXPECT_NE(scrolled, view.grab().toImage());
}

TEST_F(HexView, copiesItsRows)
{
    view.setBytes(bytes(17));
    test::pressIn(view, Qt::Key_C, Qt::ControlModifier);
    const QStringList rows = QApplication::clipboard()->text().split('\n');
    ASSERT_EQ(rows.size(), 3);
    EXPECT_TRUE(rows[1].startsWith("00000010h: 10 "));
}

} // namespace
