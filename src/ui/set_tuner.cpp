#include "ui/set_tuner.h"

#include "component/bstr.h"
#include "log/log_file.h"
#include "model/tuning.h"
#include "ui/document.h"
#include "ui/message.h"
#include "ui/window_handle.h"

#include <functional>

namespace tessaview {

namespace {

using SetCall = std::function<Status()>;

/// The call that sets a tuner to what a descriptor describes, owning all it needs.
SetCall setCall(TunerType type, const NodeView& node, const ComPtr<ISetTuner>& tuner,
                WindowHandle owner)
{
    using namespace lib13818; // NOLINT(google-build-using-namespace): three names of it
    switch (type) {
    case TunerType::Satellite:
        return [=, record = tuningOf(node.data<DescriptorSatelliteDeliverySystem>())] {
            const Bstr satellite{std::u16string_view()}; // the descriptor names none
            return tuner->SetSatelliteTuning(owner, satellite.get(), &record);
        };
    case TunerType::Cable:
        return [=, record = tuningOf(node.data<DescriptorCableDeliverySystem>())] {
            return tuner->SetCableTuning(owner, &record);
        };
    case TunerType::Terrestrial:
        return [=, record = tuningOf(node.data<DescriptorTerrestrialDeliverySystem>())] {
            return tuner->SetTerrestrialTuning(owner, &record);
        };
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
    const auto result =
        document.driverCall().run(parent, QStringLiteral("Setting the tuner..."),
                                  setCall(type, *node, tuner, windowHandle(parent)));
    document.driverMayHaveChanged();
    if (result && failed(*result))
        complain(parent, QStringLiteral("Failed to set tuner"));
}

} // namespace tessaview
