#include "ui/application/si_tables_dialog.h"

#include "platform/settings.h"
#include "ui/message.h"
#include "ui/text.h"

#include <algorithm>
#include <utility>

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QPushButton>
#include <QVBoxLayout>

namespace tessaview {

namespace {

using namespace si_table;

/// A frame with its label and its tables from the top, 0 for none, and its place in the dialog.
struct Group {
    const char* label;
    std::array<SiTableMask, 4> tables;
    int row;
    int column;
    int columns = 1;
};

// clang-format off
constexpr std::array kGroups{
    Group{"PID 0x00, 0x01, 0x13 && PMT's", {kPat, kCat, kPmt, kRst}, 0, 0},
    Group{"PID 0x11", {kSdtActual, kSdtOther, kBat}, 0, 1},
    Group{"PID 0x14", {kTdt, kTot}, 1, 0},
    Group{"PID 0x10", {kNitActual, kNitOther}, 1, 1},
    Group{"PID 0x11", {kEitPfActual, kEitPfOther, kEitScheduleActual, kEitScheduleOther}, 2, 0, 2},
};
// clang-format on

constexpr std::ptrdiff_t groupsOf(const SelectableTable& table)
{
    std::ptrdiff_t number = 0;
    for (const Group& group : kGroups)
        number += std::count(group.tables.begin(), group.tables.end(), table.bit);
    return number;
}
// A table without a box could be neither shown nor stored.
static_assert(std::all_of(kSelectableTables.begin(), kSelectableTables.end(),
                          [](const SelectableTable& table) { return groupsOf(table) == 1; }),
              "each table that can be selected needs its place in one group");

} // namespace

CSiTablesDlg::CSiTablesDlg(std::filesystem::path settingsFile, QWidget* parent)
    : QDialog(parent)
    , settingsFile_(std::move(settingsFile))
{
    setWindowTitle(QStringLiteral("SI Tables"));
    auto* const grid = new QGridLayout;
    for (const Group& group : kGroups) {
        auto* const frame = new QGroupBox(QString::fromUtf8(group.label));
        auto* const column = new QVBoxLayout(frame);
        for (const SiTableMask bit : group.tables)
            for (std::size_t i = 0; i < boxes_.size(); ++i)
                if (kSelectableTables[i].bit == bit) {
                    boxes_[i] = new QCheckBox(QString::fromUtf8(kSelectableTables[i].label));
                    boxes_[i]->setObjectName(QString::number(kSelectableTables[i].box));
                    column->addWidget(boxes_[i]);
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
