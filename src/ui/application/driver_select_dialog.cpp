#include "ui/application/driver_select_dialog.h"

#include "driver/pending_call.h"
#include "log/log_file.h"
#include "platform/format.h"
#include "ui/application/driver_wait.h"
#include "ui/message.h"
#include "ui/text.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace tessaview {

namespace {

constexpr int kMinimumNameWidth = 280;

std::string joinedLines(const std::vector<std::string>& lines)
{
    std::string text;
    for (const std::string& line : lines)
        text += (text.empty() ? "" : "\n") + line;
    return text;
}

/// Asks every driver for its name; one that does not answer can be left out.
DriverList findDrivers(QWidget* parent, const DriverSelection& selection)
{
    DriverList found;
    const DriverWait wait{.patience = selection.patience,
                          .giveUp = QStringLiteral("&Leave it out"),
                          .consequence =
                              QStringLiteral("Without it, the other drivers can be chosen."),
                          .isOver = selection.isOver};
    for (const ComponentClass& driver : selection.registry->classesOf(kDriverCategory)) {
        if (driver.clsid == selection.leftOut)
            continue;
        LogPrint(g_log, log_level::kInformation, "asking the driver %s %s for its name",
                 driver.name.c_str(), toText(driver.clsid).c_str());
        const auto list = std::make_shared<DriverList>();
        const PendingCall call([list, driver, registry = selection.registry,
                                mark = selection.mark](const CallObserver& observer) {
            const CallObserver noted = marking(mark, driver.clsid, driver.name, observer);
            listDriver(*registry, driver, *list, noted);
            noted("");
        });
        if (!waitForDriver(parent, call, toQString(driver.name), wait))
            continue;
        std::move(list->drivers.begin(), list->drivers.end(), std::back_inserter(found.drivers));
        std::move(list->problems.begin(), list->problems.end(), std::back_inserter(found.problems));
    }
    return found;
}

void tellProblems(QWidget* parent, const ClassRegistry& registry, const DriverList& list)
{
    if (failed(registry.searchStatus()))
        complain(parent,
                 toQString(formatted("Failed to open CategoriesMgr: %#x",
                                     statusCode(registry.searchStatus()))),
                 toQString(joinedLines(registry.problems())));
    for (const DriverProblem& problem : list.problems)
        complain(parent, toQString(problem.message()), toQString(problem.detail));
}

} // namespace

CDriverSelectDlg::CDriverSelectDlg(DriverList list, QWidget* parent)
    : QDialog(parent)
    , list_(std::move(list))
    , layout_(new QVBoxLayout(this))
    , names_(new QComboBox)
{
    setWindowTitle(QStringLiteral("Driver selction"));
    for (const DriverChoice& driver : list_.drivers) {
        names_->addItem(toQString(driver.name));
        classes_.insert_or_assign(driver.name, driver.clsid);
    }
    names_->setCurrentIndex(-1);
    names_->setMinimumWidth(kMinimumNameWidth);
    names_->setPlaceholderText(list_.drivers.empty() ? QStringLiteral("No driver is installed")
                                                     : QString());

    layout_->addWidget(new QLabel(QStringLiteral("Select driver. ")));
    auto* const form = new QFormLayout;
    form->addRow(QStringLiteral("&Driver:"), names_);
    layout_->addLayout(form);
    layout_->addStretch();
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout_->addWidget(buttons);
}

void CDriverSelectDlg::welcome()
{
    const auto file = std::find_if(list_.drivers.begin(), list_.drivers.end(),
                                   [](const DriverChoice& driver) { return driver.readsFiles; });
    if (file != list_.drivers.end())
        choose(file->clsid);
    auto* const explanation = new QLabel(
        QStringLiteral("A driver is the part that fetches what is broadcast, from a receiver or "
                       "from captured files."));
    explanation->setWordWrap(true);
    layout_->insertWidget(0, explanation);
}

void CDriverSelectDlg::choose(const Guid& clsid)
{
    for (std::size_t i = 0; i < list_.drivers.size(); ++i)
        if (list_.drivers[i].clsid == clsid)
            names_->setCurrentIndex(static_cast<int>(i));
}

void CDriverSelectDlg::accept()
{
    const auto chosen = classes_.find(names_->currentText().toStdString());
    choice_ = names_->currentIndex() >= 0 && chosen != classes_.end() ? toText(chosen->second) : "";
    QDialog::accept();
}

std::optional<std::string> RunDriverSelection(QWidget* parent, const DriverSelection& selection)
{
    LogPrint(g_log, log_level::kInformation, "driver select init dialog");
    const DriverList list = findDrivers(parent, selection);
    tellProblems(parent, *selection.registry, list);
    CDriverSelectDlg dialog(list, parent);
    if (selection.isFirstStart)
        dialog.welcome();
    if (const auto current = parseGuid(selection.current.value_or("")))
        dialog.choose(*current);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return dialog.choice();
}

} // namespace tessaview
