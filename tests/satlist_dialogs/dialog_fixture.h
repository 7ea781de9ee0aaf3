#pragma once

#include "tests/satlist/loaded_manager.h"

#include <functional>

#include <QApplication>
#include <QDialog>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace test {

/// A list manager, and the modal windows that open meanwhile: message boxes are read and closed,
/// dialogs handed to the test.
class DialogTest : public testing::Test {
protected:
    DialogTest()
    {
        QObject::connect(&timer_, &QTimer::timeout, [this] { answer(); });
        timer_.start(1);
    }

    /// Calls what opens a modal dialog of the test's, which `use` gets and which is then closed.
    template <class Open>
    void withDialog(Open open, std::function<void(QDialog&)> use)
    {
        use_ = std::move(use);
        open();
        EXPECT_FALSE(use_) << "no dialog was opened";
        use_ = nullptr;
    }

    static void show(QWidget& window)
    {
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    template <class Widget>
    static Widget& control(const QWidget& window, int id)
    {
        auto* const found = window.findChild<Widget*>(QString::number(id));
        if (!found)
            throw std::runtime_error("no control " + std::to_string(id));
        return *found;
    }

    static void press(const QWidget& window, int id)
    {
        QTest::mouseClick(&control<QPushButton>(window, id), Qt::LeftButton);
    }

    static std::vector<std::string> lines(const QWidget& window, int id)
    {
        std::vector<std::string> texts;
        const auto& list = control<QListWidget>(window, id);
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
    std::vector<std::string> messages_; ///< of the message boxes that were closed

private:
    void answer()
    {
        QWidget* const window = QApplication::activeModalWidget();
        if (auto* const box = qobject_cast<QMessageBox*>(window)) {
            messages_.push_back(box->text().toStdString());
            box->accept();
        } else if (auto* const dialog = qobject_cast<QDialog*>(window); dialog && use_) {
            std::exchange(use_, nullptr)(*dialog);
            dialog->reject();
        }
    }

    QTimer timer_;
    std::function<void(QDialog&)> use_;
};

} // namespace test
