#include "drivers/linuxdvb/dialogs/dish_delegate.h"

#include "drivers/linuxdvb/dialogs/dish_model.h"

#include <QComboBox>
#include <QSpinBox>
#include <QTimer>

namespace tessaview {

/// What is chosen counts at once.
QWidget* DishDelegate::createChoice(QWidget* parent, const QStringList& texts) const
{
    auto* const choice = new QComboBox(parent);
    choice->addItems(texts);
    connect(choice, &QComboBox::activated, this, &DishDelegate::finish);
    QTimer::singleShot(0, choice, [choice] { choice->showPopup(); });
    return choice;
}

void DishDelegate::finish()
{
    if (QWidget* const editor = editor_) {
        editor_.clear();
        emit commitData(editor);
        emit closeEditor(editor);
    }
}

QWidget* DishDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/,
                                    const QModelIndex& index) const
{
    const QStringList texts = DishModel::choices(index.column());
    if (!texts.isEmpty()) {
        editor_ = createChoice(parent, texts);
        return editor_;
    }
    auto* const number = new QSpinBox(parent);
    number->setRange(1, static_cast<int>(kHighestOscillator));
    number->setSuffix(" MHz");
    editor_ = number;
    return number;
}

QSize DishDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    constexpr int kFrame = 8;
    return QStyledItemDelegate::sizeHint(option, index) + QSize(0, kFrame);
}

void DishDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    const int value = index.data(Qt::EditRole).toInt();
    if (auto* const choice = qobject_cast<QComboBox*>(editor))
        choice->setCurrentIndex(value);
    else if (auto* const number = qobject_cast<QSpinBox*>(editor))
        number->setValue(value);
}

void DishDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                const QModelIndex& index) const
{
    if (const auto* const choice = qobject_cast<QComboBox*>(editor)) {
        model->setData(index, choice->currentIndex());
    } else if (auto* const number = qobject_cast<QSpinBox*>(editor)) {
        number->interpretText();
        model->setData(index, number->value());
    }
}

} // namespace tessaview
