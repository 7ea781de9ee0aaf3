#pragma once

#include "si/descriptors/application_descriptors.h"
#include "si/descriptors/application_transport_descriptors.h"
#include "si/descriptors/typed_lists.h"

namespace lib13818 {

/// The descriptor classes of an AIT, which has tags of its own, a list each in this order.
// clang-format off
struct AitDescriptorClasses : ClassList<
    /* 0x00 */ DescriptorApplication,
    /* 0x01 */ DescriptorApplicationName,
    /* 0x0B */ DescriptorApplicationIcons,
    /* 0x05 */ DescriptorExternalApplicationAuthorisation,
    /* 0x02 */ DescriptorTransportProtocol,
    /* 0x06 */ DescriptorRoutingIPv4,
    /* 0x07 */ DescriptorRoutingIPv6,
    /* 0x0D */ DescriptorDIILocation,
    /* 0x0C */ DescriptorPrefetch,
    /* 0x03 */ DescriptorDvbJApplication,
    /* 0x04 */ DescriptorDvbJApplicationLocation,
    /* 0x08 */ DescriptorDvbHtmlApplication,
    /* 0x09 */ DescriptorDvbHtmlApplicationLocation,
    /* 0x0A */ DescriptorDvbHtmlApplicationBoundary,
    LowUserPrivate,
    HighUserPrivate> {};
// clang-format on

/// The descriptors of one loop of an AIT (ETSI TS 102 812, 10.7 to 10.10).
using AitDescriptorSet = TypedLists<AitDescriptorClasses>;

// Instantiated once, in ait_descriptor_set.cpp: its members touch every class.
extern template class TypedLists<AitDescriptorClasses>;

} // namespace lib13818
