#pragma once

#include "drivers/linuxdvb/dish.h"

#include <optional>
#include <string>
#include <vector>

#include <QAbstractTableModel>

namespace tessaview {

class DvbTuner;

/// "universal" and so on, in the order of Lnb::Kind.
QString lnbText(Lnb::Kind kind);
/// What an LNB with one oscillator begins with, in MHz.
unsigned usualOscillator(Lnb::Kind kind);

/// The satellites of the list, and how each is received.
class DishModel : public QAbstractTableModel {
public:
    enum Column { Satellite, LnbKind, Oscillator, Position, Uncommitted, ColumnCount };

    explicit DishModel(const DvbTuner& tuner);

    /// Stores what was changed. Throws SettingsError.
    void store(DvbTuner& tuner) const;

    /// The values that a column can have, in the order of their numbers; none where it is a number
    /// that is typed.
    static QStringList choices(int column);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    struct Row {
        std::string satellite;
        Dish dish;
        Dish stored;
    };

    std::vector<Row> rows_;
};

} // namespace tessaview
