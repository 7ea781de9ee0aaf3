#pragma once

#include "acquisition/scan_mode.h"
#include "charset/charset_policy.h"
#include "driver/tuner_driver.h"
#include "model/network_map.h"
#include "satlist/satellite_list.h"

class QWidget;

namespace tessaview {

/// The modal dialogs that the commands of the document open; the tests put their own in place.
class Dialogs {
public:
    Dialogs() = default;
    Dialogs(const Dialogs&) = delete;
    Dialogs& operator=(const Dialogs&) = delete;
    virtual ~Dialogs() = default;

    /// "SI Reading": true when it ended with OK. `satellites` may be null.
    virtual bool runSiReading(QWidget* parent, NetworkMap& model, ScanMode mode,
                              IDriverInfo* driver, ISatListManager* satellites) = 0;
    /// "SI Tables".
    /// Whether incomplete streams are stored without being asked for.
    virtual bool showsIncomplete() const { return false; }
    /// Keeps that choice for later runs.
    virtual void setShowsIncomplete(QWidget* /*parent*/, bool /*shows*/) {}
    virtual void runSiTables(QWidget* parent) = 0;
    /// "Driver selction": true when a choice was stored.
    virtual bool runDriverSelection(QWidget* parent) = 0;
    /// "Satellite list manager".
    virtual void runSatelliteListManager(QWidget* parent, ISatListManager& satellites) = 0;
    /// "Database export"; names are read as the policy says.
    virtual void runDatabaseExport(QWidget* parent, const NetworkMap& model,
                                   const CharsetPolicy& charsets) = 0;
    virtual void runAbout(QWidget* parent) = 0;
};

} // namespace tessaview
