#include "app/application_dialogs.h"

#include "acquisition/driver_access.h"
#include "app/tessaview3_app.h"
#include "platform/settings.h"
#include "ui/application/about_dialog.h"
#include "ui/application/driver_select_dialog.h"
#include "ui/application/si_tables_dialog.h"
#include "ui/export/database_export_dlg.h"
#include "ui/message.h"
#include "ui/satlist/satellite_list_dialog.h"
#include "ui/si_reading/si_reading_dlg.h"
#include "ui/text.h"

#include <QPushButton>

namespace tessaview {

namespace {

constexpr const char* kIncompleteStreamsValue = "incompletestreams";

std::size_t transponderCount(const NetworkMap& model)
{
    std::size_t count = 0;
    for (const auto& [id, network] : model)
        count += network.transponders.size();
    return count;
}

/// Says why nothing was stored; true when the user wants what there is all the same.
bool tellUnstored(QWidget* parent, const ScanSummary& summary, bool offersMore)
{
    constexpr std::size_t kMostLines = 12;
    std::vector<std::string> reasons = summary.reasons();
    if (reasons.size() > kMostLines) {
        const std::size_t more = reasons.size() - kMostLines;
        reasons.resize(kMostLines);
        reasons.push_back("and " + std::to_string(more) + " more; the output window has them all");
    }
    QString detail;
    for (const std::string& reason : reasons)
        detail += (detail.isEmpty() ? QString() : QStringLiteral("\n")) + toQString(reason);
    MessageBox box(parent, QMessageBox::Warning, QStringLiteral("Nothing new was read."));
    box.setDetail(detail);
    QPushButton* const show =
        offersMore ? box.addButton(QStringLiteral("&Show what there is"), QMessageBox::AcceptRole)
                   : nullptr;
    box.exec();
    return show && box.clickedButton() == show;
}

} // namespace

bool ApplicationDialogs::runSiReading(QWidget* parent, NetworkMap& model, ScanMode mode,
                                      IDriverInfo* driver, ISatListManager* satellites)
{
    if (readsAtOnce_ && DriverAccess(driver).sourceCount() > 1)
        mode = ScanMode::AllSources;
    const std::size_t before = transponderCount(model);
    SiReadingWay way{.byItself = readsAtOnce_,
                     .incomplete =
                         showsIncomplete() ? IncompleteStreams::Store : IncompleteStreams::Refuse,
                     .patience = application_.patience().exit,
                     .leave = [this] { application_.leaveStuck(); }};
    SiReadingEnd end = tessaview::runSiReading(parent, model, mode, driver, satellites, way);
    if (transponderCount(model) != before || end.summary.unstored().empty())
        return end.isOk;
    const bool offersMore =
        end.summary.hasIncomplete() && way.incomplete == IncompleteStreams::Refuse;
    if (!(readsAtOnce_ || offersMore) || !tellUnstored(parent, end.summary, offersMore))
        return end.isOk;
    way.byItself = true;
    way.incomplete = IncompleteStreams::Store;
    return tessaview::runSiReading(parent, model, mode, driver, satellites, way).isOk;
}

bool ApplicationDialogs::showsIncomplete() const
{
    if (!showsIncomplete_)
        showsIncomplete_ = Settings(application_.places().settingsFile)
                               .number(kSettingsKey, kIncompleteStreamsValue)
                               .value_or(0) != 0;
    return *showsIncomplete_;
}

void ApplicationDialogs::setShowsIncomplete(QWidget* parent, bool shows)
{
    showsIncomplete_ = shows;
    try {
        Settings(application_.places().settingsFile)
            .setNumber(kSettingsKey, kIncompleteStreamsValue, shows ? 1 : 0);
    } catch (const SettingsError& problem) {
        complain(parent, QStringLiteral("The choice cannot be stored; it counts until the end."),
                 toQString(problem.what()));
    }
}

void ApplicationDialogs::runSiTables(QWidget* parent)
{
    CSiTablesDlg(application_.places().settingsFile, parent).exec();
}

bool ApplicationDialogs::runDriverSelection(QWidget* parent)
{
    Settings settings(application_.places().settingsFile);
    const auto choice =
        RunDriverSelection(parent, {.registry = application_.registry(),
                                    .current = settings.text(kSettingsKey, kDriverClassValue),
                                    .patience = application_.patience().start});
    if (!choice)
        return false;
    try {
        settings.setText(kSettingsKey, kDriverClassValue, *choice);
    } catch (const SettingsError& problem) {
        complain(parent, QStringLiteral("The choice of the driver cannot be stored."),
                 toQString(problem.what()));
        return false;
    }
    ask(parent, QMessageBox::Information,
        QStringLiteral("You must restart application for any changed to be effected."),
        QMessageBox::Ok);
    return true;
}

void ApplicationDialogs::runSatelliteListManager(QWidget* parent, ISatListManager& satellites)
{
    tessaview::runSatelliteListManager(parent, satellites);
}

void ApplicationDialogs::runDatabaseExport(QWidget* parent, const NetworkMap& model,
                                           const CharsetPolicy& charsets)
{
    tessaview::runDatabaseExport(parent, model, charsets);
}

void ApplicationDialogs::runAbout(QWidget* parent)
{
    AboutDialog(parent).exec();
}

} // namespace tessaview
