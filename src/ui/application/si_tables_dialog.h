#pragma once

#include "acquisition/table_selection.h"

#include <array>
#include <filesystem>

#include <QDialog>

class QCheckBox;

namespace tessaview {

/// "SI Tables": which optional tables a read collects.
class CSiTablesDlg : public QDialog {
    Q_OBJECT

public:
    explicit CSiTablesDlg(std::filesystem::path settingsFile, QWidget* parent = nullptr);

    /// Stores the choice; the dialog stays open when that fails.
    void accept() override;

private:
    void setBoxes(const TableSelection& selection);

    std::filesystem::path settingsFile_;
    std::array<QCheckBox*, kSelectableTables.size()> boxes_{}; ///< in the order of the tables
};

} // namespace tessaview
