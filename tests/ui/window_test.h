#pragma once

#include "tests/support/scripted_driver.h"
#include "tests/support/small_model.h"
#include "tests/support/windows.h"
#include "ui/document.h"
#include "ui/main_frame.h"
#include "ui/tree_pane.h"
#include "ui/value_pane.h"

#include <functional>
#include <string>
#include <vector>

#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace test {

/// Records which dialogs are opened; "SI Reading" ends as the test says.
class RecordedDialogs : public tessaview::Dialogs {
public:
    std::vector<std::string> opened;
    tessaview::CharsetPolicy exportCharsets; ///< of the last "Database export"
    /// Fills the model; the answer is the dialog's.
    std::function<bool(tessaview::NetworkMap& model)> read = [](tessaview::NetworkMap& model) {
        fillSmallModel(model);
        return true;
    };

    bool runSiReading(QWidget*, tessaview::NetworkMap& model, tessaview::ScanMode mode,
                      tessaview::IDriverInfo* driver, tessaview::ISatListManager*) override
    {
        opened.push_back("reading " + std::to_string(static_cast<int>(mode)) +
                         (driver ? "" : " without driver"));
        return read(model);
    }
    void runSiTables(QWidget*) override { opened.emplace_back("tables"); }
    bool runDriverSelection(QWidget*) override
    {
        opened.emplace_back("driver");
        return false;
    }
    void runSatelliteListManager(QWidget*, tessaview::ISatListManager&) override
    {
        opened.emplace_back("satellites");
    }
    void runDatabaseExport(QWidget*, const tessaview::NetworkMap& model,
                           const tessaview::CharsetPolicy& charsets) override
    {
        exportCharsets = charsets;
        opened.push_back("export of " + std::to_string(model.size()));
    }
    void runAbout(QWidget*) override { opened.emplace_back("about"); }
};

/// Answers a modal box as soon as it is there, and tells what it said.
class BoxAnswer {
public:
    explicit BoxAnswer(Qt::Key key);
    QString text() const { return text_; }

private:
    QString text_;
    QTimer timer_;
};

/// Presses keys in a widget that has the focus, as shortcuts of its own need.
void pressIn(QWidget& widget, Qt::Key key, Qt::KeyboardModifiers modifiers = {});

/// The main window over a driver that does what the test says.
class WindowTest : public testing::Test {
protected:
    /// Makes the window, without waiting for the driver.
    void make();
    /// Opens the window, on the next state that the driver answers.
    void open();
    /// Waits until the window shows what the driver tells now.
    void settle();
    void openAndScan()
    {
        open();
        scan();
    }
    void scan() { frame->action(tessaview::Command::ScanTransponder)->trigger(); }

    const tessaview::Tree& tree() const { return frame->treePane().treeModel().tree(); }
    /// The first node whose label starts so, from above.
    tessaview::NodeView node(const std::string& label) const;
    void select(const std::string& label) { frame->treePane().select(node(label)); }
    /// The texts of a menu's items, disabled ones in brackets, separators as "-".
    static std::vector<std::string> itemsOf(const QMenu& menu);

    tessaview::ComPtr<ScriptedDriver> driver = ScriptedDriver::make();
    RecordedDialogs dialogs;
    std::unique_ptr<tessaview::CTessaview3Doc> document;
    std::unique_ptr<tessaview::CMainFrame> frame;
};

} // namespace test
