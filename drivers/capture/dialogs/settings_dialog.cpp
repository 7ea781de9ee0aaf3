#include "drivers/capture/dialogs/settings_dialog.h"

#include "drivers/capture/capture_tuner.h"
#include "drivers/common/dialogs/qt_text.h"
#include "platform/settings.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QMessageBox>

namespace tessaview {

SettingsDialog::SettingsDialog(CaptureTuner& tuner, QWidget* owner)
    : QDialog(owner)
    , tuner_(tuner)
    , type_(new QComboBox(this))
{
    setWindowTitle("Settings");
    const TunerState now = tuner.state();
    type_->setObjectName("type");
    type_->addItem("Satellite", static_cast<int>(TunerType::Satellite));
    type_->addItem("Cable", static_cast<int>(TunerType::Cable));
    type_->addItem("Terrestrial", static_cast<int>(TunerType::Terrestrial));
    type_->setCurrentIndex(type_->findData(static_cast<int>(now.fallbackType)));

    auto* const explanation =
        new QLabel("Captures whose NIT describes their delivery say themselves what kind of tuner "
                   "they came from. This is what the others are taken for.",
                   this);
    explanation->setWordWrap(true);
    auto* const buttons =
        new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* const layout = new QFormLayout(this);
    layout->addRow(explanation);
    layout->addRow("&Tuner type:", type_);
    layout->addRow(buttons);
}

void SettingsDialog::accept()
{
    try {
        tuner_.storeFallbackType(static_cast<TunerType>(type_->currentData().toInt()));
    } catch (const SettingsError& e) {
        QMessageBox::warning(
            this, windowTitle(),
            toQt(std::string("The tuner type holds for this run only: ") + e.what()));
    }
    QDialog::accept();
}

} // namespace tessaview
