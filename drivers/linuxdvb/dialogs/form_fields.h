#pragma once

#include "satlist/satellite_list.h"

#include <initializer_list>

#include <QStringList>

class QComboBox;
class QGridLayout;
class QSpinBox;
class QWidget;

// What the forms of channels are made of.

namespace tessaview {

class ValueBox;

/// A choice that begins with "automatic", which has a code of its own; those of the others begin
/// with `first`.
QComboBox* choiceOf(const QStringList& texts, int first,
                    int automatic = ISatTransponderS2::kNotGiven);
/// The code that is chosen.
int chosen(const QComboBox* choice);
/// Chooses a code, or "automatic" for one that is none of the choices.
void choose(QComboBox* choice, int code);

/// A number from 0 to 255, or none.
QSpinBox* streamIdBox();

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
