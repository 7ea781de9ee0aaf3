#pragma once

#include "ui/dialogs.h"

#include <functional>
#include <optional>

namespace tessaview {

class CTessaview3App;

/// The dialogs of the commands, as the real program has them.
class ApplicationDialogs : public Dialogs {
public:
    /// `application` must outlive this.
    explicit ApplicationDialogs(CTessaview3App& application) : application_(application) {}

    /// Whether "SI Reading" starts by itself and goes when it has read.
    void setReadsAtOnce(bool readsAtOnce) { readsAtOnce_ = readsAtOnce; }

    bool runSiReading(QWidget* parent, NetworkMap& model, ScanMode mode, IDriverInfo* driver,
                      ISatListManager* satellites) override;
    bool showsIncomplete() const override;
    void setShowsIncomplete(QWidget* parent, bool shows) override;
    void runSiTables(QWidget* parent) override;
    bool runDriverSelection(QWidget* parent) override;
    void runSatelliteListManager(QWidget* parent, ISatListManager& satellites) override;
    void runDatabaseExport(QWidget* parent, const NetworkMap& model,
                           const CharsetPolicy& charsets) override;
    void runAbout(QWidget* parent) override;

private:
    CTessaview3App& application_;
    bool readsAtOnce_ = false;
    mutable std::optional<bool> showsIncomplete_; ///< once it was asked for
};

} // namespace tessaview
