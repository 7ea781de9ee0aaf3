#pragma once

#include "acquisition/start_mark.h"

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include <QDialog>

class QComboBox;
class QVBoxLayout;

namespace tessaview {

/// "Driver selction": lists the drivers by name and gives the class of the one that is chosen.
class CDriverSelectDlg : public QDialog {
    Q_OBJECT

public:
    /// Of several drivers with one name, each stands in the list, and choosing either means the
    /// last of them.
    explicit CDriverSelectDlg(DriverList list, QWidget* parent = nullptr);

    /// Chooses the first driver that reads captures, if there is one, and tells a newcomer what
    /// a driver is.
    void welcome();
    /// Chooses the driver of a class, if it is listed.
    void choose(const Guid& clsid);

    /// The braced class identifier of what was chosen; empty before OK, and when nothing was.
    const std::string& choice() const { return choice_; }

    void accept() override;

private:
    DriverList list_;
    std::map<std::string, Guid> classes_; ///< by name
    std::string choice_;
    QVBoxLayout* layout_;
    QComboBox* names_;
};

/// What the driver selection starts from.
struct DriverSelection {
    std::shared_ptr<const ClassRegistry> registry;
    bool isFirstStart = false;               ///< welcome the user
    std::optional<std::string> current = {}; ///< the class that is in use, in braces
    std::chrono::milliseconds patience{};    ///< with a driver that does not answer
    std::optional<Guid> leftOut = {};        ///< a driver that is not to be called
    std::shared_ptr<StartMark> mark = {};    ///< notes the calls; null when no start is under way
    std::function<bool()> isOver = nullptr;  ///< stop waiting for drivers; may be null
};

/// Finds the installed drivers, tells which of them do not work and lets the user choose one.
/// The class identifier text, empty when nothing was chosen; nothing when it was cancelled.
std::optional<std::string> RunDriverSelection(QWidget* parent, const DriverSelection& selection);

} // namespace tessaview
