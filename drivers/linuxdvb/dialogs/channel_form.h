#pragma once

#include "drivers/linuxdvb/channel.h"
#include "drivers/linuxdvb/frontend_facts.h"

#include <memory>

#include <QWidget>

namespace tessaview {

class DvbTuner;

/// The fields that describe a channel to tune to.
class ChannelForm : public QWidget {
public:
    using QWidget::QWidget;

    virtual Channel channel() const = 0;
    virtual void setChannel(const Channel& channel) = 0;
    /// A field that has to be filled in before anything can be tuned to; null when none has.
    virtual QWidget* missingField() const = 0;
};

/// The form of a tuner type. What the receiver has no delivery system for cannot be filled in.
std::unique_ptr<ChannelForm> makeChannelForm(TunerType type, const FrontendFacts& facts,
                                             const DvbTuner& tuner);

} // namespace tessaview
