#pragma once

#include "driver/tuner_driver.h"
#include "si/descriptors/delivery_descriptors.h"

namespace tessaview {

// The tuning record that a delivery system descriptor describes. Frequencies and symbol rates
// are the digits as coded: the descriptors hold them as the nearest binary fractions, whose
// products with a power of ten may fall just short of the number meant, so they are rounded to it
// instead of being cut. Cutting further, to MHz or kHz, is integer division of the record's field.
// What does not fit a record's field is narrowed to its width, a number beyond it to its nearest.

SatelliteTuning tuningOf(const lib13818::DescriptorSatelliteDeliverySystem& descriptor);
CableTuning tuningOf(const lib13818::DescriptorCableDeliverySystem& descriptor);
TerrestrialTuning tuningOf(const lib13818::DescriptorTerrestrialDeliverySystem& descriptor);

} // namespace tessaview
