#include "ui/satlist/transponder_list_dialog.h"

#include "platform/format.h"
#include "satlist/transponder_text.h"
#include "tuning/tuning.h"
#include "ui/message.h"
#include "ui/satlist/list_dialog_parts.h"
#include "ui/text.h"

#include <utility>

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QVBoxLayout>

namespace tessaview {

namespace {

template <std::size_t N>
QComboBox* choice(int id, const std::array<const char*, N>& texts)
{
    auto* const made = new QComboBox;
    for (const char* const text : texts)
        made->addItem(QLatin1String(text));
    identify(made, id);
    return made;
}

QLineEdit* field(int id, const char* example)
{
    auto* const made = new QLineEdit;
    made->setPlaceholderText(QLatin1String(example));
    identify(made, id);
    return made;
}

/// What a field holds by one way of reading it. If it does not: says so and lets it be mended.
template <class Parse>
auto typedValue(QLineEdit* field, const char* expected, Parse parse)
{
    const QString typed = field->text().trimmed();
    const auto value = parse(typed.toStdString());
    if (!value) {
        const auto* const form = static_cast<QFormLayout*>(field->parentWidget()->layout());
        const QString name = static_cast<QLabel*>(form->labelForField(field))->text();
        const QString wanted = QLatin1String(expected);
        complain(field->window(),
                 typed.isEmpty() ? QStringLiteral("%1 is empty: type %2.").arg(name, wanted)
                                 : QStringLiteral("%1 is '%2': type %3.").arg(name, typed, wanted));
        field->setFocus();
        field->selectAll();
    }
    return value;
}

} // namespace

TransponderListDialog::TransponderListDialog(ISatListManager& manager, ComPtr<ISatellite> satellite,
                                             QWidget* parent)
    : QDialog(parent)
    , manager_(manager)
    , satellite_(std::move(satellite))
{
    setWindowTitle(QStringLiteral("Transponder list"));
    build();
    fill();
}

void TransponderListDialog::build()
{
    auto* const rows = new QVBoxLayout(this);
    auto* const name = new QLabel;
    name->setTextFormat(Qt::PlainText);
    identify(name, kSatellite);
    std::string text;
    if (!failed(satelliteName(*satellite_.get(), text)))
        name->setText(toQString(text));
    rows->addWidget(name);
    auto* const columns = new QHBoxLayout;
    columns->addWidget(buildList(), 1);
    columns->addWidget(buildForm());
    rows->addLayout(columns, 1);
    auto* const end = new QDialogButtonBox(QDialogButtonBox::Ok);
    end->button(QDialogButtonBox::Ok)->setText(QStringLiteral("OK"));
    identify(end->button(QDialogButtonBox::Ok), kOk);
    connect(end, &QDialogButtonBox::accepted, this, &QDialog::accept);
    rows->addWidget(end);
    end->button(QDialogButtonBox::Ok)->setDefault(true); // takes effect in the dialog only
    resize(660, 400);
}

QWidget* TransponderListDialog::buildList()
{
    auto* const left = new QWidget;
    list_ = itemList(kList, left);
    list_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    auto* const remove = button(QStringLiteral("Delete"), kDelete, left);
    connect(remove, &QPushButton::clicked, this, &TransponderListDialog::deleteSelected);
    onKeys(list_, {Qt::Key_Delete}, [this] { deleteSelected(); });
    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(remove);
    buttons->addWidget(button(QStringLiteral("NIT update"), kNitUpdate, left)); // has no action
    buttons->addStretch();
    auto* const column = new QVBoxLayout(left);
    column->setContentsMargins({});
    column->addWidget(list_, 1);
    column->addLayout(buttons);
    return left;
}

QWidget* TransponderListDialog::buildForm()
{
    auto* const right = new QWidget;
    nid_ = field(kNid, "such as 13E");
    tsid_ = field(kTsid, "such as 2B5C");
    frequency_ = field(kFrequency, "such as 10719000");
    polarization_ = choice(kPolarization, kPolarizationTexts);
    symbolRate_ = field(kSymbolRate, "such as 27500000");
    symbolRate_->setToolTip(QStringLiteral("In symbols per second: 27500000 for 27.5 MS/s"));
    fec_ = choice(kFec, kFecTexts);
    auto* const form = new QFormLayout(right);
    form->setContentsMargins({});
    form->addRow(QStringLiteral("NID (hex)"), nid_);
    form->addRow(QStringLiteral("TSID (hex)"), tsid_);
    form->addRow(QStringLiteral("Frequency (kHz)"), frequency_);
    form->addRow(QStringLiteral("Polarization"), polarization_);
    form->addRow(QStringLiteral("Symbol rate (kS/s)"), symbolRate_);
    form->addRow(QStringLiteral("FEC"), fec_);
    auto* const addButton = button(QStringLiteral("Add"), kAdd, right);
    form->addRow(addButton);
    connect(addButton, &QPushButton::clicked, this, &TransponderListDialog::add);
    for (QWidget* const each :
         std::initializer_list<QWidget*>{nid_, tsid_, frequency_, polarization_, symbolRate_, fec_})
        onKeys(each, {Qt::Key_Return, Qt::Key_Enter}, [this] { add(); });
    return right;
}

void TransponderListDialog::fill()
{
    std::vector<TransponderEntry> entries;
    const Status result = readTransponders(*satellite_.get(), entries);
    QStringList lines;
    for (const TransponderEntry& entry : entries)
        lines << QString::fromStdString(transponderLine(entry));
    refill(*list_, lines);
    for (std::size_t i = 0; i < entries.size(); ++i)
        list_->item(static_cast<int>(i))->setToolTip(toQString(transponderRate(entries[i])));
    if (failed(result))
        complain(this, QStringLiteral("The transponders cannot be read"), result);
}

void TransponderListDialog::deleteSelected()
{
    for (const QString& line : selectedTexts(*list_)) {
        const auto key = keyOfLine(line.toStdString());
        const Status result =
            key ? satellite_->RemoveTransponder(key->first, key->second) : status::kUnexpected;
        if (failed(result))
            return complain(this, QStringLiteral("'%1' cannot be deleted").arg(line), result);
    }
    const Status result = manager_.PutSatellite(satellite_.get());
    if (failed(result))
        return complain(this, QStringLiteral("The satellite cannot be stored"), result);
    fill();
}

std::optional<TransponderEntry> TransponderListDialog::typedEntry()
{
    constexpr const char* kHexadecimal = "one to four hexadecimal digits, such as 13E";
    const auto nid = typedValue(nid_, kHexadecimal, parseIdentifier);
    if (!nid)
        return std::nullopt;
    const auto tsid = typedValue(tsid_, kHexadecimal, parseIdentifier);
    if (!tsid)
        return std::nullopt;
    const auto frequency = typedValue(
        frequency_, "a whole number of kHz, such as 10719000 for 10719 MHz", parseDecimal);
    if (!frequency)
        return std::nullopt;
    const auto symbolRate =
        typedValue(symbolRate_, "a whole number, such as 27500000 for 27.5 MS/s", parseDecimal);
    if (!symbolRate)
        return std::nullopt;
    return TransponderEntry{.nid = *nid,
                            .tsid = *tsid,
                            .frequency =
                                static_cast<std::int32_t>(*frequency / (kSatelliteUnit / kKilo)),
                            .polarization = polarization_->currentIndex(),
                            .symbolRate = static_cast<std::int32_t>(*symbolRate / kSymbolRateUnit),
                            .fec = fec_->currentIndex(),
                            .flag = 1};
}

/// The label of the field has a unit that people know, but a thousandth of it is stored: a rate
/// typed in that unit is asked about.
bool TransponderListDialog::isRateMeant(const TransponderEntry& entry)
{
    if (entry.symbolRate >= kLeastSymbolRate)
        return true;
    const QString rate = toQString(symbolRateText(entry.symbolRate));
    if (ask(this, QMessageBox::Question,
            QStringLiteral("The symbol rate would be stored as %1 kS/s, which no satellite uses: "
                           "the field takes symbols per second, so 27500 kS/s is typed as "
                           "27500000.\nDo you want to add the transponder with %1 kS/s ?")
                .arg(rate),
            QMessageBox::Yes | QMessageBox::No, QMessageBox::No) == QMessageBox::Yes)
        return true;
    symbolRate_->setFocus();
    symbolRate_->selectAll();
    return false;
}

void TransponderListDialog::add()
{
    const auto entry = typedEntry();
    if (!entry || !isRateMeant(*entry))
        return;
    Status result = addTransponder(*satellite_.get(), *entry);
    if (result == status::kAlreadyExists)
        return complain(
            this, QString::fromStdString(formatted(
                      "NID %04X, TSID %04X is in the list already. Delete that entry "
                      "first to replace it.",
                      static_cast<unsigned>(entry->nid), static_cast<unsigned>(entry->tsid))));
    if (!failed(result))
        result = manager_.PutSatellite(satellite_.get());
    if (failed(result))
        return complain(this, QStringLiteral("The transponder cannot be added"), result);
    fill();
}

} // namespace tessaview
