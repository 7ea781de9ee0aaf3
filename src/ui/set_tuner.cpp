#include "ui/set_tuner.h"

#include "log/log_file.h"
#include "tuning/tuner_setting.h"
#include "ui/document.h"
#include "ui/message.h"
#include "ui/window_handle.h"

namespace tessaview {

namespace {

/// What a descriptor describes; it names no satellite.
TunerSetting settingOf(TunerType type, const NodeView& node)
{
    using namespace lib13818; // NOLINT(google-build-using-namespace): three names of it
    switch (type) {
    case TunerType::Satellite:
        return {tuningOf(node.data<DescriptorSatelliteDeliverySystem>())};
    case TunerType::Cable:
        return {tuningOf(node.data<DescriptorCableDeliverySystem>())};
    case TunerType::Terrestrial:
        return {tuningOf(node.data<DescriptorTerrestrialDeliverySystem>())};
    }
    return {};
}

} // namespace

void setTuner(CTessaview3Doc& document, TunerType type, const std::optional<NodeView>& node,
              QWidget* parent)
{
    if (!document.driverState().isTuner(type) || document.driverCall().isBusy())
        return;
    ComPtr<ISetTuner> tuner;
    const Status queried = query(document.driver(), tuner);
    if (failed(queried)) {
        LogPrint(g_log, log_level::kInformation, "Failed to query settuner interface: %#X",
                 statusCode(queried));
        return;
    }
    if (!node || node->kind().item == NodeItem::None) {
        LogPrint(g_log, log_level::kInformation, "context null");
        return;
    }
    if (!node->address()) {
        LogPrint(g_log, log_level::kInformation, "descriptor null");
        return;
    }
    const auto result = document.driverCall().run(
        parent, QStringLiteral("Setting the tuner..."),
        [tuner, owner = windowHandle(parent), setting = settingOf(type, *node)] {
            return setTuner(*tuner.get(), owner, setting);
        });
    document.driverMayHaveChanged();
    if (result && failed(*result))
        complain(parent, QStringLiteral("Failed to set tuner"));
}

} // namespace tessaview
