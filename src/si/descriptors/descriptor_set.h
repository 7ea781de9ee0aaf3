#pragma once

#include "si/descriptors/cell_descriptors.h"
#include "si/descriptors/component_descriptors.h"
#include "si/descriptors/data_descriptors.h"
#include "si/descriptors/delivery_descriptors.h"
#include "si/descriptors/event_descriptors.h"
#include "si/descriptors/mosiac_descriptor.h"
#include "si/descriptors/mpeg_descriptors.h"
#include "si/descriptors/multilingual_descriptors.h"
#include "si/descriptors/network_descriptors.h"
#include "si/descriptors/service_descriptors.h"
#include "si/descriptors/transport_descriptors.h"
#include "si/descriptors/typed_lists.h"

namespace lib13818 {

/// The descriptor classes, a list each in this order. To add a class, write it in its family's
/// file and enter it here: dispatch and the tree's check follow.
// clang-format off
struct DescriptorClasses : ClassList<
    /* 0x02 */ DescriptorVideoStream,
    /* 0x03 */ DescriptorAudioStream,
    /* 0x04 */ DescriptorHierarchy,
    /* 0x05 */ DescriptorRegistration,
    /* 0x06 */ DescriptorDataStreamAlignment,
    /* 0x07 */ DescriptorTargetBackgroundGrid,
    /* 0x08 */ DescriptorVideoWindow,
    /* 0x09 */ DescriptorCA,
    /* 0x0A */ DescriptorISO639Language,
    /* 0x0B */ DescriptorSystemClock,
    /* 0x0C */ DescriptorMultiplexBufferUtilization,
    /* 0x0D */ DescriptorCopyright,
    /* 0x0E */ DescriptorMaximumBitrate,
    /* 0x0F */ DescriptorPrivateDataIndicator,
    /* 0x10 */ DescriptorSmoothingBuffer,
    /* 0x11 */ DescriptorSTD,
    /* 0x12 */ DescriptorIBP,
    /* 0x40 */ DescriptorNetworkName,
    /* 0x41 */ DescriptorServiceList,
    /* 0x47 */ DescriptorBouquetName,
    /* 0x48 */ DescriptorService,
    /* 0x42 */ DescriptorStuffing,
    /* 0x43 */ DescriptorSatelliteDeliverySystem,
    /* 0x44 */ DescriptorCableDeliverySystem,
    /* 0x49 */ DescriptorCountryAvailability,
    /* 0x4A */ DescriptorLinkage,
    /* 0x4B */ DescriptorNVODReference,
    /* 0x4C */ DescriptorTimeShiftedService,
    /* 0x51 */ DescriptorMosiac,
    /* 0x52 */ DescriptorStreamIdentifier,
    /* 0x55 */ DescriptorParentalRating,
    /* 0x57 */ DescriptorTelephone,
    /* 0x59 */ DescriptorSubtitling,
    /* 0x5A */ DescriptorTerrestrialDeliverySystem,
    /* 0x5B */ DescriptorMultilingualNetworkName,
    /* 0x5C */ DescriptorMultilingualBouquetName,
    /* 0x5D */ DescriptorMultilingualServiceName,
    /* 0x5E */ DescriptorMultilingualComponent,
    /* 0x5F */ DescriptorPrivateDataSpecifier,
    /* 0x60 */ DescriptorServiceMove,
    /* 0x61 */ DescriptorShortSmoothingBuffer,
    /* 0x45 */ DescriptorVBIData,
    /* 0x46 */ DescriptorVBITeletext,
    /* 0x62 */ DescriptorFrequencyList,
    /* 0x63 */ DescriptorPartialTransportStream,
    /* 0x64 */ DescriptorDataBroadcast,
    /* 0x66 */ DescriptorDataBroadcastId,
    /* 0x67 */ DescriptorTransportStream,
    /* 0x68 */ DescriptorDSNG,
    /* 0x69 */ DescriptorPDC,
    /* 0x6A */ DescriptorAC3,
    /* 0x6B */ DescriptorAncillaryData,
    /* 0x6C */ DescriptorCellList,
    /* 0x6D */ DescriptorCellFrequencyLink,
    /* 0x6E */ DescriptorAnnouncementSupport,
    /* 0x6F */ DescriptorApplicationSignalling,
    /* 0x70 */ DescriptorAdaptationFieldData,
    /* 0x71 */ DescriptorServiceIdentifier,
    /* 0x72 */ DescriptorServiceAvailability,
    /* 0x53 */ DescriptorCAIdentifier,
    /* 0x54 */ DescriptorContent,
    HighUserPrivate,
    /* 0x4D */ DescriptorShortEvent,
    /* 0x4E */ DescriptorExtendedEvent,
    /* 0x4F */ DescriptorTimeShiftedEvent,
    /* 0x50 */ DescriptorComponent,
    /* 0x58 */ DescriptorLocalTimeOffset,
    /* 0x56 */ DescriptorTeletext,
    LowUserPrivate> {};
// clang-format on

/// The descriptors of one table entity (EN 300 468 clause 6, ISO/IEC 13818-1 clause 2.6).
using DescriptorSet = TypedLists<DescriptorClasses>;

/// Fills the set with every descriptor of the loop; throws "descriptor start end mismatch" if the
/// loop does not end where its last one does.
void walkChecked(DescriptorSet& set, Bytes loop);

/// The descriptors that fit into the loop; what follows them is left.
DescriptorSet walkEntry(Bytes loop);

/// Dumps the descriptors of one class.
template <class List, class Set>
void dumpList(std::ostream& out, const Set& set)
{
    for (const auto& descriptor : set.template all<List>())
        descriptor.dump(out);
}

// Instantiated once, in descriptor_set.cpp: its members touch every class.
extern template class TypedLists<DescriptorClasses>;

} // namespace lib13818
