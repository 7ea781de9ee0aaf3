#pragma once

#include <initializer_list>
#include <optional>

#include <QStringList>

class QComboBox;
class QGridLayout;
class QSpinBox;
class QWidget;

// What the forms of channels are made of.

namespace tessaview {

class ValueBox;

/// A choice that begins with "automatic"; the codes of the others begin with `first`.
QComboBox* choiceOf(const QStringList& texts, int first);
/// The code that is chosen; none for "automatic".
std::optional<int> chosen(const QComboBox* choice);
void choose(QComboBox* choice, std::optional<int> code);

/// A number from 0 to 255, or none.
QSpinBox* streamIdBox();
std::optional<int> streamId(const QSpinBox& box);
void setStreamId(QSpinBox& box, std::optional<int> id);

/// The first that is 0; null when none is.
QWidget* firstEmpty(std::initializer_list<ValueBox*> boxes);

/// Places fields with their labels two by two.
class FieldGrid {
public:
    enum Width { Half, Whole };

    explicit FieldGrid(QWidget* form);

    /// The label gives the field its key and its spoken name.
    void add(const char* label, const char* objectName, QWidget* field, Width width = Half);

private:
    QWidget* form_;
    QGridLayout* layout_;
    int next_ = 0; // half of a row
};

} // namespace tessaview
