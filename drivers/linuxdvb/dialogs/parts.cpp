#include "drivers/linuxdvb/dialogs/parts.h"

#include <algorithm>

#include <QLabel>
#include <QLayout>

namespace tessaview {

void name(QWidget* control, const char* objectName, const QString& spoken)
{
    control->setObjectName(objectName);
    control->setAccessibleName(spoken);
}

QLabel* valueLabel(QWidget* parent)
{
    auto* const label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

QLabel* messageLabel(QWidget* parent)
{
    QLabel* const label = valueLabel(parent);
    label->setObjectName("message");
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    label->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    label->setMinimumHeight(2 * label->fontMetrics().lineSpacing());
    return label;
}

void setValue(QLabel* label, const QString& spoken, const QString& value)
{
    if (label->text() == value && !label->accessibleName().isEmpty())
        return; // a selection in it stays
    label->setText(value);
    label->setAccessibleName(spoken + ": " + value);
}

void setMessage(QLabel* label, const QString& text)
{
    setValue(label, "Outcome", text);
    QWidget* const window = label->window();
    if (const QLayout* const layout = window->layout(); layout && layout->hasHeightForWidth())
        window->resize(window->width(),
                       std::max(window->height(), layout->totalHeightForWidth(window->width())));
}

} // namespace tessaview
