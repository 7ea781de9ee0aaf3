#include "ui/menu_keys.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMainWindow>
#include <QMenuBar>

namespace tessaview {

namespace {

class MenuKeys : public QObject {
public:
    explicit MenuKeys(QMainWindow& window) : QObject(&window), window_(window)
    {
        qApp->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::KeyPress || !watched->isWidgetType())
            return false;
        const auto& key = static_cast<const QKeyEvent&>(*event);
        if (key.key() != Qt::Key_F10)
            return false;
        auto& widget = static_cast<QWidget&>(*watched);
        if (key.modifiers() == Qt::ShiftModifier)
            return openContextMenu(widget);
        return key.modifiers() == Qt::NoModifier && widget.window() == &window_ && openFirstMenu();
    }

private:
    /// As the toolkit does for the key of the context menu.
    static bool openContextMenu(QWidget& widget)
    {
        const QPoint place = widget.inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
        QContextMenuEvent asked(QContextMenuEvent::Keyboard, place, widget.mapToGlobal(place));
        QCoreApplication::sendEvent(&widget, &asked);
        return true;
    }

    bool openFirstMenu()
    {
        QMenuBar& bar = *window_.menuBar();
        bar.setActiveAction(bar.actions().first());
        return true;
    }

    QMainWindow& window_;
};

} // namespace

void addMenuKeys(QMainWindow& window)
{
    new MenuKeys(window);
}

} // namespace tessaview
