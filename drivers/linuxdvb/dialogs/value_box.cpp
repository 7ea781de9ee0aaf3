#include "drivers/linuxdvb/dialogs/value_box.h"

#include <cmath>

namespace tessaview {

ValueBox::ValueBox(int decimalPlaces, double most, const QString& unit, QWidget* parent)
    : QDoubleSpinBox(parent)
{
    setDecimals(decimalPlaces);
    setRange(0, most);
    setSuffix(" " + unit);
    setGroupSeparatorShown(false);
}

std::uint32_t ValueBox::units() const
{
    return static_cast<std::uint32_t>(std::llround(value() * std::pow(10, decimals())));
}

void ValueBox::setUnits(std::uint32_t units)
{
    setValue(units / std::pow(10, decimals()));
}

QString ValueBox::textFromValue(double value) const
{
    QString text = QDoubleSpinBox::textFromValue(value);
    const QString point = locale().decimalPoint();
    if (!text.contains(point))
        return text;
    while (text.endsWith(locale().zeroDigit()))
        text.chop(1);
    if (text.endsWith(point))
        text.chop(static_cast<int>(point.size()));
    return text;
}

} // namespace tessaview
