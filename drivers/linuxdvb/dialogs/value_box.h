#pragma once

#include <cstdint>

#include <QDoubleSpinBox>

namespace tessaview {

/// A number with a unit, shown without zeros that say nothing. It is taken in the smallest steps
/// that its decimals allow: a box of megahertz with two decimals gives units of 10 kHz.
class ValueBox : public QDoubleSpinBox {
public:
    ValueBox(int decimalPlaces, double most, const QString& unit, QWidget* parent = nullptr);

    std::uint32_t units() const;
    void setUnits(std::uint32_t units);

    QString textFromValue(double value) const override;
};

} // namespace tessaview
