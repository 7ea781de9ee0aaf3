#include "drivers/linuxdvb/dialogs/form_fields.h"

#include "drivers/linuxdvb/dialogs/parts.h"
#include "drivers/linuxdvb/dialogs/value_box.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QSpinBox>

namespace tessaview {

namespace {

constexpr int kHighestStreamId = 255;
constexpr int kNoStreamId = -1;

} // namespace

QComboBox* choiceOf(const QStringList& texts, int first)
{
    auto* const choice = new QComboBox;
    choice->addItem("automatic");
    for (const QString& text : texts)
        choice->addItem(text, first++);
    return choice;
}

std::optional<int> chosen(const QComboBox* choice)
{
    const QVariant code = choice->currentData();
    return code.isValid() ? std::optional(code.toInt()) : std::nullopt;
}

void choose(QComboBox* choice, std::optional<int> code)
{
    const int found = code ? choice->findData(*code) : 0;
    choice->setCurrentIndex(found < 0 ? 0 : found);
}

QSpinBox* streamIdBox()
{
    auto* const box = new QSpinBox;
    box->setRange(kNoStreamId, kHighestStreamId);
    box->setSpecialValueText("none");
    box->setValue(kNoStreamId);
    return box;
}

std::optional<int> streamId(const QSpinBox& box)
{
    return box.value() == kNoStreamId ? std::nullopt : std::optional(box.value());
}

void setStreamId(QSpinBox& box, std::optional<int> id)
{
    box.setValue(id.value_or(kNoStreamId));
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
