#pragma once

#include "satlist/satellite_list.h"

#include <QDialog>
#include <QStringList>

class QLineEdit;
class QListWidget;

namespace tessaview {

/// The dialog "Satellite list manager": which satellites there are and which of them scans use.
/// Every change goes to the manager at once. A control's object name is its identifier.
class SatelliteListDialog final : public QDialog {
    Q_OBJECT

public:
    static constexpr int kAvailable = 1013;
    static constexpr int kSelected = 1014;
    static constexpr int kUnselect = 1016;
    static constexpr int kName = 1017;
    static constexpr int kAdd = 1018;
    static constexpr int kDelete = 1019;
    static constexpr int kSelect = 1030;
    static constexpr const char* kImport = "import";

    /// The manager stays the caller's and outlives the dialog.
    explicit SatelliteListDialog(ISatListManager& manager, QWidget* parent = nullptr);

    /// Imports initial tuning files and tells what became of them.
    void importFiles(const QStringList& files);

private:
    void build();
    QWidget* buildLists();
    QWidget* buildBottom();
    void fill();
    void select(QListWidget* from, bool selected);
    void deleteSelected();
    void addSatellite();
    void chooseImport();
    void openTransponders(QListWidget* list);

    ISatListManager& manager_;
    QListWidget* available_ = nullptr;
    QListWidget* selected_ = nullptr;
    QLineEdit* name_ = nullptr;
};

/// Shows the dialog until it is closed.
void runSatelliteListManager(QWidget* parent, ISatListManager& manager);

} // namespace tessaview
