#include "drivers/linuxdvb/dialogs/form_fields.h"

#include "drivers/linuxdvb/dialogs/parts.h"
#include "drivers/linuxdvb/dialogs/value_box.h"

#include <algorithm>

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QSpinBox>

namespace tessaview {

namespace {

constexpr int kHighestStreamId = 255;

} // namespace

QComboBox* choiceOf(const QStringList& texts, int first, int automatic)
{
    auto* const choice = new QComboBox;
    choice->addItem("automatic", automatic);
    for (const QString& text : texts)
        choice->addItem(text, first++);
    return choice;
}

int chosen(const QComboBox* choice)
{
    return choice->currentData().toInt();
}

void choose(QComboBox* choice, int code)
{
    choice->setCurrentIndex(std::max(choice->findData(code), 0));
}

QSpinBox* streamIdBox()
{
    auto* const box = new QSpinBox;
    box->setRange(ISatTransponderS2::kNotGiven, kHighestStreamId);
    box->setSpecialValueText("none");
    box->setValue(ISatTransponderS2::kNotGiven);
    return box;
}

QWidget* firstEmpty(std::initializer_list<ValueBox*> boxes)
{
    for (ValueBox* const box : boxes)
        if (box->units() == 0)
            return box;
    return nullptr;
}

FieldGrid::FieldGrid(QWidget* form) : form_(form), layout_(new QGridLayout(form))
{
    layout_->setContentsMargins(0, 0, 0, 0);
    layout_->setColumnStretch(1, 1);
    layout_->setColumnStretch(3, 1);
}

void FieldGrid::add(const char* label, const char* objectName, QWidget* field, Width width)
{
    const QString text = label;
    name(field, objectName, QString(text).remove('&').remove(':'));
    auto* const shown = new QLabel(text, form_);
    shown->setBuddy(field);
    const int row = next_ / 2;
    const int column = next_ % 2 * 2;
    layout_->addWidget(shown, row, column);
    layout_->addWidget(field, row, column + 1, 1, width == Whole ? 3 : 1);
    next_ += width == Whole ? 2 : 1;
}

} // namespace tessaview
