#include "app/application_dialogs.h"

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

namespace tessaview {

namespace {

std::size_t transponderCount(const NetworkMap& model)
{
    std::size_t count = 0;
    for (const auto& [id, network] : model)
        count += network.transponders.size();
    return count;
}

} // namespace

bool ApplicationDialogs::runSiReading(QWidget* parent, NetworkMap& model, ScanMode mode,
                                      IDriverInfo* driver, ISatListManager* satellites)
{
    const std::size_t before = transponderCount(model);
    const bool isOk =
        tessaview::runSiReading(parent, model, mode, driver, satellites, readsAtOnce_);
    if (readsAtOnce_ && isOk && transponderCount(model) == before)
        complain(parent, QStringLiteral("Nothing new was read."),
                 QStringLiteral("The lines in the output window tell why."));
    return isOk;
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
