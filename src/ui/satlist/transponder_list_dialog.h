#pragma once

#include "satlist/list_access.h"

#include <optional>

#include <QDialog>

class QComboBox;
class QLineEdit;
class QListWidget;

namespace tessaview {

/// The dialog "Transponder list" of one satellite. Every change goes to the manager at once. A
/// control's object name is its identifier.
class TransponderListDialog final : public QDialog {
    Q_OBJECT

public:
    static constexpr int kAdd = 1015;
    static constexpr int kDelete = 1019;
    static constexpr int kList = 1020;
    static constexpr int kSatellite = 1021;
    static constexpr int kTsid = 1023;
    static constexpr int kFrequency = 1024;
    static constexpr int kPolarization = 1025;
    static constexpr int kSymbolRate = 1026;
    static constexpr int kFec = 1027;
    static constexpr int kNitUpdate = 1029;
    static constexpr int kNid = 1033;

    /// The manager stays the caller's and outlives the dialog.
    TransponderListDialog(ISatListManager& manager, ComPtr<ISatellite> satellite,
                          QWidget* parent = nullptr);

private:
    void build();
    QWidget* buildList();
    QWidget* buildForm();
    void fill();
    void deleteSelected();
    void add();
    std::optional<TransponderEntry> typedEntry();
    bool isRateMeant(const TransponderEntry& entry);

    ISatListManager& manager_;
    ComPtr<ISatellite> satellite_;
    QListWidget* list_ = nullptr;
    QLineEdit* nid_ = nullptr;
    QLineEdit* tsid_ = nullptr;
    QLineEdit* frequency_ = nullptr;
    QComboBox* polarization_ = nullptr;
    QLineEdit* symbolRate_ = nullptr;
    QComboBox* fec_ = nullptr;
};

} // namespace tessaview
