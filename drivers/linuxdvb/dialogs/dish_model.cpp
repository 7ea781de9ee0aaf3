#include "drivers/linuxdvb/dialogs/dish_model.h"

#include "drivers/common/dialogs/qt_text.h"
#include "drivers/linuxdvb/dvb_tuner.h"

#include <array>

namespace tessaview {

namespace {

/// Of a satellite that has none of its own.
constexpr Dish kUsualDish{.lnb = {.kind = Lnb::Kind::Default}};

constexpr std::array kLnbTexts{"universal", "single", "wide", "default"};
constexpr std::array<const char*, DishModel::ColumnCount> kHeaders{"Satellite", "LNB", "Oscillator",
                                                                   "DiSEqC", "Uncommitted switch"};
constexpr std::array<const char*, DishModel::ColumnCount> kExplanations{
    "", "The converter of the dish; the default is chosen above",
    "The local oscillator of an LNB that has one only, in MHz",
    "The position of a DiSEqC 1.0 switch", "The input of a DiSEqC 1.1 switch before it"};

/// What a cell holds as a number.
unsigned valueOf(const Dish& dish, int column)
{
    switch (column) {
    case DishModel::LnbKind:
        return static_cast<unsigned>(dish.lnb.kind);
    case DishModel::Oscillator:
        return dish.lnb.oscillator;
    case DishModel::Position:
        return dish.position;
    case DishModel::Uncommitted:
        return dish.uncommitted;
    default:
        return 0;
    }
}

void setLnb(Lnb& lnb, Lnb::Kind kind)
{
    if (lnb.kind == kind)
        return;
    lnb = {.kind = kind, .oscillator = usualOscillator(kind)};
}

bool setValueOf(Dish& dish, int column, unsigned value)
{
    const bool isTyped = column == DishModel::Oscillator;
    if (isTyped ? value > kHighestOscillator
                : value >= static_cast<unsigned>(DishModel::choices(column).size()))
        return false;
    switch (column) {
    case DishModel::LnbKind:
        setLnb(dish.lnb, static_cast<Lnb::Kind>(value));
        return true;
    case DishModel::Oscillator:
        dish.lnb.oscillator = value;
        return true;
    case DishModel::Position:
        dish.position = value;
        return true;
    default:
        dish.uncommitted = value;
        return true;
    }
}

} // namespace

QString lnbText(Lnb::Kind kind)
{
    return kLnbTexts.at(static_cast<std::size_t>(kind));
}

unsigned usualOscillator(Lnb::Kind kind)
{
    switch (kind) {
    case Lnb::Kind::SingleLo:
        return kUsualSingleOscillator;
    case Lnb::Kind::Wide:
        return kUsualWideOscillator;
    default:
        return 0;
    }
}

DishModel::DishModel(const DvbTuner& tuner)
{
    for (std::string& satellite : tuner.satellites()) {
        const Dish dish = tuner.dishOf(satellite).value_or(kUsualDish);
        rows_.push_back({std::move(satellite), dish, dish});
    }
}

void DishModel::store(DvbTuner& tuner) const
{
    for (const Row& row : rows_)
        if (row.dish != row.stored)
            tuner.storeDish(row.satellite,
                            row.dish == kUsualDish ? std::nullopt : std::optional(row.dish));
}

QStringList DishModel::choices(int column)
{
    QStringList texts;
    switch (column) {
    case LnbKind:
        for (const char* const text : kLnbTexts)
            texts << text;
        return texts;
    case Position:
        return {"none", "A", "B", "C", "D"};
    case Uncommitted:
        texts << "none";
        for (int input = 1; input <= 16; ++input)
            texts << QString::number(input);
        return texts;
    default:
        return texts;
    }
}

int DishModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int DishModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant DishModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const Row& row = rows_[static_cast<std::size_t>(index.row())];
    const unsigned value = valueOf(row.dish, index.column());
    if (role == Qt::EditRole)
        return value;
    if (role != Qt::DisplayRole)
        return {};
    if (index.column() == Satellite)
        return toQt(row.satellite);
    if (index.column() == Oscillator)
        return row.dish.lnb.hasOneOscillator() ? QString("%1 MHz").arg(value) : QString();
    return choices(index.column()).value(static_cast<int>(value));
}

bool DishModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!index.isValid() || role != Qt::EditRole || (flags(index) & Qt::ItemIsEditable) == 0)
        return false;
    Dish& dish = rows_[static_cast<std::size_t>(index.row())].dish;
    if (!setValueOf(dish, index.column(), value.toUInt()))
        return false;
    emit dataChanged(index.siblingAtColumn(0), index.siblingAtColumn(ColumnCount - 1));
    return true;
}

QVariant DishModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= ColumnCount)
        return {};
    if (role == Qt::DisplayRole)
        return kHeaders[static_cast<std::size_t>(section)];
    if (role == Qt::ToolTipRole)
        return kExplanations[static_cast<std::size_t>(section)];
    return {};
}

Qt::ItemFlags DishModel::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags all = QAbstractTableModel::flags(index) | Qt::ItemNeverHasChildren;
    if (!index.isValid() || index.column() == Satellite)
        return all;
    const Dish& dish = rows_[static_cast<std::size_t>(index.row())].dish;
    const bool isEditable = index.column() != Oscillator || dish.lnb.hasOneOscillator();
    return isEditable ? all | Qt::ItemIsEditable : all;
}

} // namespace tessaview
