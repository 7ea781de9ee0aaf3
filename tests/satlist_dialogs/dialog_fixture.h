#pragma once

#include "tests/satlist/loaded_manager.h"
#include "tests/support/windows.h"

#include <QListWidget>
#include <QPushButton>

namespace test {

/// A list manager; message boxes that open are read and closed.
class DialogTest : public testing::Test {
protected:
    static void show(QWidget& window)
    {
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    static void press(const QWidget& window, int id)
    {
        QTest::mouseClick(&control<QPushButton>(window, id), Qt::LeftButton);
    }

    static std::vector<std::string> lines(const QWidget& window, int id)
    {
        std::vector<std::string> texts;
        const auto& list = control<QListWidget>(window, id);
        texts.reserve(static_cast<std::size_t>(list.count()));
        for (int row = 0; row < list.count(); ++row)
            texts.push_back(list.item(row)->text().toStdString());
        return texts;
    }

    static void select(const QWidget& window, int id, std::initializer_list<int> rows)
    {
        auto& list = control<QListWidget>(window, id);
        list.clearSelection();
        for (const int row : rows)
            list.item(row)->setSelected(true);
        if (rows.size() > 0)
            list.setCurrentRow(*rows.begin(), QItemSelectionModel::NoUpdate);
    }

    const LoadedManager manager_;
    MessageReader reader_;
    std::vector<std::string>& messages_ = reader_.texts;
};

} // namespace test
