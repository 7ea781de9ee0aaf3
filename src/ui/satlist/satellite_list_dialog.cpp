#include "ui/satlist/satellite_list_dialog.h"

#include "satlist/list_access.h"
#include "satlist/scan_table_import.h"
#include "ui/message.h"
#include "ui/satlist/list_dialog_parts.h"
#include "ui/satlist/transponder_list_dialog.h"
#include "ui/text.h"

#include <filesystem>
#include <vector>

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QVBoxLayout>

namespace tessaview {

namespace {

/// Where a system that has initial tuning files keeps them.
constexpr const char* kScanTables = "/usr/share/dvb/dvb-s";

/// A list below its title.
QVBoxLayout* titled(const QString& title, QListWidget* list)
{
    auto* const label = new QLabel(title);
    label->setBuddy(list);
    auto* const column = new QVBoxLayout;
    column->addWidget(label);
    column->addWidget(list);
    return column;
}

} // namespace

SatelliteListDialog::SatelliteListDialog(ISatListManager& manager, QWidget* parent)
    : QDialog(parent)
    , manager_(manager)
{
    setWindowTitle(QStringLiteral("Satellite list manager"));
    build();
    fill();
}

void SatelliteListDialog::build()
{
    auto* const rows = new QVBoxLayout(this);
    rows->addWidget(buildLists(), 1);
    rows->addWidget(buildBottom());
    auto* const end = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    end->button(QDialogButtonBox::Ok)->setText(QStringLiteral("OK"));
    end->button(QDialogButtonBox::Cancel)->setText(QStringLiteral("Cancel"));
    identify(end->button(QDialogButtonBox::Ok), kOk);
    identify(end->button(QDialogButtonBox::Cancel), kCancel);
    connect(end, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(end, &QDialogButtonBox::rejected, this, &QDialog::reject);
    rows->addWidget(end);
    end->button(QDialogButtonBox::Ok)->setDefault(true); // takes effect in the dialog only
    resize(720, 440);
}

QWidget* SatelliteListDialog::buildLists()
{
    auto* const lists = new QWidget;
    available_ = itemList(kAvailable, lists);
    selected_ = itemList(kSelected, lists);
    auto* const toSelected = button(QStringLiteral("->"), kSelect, lists);
    auto* const toAvailable = button(QStringLiteral("<-"), kUnselect, lists);
    auto* const remove = button(QStringLiteral("<- Delete"), kDelete, lists);
    connect(toSelected, &QPushButton::clicked, this, [this] { select(available_, true); });
    connect(toAvailable, &QPushButton::clicked, this, [this] { select(selected_, false); });
    connect(remove, &QPushButton::clicked, this, &SatelliteListDialog::deleteSelected);
    for (QListWidget* const list : {available_, selected_}) {
        const auto open = [this, list] { openTransponders(list); };
        connect(list, &QListWidget::itemDoubleClicked, this, open);
        onKeys(list, {Qt::Key_Return, Qt::Key_Enter, Qt::Key_F2}, open);
        list->setToolTip(QStringLiteral("A double click, Enter or F2 opens the transponder list"));
    }
    onKeys(available_, {Qt::Key_Delete}, [this] { deleteSelected(); });

    auto* const buttons = new QVBoxLayout;
    buttons->addStretch();
    buttons->addWidget(toSelected);
    buttons->addWidget(toAvailable);
    buttons->addSpacing(20);
    buttons->addWidget(remove);
    buttons->addStretch();
    auto* const columns = new QHBoxLayout(lists);
    columns->setContentsMargins({});
    columns->addLayout(titled(QStringLiteral("Available satellites"), available_), 1);
    columns->addLayout(buttons);
    columns->addLayout(titled(QStringLiteral("Slected satellites"), selected_), 1);
    return lists;
}

QWidget* SatelliteListDialog::buildBottom()
{
    auto* const bottom = new QWidget;
    name_ = new QLineEdit(bottom);
    name_->setPlaceholderText(QStringLiteral("Name of a new satellite"));
    name_->setAccessibleName(name_->placeholderText());
    identify(name_, kName);
    auto* const add = button(QStringLiteral("Add satellite"), kAdd, bottom);
    auto* const import = button(QStringLiteral("&Import..."), 0, bottom);
    import->setObjectName(QLatin1String(kImport));
    import->setToolTip(QStringLiteral("Adds the transponders of initial tuning files"));
    connect(add, &QPushButton::clicked, this, &SatelliteListDialog::addSatellite);
    connect(import, &QPushButton::clicked, this, &SatelliteListDialog::chooseImport);
    onKeys(name_, {Qt::Key_Return, Qt::Key_Enter}, [this] { addSatellite(); });

    auto* const row = new QHBoxLayout(bottom);
    row->setContentsMargins({});
    row->addWidget(name_, 1);
    row->addWidget(add);
    row->addWidget(import);
    return bottom;
}

void SatelliteListDialog::fill()
{
    QStringList available;
    QStringList selected;
    ComPtr<IEnumSatellite> satellites;
    const Status result = enumSatellites(manager_, false, satellites);
    if (failed(result))
        return complain(this, QStringLiteral("The satellite list cannot be read"), result);
    for (const auto& satellite : Items(satellites.get())) {
        std::string name;
        std::int32_t isSelected = 0;
        if (failed(satelliteName(*satellite.get(), name)) ||
            failed(satellite->get_Selected(&isSelected)))
            continue;
        (isSelected ? selected : available) << toQString(name);
    }
    refill(*available_, available);
    refill(*selected_, selected);
}

void SatelliteListDialog::select(QListWidget* from, bool selected)
{
    for (const QString& name : selectedTexts(*from)) {
        ComPtr<ISatellite> satellite;
        Status result = getSatellite(manager_, toBstr(name), satellite);
        if (!failed(result))
            result = satellite->put_Selected(selected ? 1 : 0);
        if (!failed(result))
            result = manager_.PutSatellite(satellite.get());
        if (failed(result))
            return complain(this, QStringLiteral("'%1' cannot be changed").arg(name), result);
    }
    fill();
}

void SatelliteListDialog::deleteSelected()
{
    for (const QString& name : selectedTexts(*available_)) {
        const Status result = manager_.RemoveSatellite(toBstr(name).get());
        if (failed(result))
            return complain(this, QStringLiteral("'%1' cannot be deleted").arg(name), result);
    }
    fill();
}

void SatelliteListDialog::addSatellite()
{
    const QString name = name_->text();
    name_->setFocus();
    if (name.trimmed().isEmpty())
        return complain(this, QStringLiteral("Type the name of the new satellite first."));
    ComPtr<ISatellite> satellite;
    // A new one would take the place, and the transponders, of one that is there.
    if (!failed(getSatellite(manager_, toBstr(name), satellite)))
        return complain(this, QStringLiteral("'%1' is in the list already.").arg(name));
    Status result = createSatellite(manager_, toBstr(name), satellite);
    if (result == status::kInvalidArgument)
        return complain(this,
                        QStringLiteral("This cannot be the name of a satellite: it is too long "
                                       "or has characters that cannot be kept."));
    if (!failed(result))
        result = satellite->put_Selected(0);
    if (!failed(result))
        result = satellite->put_AddedByUser(1);
    if (!failed(result))
        result = manager_.PutSatellite(satellite.get());
    if (failed(result))
        return complain(this, QStringLiteral("'%1' cannot be added").arg(name), result);
    name_->clear();
    fill();
    for (QListWidgetItem* const item :
         available_->findItems(name, Qt::MatchFixedString | Qt::MatchCaseSensitive))
        available_->setCurrentItem(item);
}

void SatelliteListDialog::openTransponders(QListWidget* list)
{
    const QListWidgetItem* const item = list->currentItem();
    if (!item)
        return;
    ComPtr<ISatellite> satellite;
    const Status result = getSatellite(manager_, toBstr(item->text()), satellite);
    if (failed(result))
        return complain(this, QStringLiteral("'%1' cannot be opened").arg(item->text()), result);
    TransponderListDialog(manager_, satellite, this).exec();
}

void SatelliteListDialog::chooseImport()
{
    const QString folder = QFileInfo::exists(QLatin1String(kScanTables))
                               ? QString::fromLatin1(kScanTables)
                               : QString();
    const QStringList files =
        QFileDialog::getOpenFileNames(this, QStringLiteral("Import initial tuning files"), folder);
    if (!files.isEmpty())
        importFiles(files);
}

void SatelliteListDialog::importFiles(const QStringList& files)
{
    std::vector<std::filesystem::path> paths;
    for (const QString& file : files)
        paths.emplace_back(QFile::encodeName(file).toStdString());
    const ImportReport report = importScanTables(manager_, paths);
    fill();
    MessageBox box(this, report.problems.empty() ? QMessageBox::Information : QMessageBox::Warning,
                   QString::fromStdString(report.summary()));
    QStringList problems;
    for (const std::string& problem : report.problems)
        problems << QString::fromStdString(problem);
    if (!problems.isEmpty()) {
        box.setInformativeText(
            QStringLiteral("What could not be used is listed in the details (%1 lines).")
                .arg(problems.size()));
        box.setDetailedText(problems.join(QLatin1Char('\n')));
    }
    box.exec();
}

void runSatelliteListManager(QWidget* parent, ISatListManager& manager)
{
    SatelliteListDialog(manager, parent).exec();
}

} // namespace tessaview
