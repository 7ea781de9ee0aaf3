#include "ui/application/si_tables_dialog.h"

#include "platform/settings.h"
#include "ui/message.h"
#include "ui/text.h"

#include <utility>
#include <vector>

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QPushButton>
#include <QVBoxLayout>

namespace tessaview {

namespace {

/// A frame with its label and its tables from the top, and its place in the dialog.
struct Group {
    const char* label;
    std::vector<SiTableMask> tables;
    int row;
    int column;
    int columns = 1;
};

// clang-format off
const std::vector<Group>& groups()
{
    using namespace si_table;
    static const std::vector<Group> list{
        {"PID 0x00, 0x01, 0x13 && PMT's", {kPat, kCat, kPmt, kRst}, 0, 0},
        {"PID 0x11", {kSdtActual, kSdtOther, kBat}, 0, 1},
        {"PID 0x14", {kTdt, kTot}, 1, 0},
        {"PID 0x10", {kNitActual, kNitOther}, 1, 1},
        {"PID 0x11", {kEitPfActual, kEitPfOther, kEitScheduleActual, kEitScheduleOther}, 2, 0, 2},
    };
    return list;
}
// clang-format on

std::size_t indexOf(SiTableMask bit)
{
    std::size_t i = 0;
    while (kSelectableTables[i].bit != bit)
        ++i;
    return i;
}

} // namespace

CSiTablesDlg::CSiTablesDlg(std::filesystem::path settingsFile, QWidget* parent)
    : QDialog(parent)
    , settingsFile_(std::move(settingsFile))
{
    setWindowTitle(QStringLiteral("SI Tables"));
    auto* const grid = new QGridLayout;
    for (const Group& group : groups()) {
        auto* const frame = new QGroupBox(QString::fromUtf8(group.label));
        auto* const column = new QVBoxLayout(frame);
        for (const SiTableMask bit : group.tables) {
            const std::size_t index = indexOf(bit);
            boxes_[index] = new QCheckBox(QString::fromUtf8(kSelectableTables[index].label));
            boxes_[index]->setObjectName(QString::number(kSelectableTables[index].box));
            column->addWidget(boxes_[index]);
        }
        column->addStretch();
        grid->addWidget(frame, group.row, group.column, 1, group.columns);
    }
    setBoxes(TableSelection::stored(settingsFile_));

    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    const auto* const defaults =
        buttons->addButton(QStringLiteral("&Defaults"), QDialogButtonBox::ResetRole);
    connect(defaults, &QPushButton::clicked, this,
            [this] { setBoxes(TableSelection::fixed(kDefaultTables)); });
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addWidget(buttons);
}

void CSiTablesDlg::setBoxes(const TableSelection& selection)
{
    for (std::size_t i = 0; i < boxes_.size(); ++i)
        boxes_[i]->setChecked(selection.IsTableEnabled(kSelectableTables[i].bit));
}

void CSiTablesDlg::accept()
{
    SiTableMask mask = 0;
    for (std::size_t i = 0; i < boxes_.size(); ++i)
        mask |= boxes_[i]->isChecked() ? kSelectableTables[i].bit : 0;
    try {
        storeTableSelection(mask, settingsFile_);
        QDialog::accept();
    } catch (const SettingsError& problem) {
        complain(this, QStringLiteral("The choice of tables cannot be stored."),
                 toQString(problem.what()));
    }
}

} // namespace tessaview
