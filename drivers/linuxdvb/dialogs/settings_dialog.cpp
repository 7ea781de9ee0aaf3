#include "drivers/linuxdvb/dialogs/settings_dialog.h"

#include "drivers/common/dialogs/qt_text.h"
#include "drivers/linuxdvb/dialogs/dish_delegate.h"
#include "drivers/linuxdvb/dialogs/parts.h"
#include "drivers/linuxdvb/dvb_tuner.h"
#include "platform/settings.h"

#include <algorithm>
#include <array>

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QSpinBox>
#include <QTreeView>

namespace tessaview {

namespace {

constexpr const char* kMissing = " is missing: plug it in and refresh, or choose another.";

QString typeText(TunerType type)
{
    static constexpr std::array kTexts{"Satellite", "Cable", "Terrestrial"};
    return kTexts.at(static_cast<std::size_t>(type) - 1);
}

/// "adapter0/frontend0: Montage M88DS3103 (DVB-S, DVB-S2)"
QString receiverText(const FrontendFacts& facts)
{
    const QString device = toQt(facts.id.name());
    if (!facts.problem.empty())
        return device + " (cannot be used)";
    QStringList systems;
    for (const fe_delivery_system system : facts.systems)
        if (const QString text = systemName(system); !text.isEmpty())
            systems << text;
    return device + ": " + toQt(facts.name) + " (" +
           (systems.isEmpty() ? QString("no DVB") : systems.join(", ")) + ")";
}

QSpinBox* secondsBox(std::chrono::seconds least, std::chrono::seconds most,
                     std::chrono::seconds value, QWidget* parent)
{
    auto* const box = new QSpinBox(parent);
    box->setRange(static_cast<int>(least.count()), static_cast<int>(most.count()));
    box->setValue(static_cast<int>(value.count()));
    box->setSuffix(" s");
    box->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    return box;
}

} // namespace

SettingsDialog::SettingsDialog(DvbTuner& tuner, QWidget* owner)
    : QDialog(owner)
    , tuner_(tuner)
    , stored_(tuner.state().settings)
    , dishes_(tuner)
    , receiver_(new QComboBox(this))
    , refresh_(new QPushButton("&Refresh", this))
    , problem_(valueLabel(this))
    , type_(new QComboBox(this))
    , lockLimit_(secondsBox(kShortestLockLimit, kLongestLockLimit, stored_.lockLimit, this))
    , readCeiling_(secondsBox(kLowestReadCeiling, kHighestReadCeiling, stored_.readCeiling, this))
    , lnb_(new QComboBox(this))
    , oscillator_(new QSpinBox(this))
    , satellites_(new QTreeView(this))
    , delegate_(new DishDelegate(satellites_))
{
    setWindowTitle("Settings");
    arrange();
    connect(receiver_, &QComboBox::currentIndexChanged, this, &SettingsDialog::showReceiver);
    connect(refresh_, &QPushButton::clicked, this, [this] { listReceivers(receiver().id); });
    connect(type_, &QComboBox::currentIndexChanged, this, &SettingsDialog::enableDishes);
    listReceivers(stored_.device);
    showOscillator();
    if (stored_.dish.lnb.hasOneOscillator())
        oscillator_->setValue(static_cast<int>(stored_.dish.lnb.oscillator));
    connect(lnb_, &QComboBox::currentIndexChanged, this, &SettingsDialog::showOscillator);
}

void SettingsDialog::arrange()
{
    auto* const form = new QFormLayout(this);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    arrangeReceiver(*form);
    arrangeTimes(*form);
    arrangeDishes(*form);
    auto* const buttons =
        new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &SettingsDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    form->addRow(buttons);
    resize(760, 560);
}

void SettingsDialog::arrangeReceiver(QFormLayout& form)
{
    name(receiver_, "receiver", "Receiver");
    receiver_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    receiver_->setMinimumContentsLength(40);
    name(refresh_, "refresh", "Look for receivers again");
    refresh_->setAutoDefault(false);
    refresh_->setToolTip("Looks for receivers again, for one that was plugged in just now");
    problem_->setObjectName("problem");
    problem_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    name(type_, "type", "Tuner type");
    type_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    type_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    auto* const row = new QHBoxLayout;
    row->addWidget(receiver_, 1);
    row->addWidget(refresh_);
    auto* const label = new QLabel("Re&ceiver:", this);
    label->setBuddy(receiver_);
    form.addRow(label, row);
    form.addRow(problem_);
    form.addRow("Tuner &type:", type_);
}

void SettingsDialog::arrangeTimes(QFormLayout& form)
{
    name(lockLimit_, "lockLimit", "Wait for the lock, in seconds");
    lockLimit_->setToolTip("How long the receiver may take to lock to a channel, for each delivery "
                           "system that is tried");
    name(readCeiling_, "readCeiling", "Read a table for at most, in seconds");
    readCeiling_->setToolTip(
        "Reading goes on beyond the usual wait while a slow table, such as the schedule of the "
        "EIT or the BAT, still brings new sections. After this time it ends all the same, with "
        "what has come.");
    form.addRow("Wait for the &lock:", lockLimit_);
    form.addRow("Read a t&able for at most:", readCeiling_);
}

void SettingsDialog::arrangeDishes(QFormLayout& form)
{
    name(lnb_, "lnb", "Default LNB");
    for (const auto kind : {Lnb::Kind::Universal, Lnb::Kind::SingleLo, Lnb::Kind::Wide})
        lnb_->addItem(lnbText(kind), static_cast<int>(kind));
    lnb_->setCurrentIndex(std::max(0, lnb_->findData(static_cast<int>(stored_.dish.lnb.kind))));
    lnb_->setToolTip("universal: 9750 and 10600 MHz, switched by a 22 kHz tone\n"
                     "single: one local oscillator\n"
                     "wide: one local oscillator for the whole band of 10700 to 12750 MHz");
    name(oscillator_, "oscillator", "Local oscillator of the default LNB, in MHz");
    oscillator_->setSuffix(" MHz");
    auto* const row = new QHBoxLayout;
    row->addWidget(lnb_);
    row->addWidget(oscillator_);
    row->addStretch();
    auto* const label = new QLabel("Default L&NB:", this);
    label->setBuddy(lnb_);
    form.addRow(label, row);

    name(satellites_, "satellites", "Satellites");
    satellites_->setModel(&dishes_);
    satellites_->setItemDelegate(delegate_);
    satellites_->setRootIsDecorated(false);
    satellites_->setUniformRowHeights(true);
    satellites_->setAlternatingRowColors(true);
    satellites_->setSelectionBehavior(QAbstractItemView::SelectItems);
    satellites_->setEditTriggers(QAbstractItemView::DoubleClicked |
                                 QAbstractItemView::SelectedClicked |
                                 QAbstractItemView::EditKeyPressed);
    satellites_->header()->setStretchLastSection(true);
    satellites_->header()->resizeSection(DishModel::Satellite, 260);
    if (dishes_.rowCount() > 0)
        satellites_->setCurrentIndex(dishes_.index(0, DishModel::LnbKind));
    auto* const title = new QLabel("&Satellites; F2 or a double click changes a value:", this);
    title->setBuddy(satellites_);
    form.addRow(title);
    form.addRow(satellites_);
}

/// Lists what there is, and the current one even where it is missing.
void SettingsDialog::listReceivers(DeviceId current)
{
    const QSignalBlocker quiet(receiver_);
    receivers_ = tuner_.frontends();
    const auto isCurrent = [current](const FrontendFacts& each) { return each.id == current; };
    auto found = std::find_if(receivers_.begin(), receivers_.end(), isCurrent);
    receiver_->clear();
    for (const FrontendFacts& each : receivers_)
        receiver_->addItem(receiverText(each));
    if (found == receivers_.end()) {
        const std::string device = current.name();
        found = receivers_.insert(found, {.id = current,
                                          .name = {},
                                          .systems = {},
                                          .capabilities = 0,
                                          .problem = device + kMissing});
        receiver_->addItem(toQt(device) + " (missing)");
    }
    receiver_->setCurrentIndex(static_cast<int>(found - receivers_.begin()));
    showReceiver();
}

const FrontendFacts& SettingsDialog::receiver() const
{
    return receivers_[static_cast<std::size_t>(receiver_->currentIndex())];
}

void SettingsDialog::showReceiver()
{
    const FrontendFacts& facts = receiver();
    const std::vector<TunerType> types = facts.types();
    QString problem = toQt(facts.problem);
    if (problem.isEmpty() && types.empty())
        problem = "This receiver has no DVB delivery system.";
    setValue(problem_, "Problem", problem);
    problem_->setVisible(!problem.isEmpty());

    type_->clear();
    for (const TunerType type : types)
        type_->addItem(typeText(type), static_cast<int>(type));
    if (stored_.type)
        type_->setCurrentIndex(std::max(0, type_->findData(static_cast<int>(*stored_.type))));
    type_->setEnabled(types.size() > 1);
    enableDishes();
}

void SettingsDialog::enableDishes()
{
    // A receiver that is missing may be one for satellites.
    const bool isSatellite =
        type_->count() == 0 ||
        static_cast<TunerType>(type_->currentData().toInt()) == TunerType::Satellite;
    lnb_->setEnabled(isSatellite);
    oscillator_->setEnabled(isSatellite && lnb().hasOneOscillator());
    satellites_->setEnabled(isSatellite);
}

void SettingsDialog::showOscillator()
{
    const bool hasOne = lnb().hasOneOscillator();
    oscillator_->setRange(hasOne ? 1 : 0, static_cast<int>(kHighestOscillator));
    oscillator_->setSpecialValueText(hasOne ? "" : " ");
    oscillator_->setValue(static_cast<int>(usualOscillator(lnb().kind)));
    enableDishes();
}

Lnb SettingsDialog::lnb() const
{
    return {.kind = static_cast<Lnb::Kind>(lnb_->currentData().toInt()),
            .oscillator = static_cast<unsigned>(oscillator_->value())};
}

ReceiverSettings SettingsDialog::chosen() const
{
    ReceiverSettings settings = stored_;
    settings.device = receiver().id;
    // The first type is what goes without saying.
    const auto type = static_cast<TunerType>(type_->currentData().toInt());
    if (type_->count() > 1 && (stored_.type || type_->currentIndex() > 0))
        settings.type = type;
    settings.lockLimit = std::chrono::seconds(lockLimit_->value());
    settings.readCeiling = std::chrono::seconds(readCeiling_->value());
    settings.dish.lnb = lnb();
    return settings;
}

void SettingsDialog::accept()
{
    delegate_->finish();
    QString problem;
    try {
        tuner_.useAndStore(chosen());
    } catch (const SettingsError& e) {
        problem = toQt(std::string("The settings hold for this run only: ") + e.what());
    }
    try {
        dishes_.store(tuner_);
    } catch (const SettingsError& e) {
        problem += (problem.isEmpty() ? "" : "\n") +
                   toQt(std::string("The satellites are received as before: ") + e.what());
    }
    if (!problem.isEmpty())
        QMessageBox::warning(this, windowTitle(), problem);
    QDialog::accept();
}

} // namespace tessaview
