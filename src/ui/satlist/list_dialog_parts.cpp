#include "ui/satlist/list_dialog_parts.h"

#include "platform/format.h"
#include "ui/message.h"

#include <algorithm>
#include <utility>

#include <QKeyEvent>
#include <QListWidget>

namespace tessaview {

namespace {

/// Takes keys from a control before the dialog would, whose OK button Enter presses.
class KeyFilter final : public QObject {
public:
    KeyFilter(QWidget* control, std::vector<int> keys, std::function<void()> act)
        : QObject(control)
        , keys_(std::move(keys))
        , act_(std::move(act))
    {
    }

    bool eventFilter(QObject* /*control*/, QEvent* event) override
    {
        if (event->type() != QEvent::KeyPress)
            return false;
        const auto* const press = static_cast<QKeyEvent*>(event);
        const auto modifiers = press->modifiers() & ~Qt::KeypadModifier;
        if (modifiers != Qt::NoModifier ||
            std::find(keys_.begin(), keys_.end(), press->key()) == keys_.end())
            return false;
        act_();
        return true;
    }

private:
    const std::vector<int> keys_;
    const std::function<void()> act_;
};

} // namespace

Bstr toBstr(const QString& text)
{
    return Bstr(text.toStdU16String());
}

void identify(QWidget* control, int id)
{
    control->setObjectName(QString::number(id));
}

QPushButton* button(const QString& text, int id, QWidget* parent)
{
    auto* const made = new QPushButton(text, parent);
    identify(made, id);
    return made;
}

QListWidget* itemList(int id, QWidget* parent)
{
    auto* const made = new QListWidget(parent);
    made->setSelectionMode(QAbstractItemView::ExtendedSelection);
    identify(made, id);
    return made;
}

QStringList selectedTexts(const QListWidget& list)
{
    QStringList texts;
    for (int row = 0; row < list.count(); ++row)
        if (list.item(row)->isSelected())
            texts << list.item(row)->text();
    return texts;
}

void refill(QListWidget& list, const QStringList& texts)
{
    const int row = list.currentRow();
    list.clear();
    list.addItems(texts);
    if (list.count() > 0)
        list.setCurrentRow(std::clamp(row, 0, list.count() - 1), QItemSelectionModel::NoUpdate);
}

void onKeys(QWidget* control, std::vector<int> keys, std::function<void()> act)
{
    control->installEventFilter(new KeyFilter(control, std::move(keys), std::move(act)));
}

void complain(QWidget* parent, const QString& text, Status status)
{
    complain(parent, text + QString::fromStdString(formatted(": %08X", statusCode(status))));
}

} // namespace tessaview
