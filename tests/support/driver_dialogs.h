#pragma once

#include "component/status.h"
#include "tests/support/windows.h"
#include "ui/window_handle.h"

#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace test {

/// A widget by its name.
template <class Widget>
Widget& the(const QWidget& window, const char* name)
{
    auto* const found = window.findChild<Widget*>(name);
    if (!found)
        throw std::runtime_error(std::string("no control ") + name);
    return *found;
}

/// Lets a user act on the dialog that a driver shows over an owner; then it is left with Escape if
/// it is still there.
inline void actOn(const std::function<tessaview::Status(tessaview::WindowHandle)>& show,
                  const std::function<void(QDialog&)>& act)
{
    bool acted = false;
    QWidget owner;
    QTimer::singleShot(0, [&] {
        auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(dialog->parentWidget(), &owner);
        try {
            act(*dialog);
        } catch (const std::exception& e) {
            ADD_FAILURE() << e.what();
        }
        acted = true;
        if (dialog->isVisible())
            dialog->reject();
    });
    EXPECT_EQ(show(tessaview::windowHandle(&owner)), tessaview::status::kOk);
    EXPECT_TRUE(acted);
}

/// Answers the next question, if one comes.
inline void answer(QDialog& dialog, QMessageBox::StandardButton button)
{
    QTimer::singleShot(0, &dialog, [button] {
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
            box->button(button)->click();
    });
}

inline std::string labelOf(const QDialog& dialog, const char* label)
{
    return the<QLabel>(dialog, label).text().toStdString();
}

// The dialogs "Streaming to file"

inline QPushButton& startOf(const QDialog& dialog)
{
    return the<QPushButton>(dialog, "start");
}

inline void setFile(const QDialog& dialog, const std::filesystem::path& file)
{
    the<QLineEdit>(dialog, "destination").setText(QString::fromStdString(file.string()));
}

inline bool hasEnded(const QDialog& dialog)
{
    return waitFor(
        [&] { return startOf(dialog).isEnabled() && startOf(dialog).text() == "&Start"; });
}

} // namespace test
