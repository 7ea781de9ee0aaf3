#include "tests/ui/window_test.h"

#include "explorer/find.h"

#include <stdexcept>

#include <QApplication>
#include <QMenu>
#include <QMessageBox>

namespace test {

using namespace tessaview; // NOLINT(google-build-using-namespace)

BoxAnswer::BoxAnswer(Qt::Key key)
{
    QObject::connect(&timer_, &QTimer::timeout, [this, key] {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box)
            return;
        timer_.stop();
        text_ = box->text();
        QTest::keyClick(box, key);
    });
    timer_.start(0);
}

void pressIn(QWidget& widget, Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    widget.window()->activateWindow();
    widget.setFocus();
    ASSERT_TRUE(waitFor([&] { return QApplication::focusWidget() == &widget; }));
    QTest::keyClick(&widget, key, modifiers);
}

void WindowTest::make()
{
    frame.reset(); // a former one, which still knows its document
    document =
        std::make_unique<CTessaview3Doc>(static_cast<IDriverInfo*>(driver.get()), nullptr, dialogs);
    frame = std::make_unique<CMainFrame>(*document, HelpAddresses{.homePage = "test:home",
                                                                  .email = "test:mail",
                                                                  .updates = "test:updates",
                                                                  .buildNumber = 5});
}

void WindowTest::open()
{
    make();
    frame->show();
    settle();
}

void WindowTest::settle()
{
    // Two rounds, since the one that runs may have begun before the driver changed.
    const int rounds = driver->rounds;
    ASSERT_TRUE(waitFor([&] {
        document->driverMayHaveChanged();
        return driver->rounds > rounds + 2;
    }));
    frame->refresh();
}

NodeView WindowTest::node(const std::string& label) const
{
    NodeView found = tree().root();
    do {
        if (found.label().starts_with(label))
            return found;
        found = nodeBelow(found);
    } while (!found.isRoot());
    throw std::out_of_range("no node " + label);
}

std::vector<std::string> WindowTest::itemsOf(const QMenu& menu)
{
    std::vector<std::string> items;
    for (const QAction* const action : menu.actions()) {
        const std::string text = action->text().remove(QLatin1Char('&')).toStdString();
        items.push_back(action->isSeparator() ? "-"
                        : action->isEnabled() ? text
                                              : "[" + text + "]");
    }
    return items;
}

} // namespace test
