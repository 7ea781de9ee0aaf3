#include "explorer/descriptor_nodes.h"

#include "explorer/list_nodes.h"

#include <array>
#include <cstddef>
#include <tuple>
#include <type_traits>

namespace tessaview {

namespace {

using namespace lib13818; // NOLINT(google-build-using-namespace): every descriptor is shown here

} // namespace

template <>
constexpr ContextMenu kMenuOf<DescriptorSatelliteDeliverySystem> = ContextMenu::SatelliteDelivery;
template <>
constexpr ContextMenu kMenuOf<DescriptorCableDeliverySystem> = ContextMenu::CableDelivery;
template <>
constexpr ContextMenu kMenuOf<DescriptorTerrestrialDeliverySystem> =
    ContextMenu::TerrestrialDelivery;

namespace {

/// One list of a descriptor set.
template <class List>
struct SetList {
    using Owner = DescriptorSet;
    using Entry = typename EntryOf<List>::Type;
    static auto entries(const DescriptorSet& set) { return set.all<List>(); }
};

template <std::size_t N>
constexpr auto descriptorLabel(const Literal<N>& stem)
{
    constexpr Literal kSuffix("_DESCRIPTOR");
    char label[N + sizeof(kSuffix.text) - 1] = {};
    std::size_t length = 0;
    for (; length + 1 < N; ++length)
        label[length] = stem.text[length];
    for (const char c : kSuffix.text)
        label[length++] = c;
    return Literal(label);
}

/// One group of a descriptor loop: the class, its label stem and the lists of entries under it.
template <class ListClass, Literal Stem, class... Entries>
struct Group : ListNodes<SetList<ListClass>, descriptorLabel(Stem), Entries...> {
    using List = ListClass;
};

// clang-format off
/// The groups in the order in which the tree shows them.
using Groups = std::tuple<
    Group<DescriptorVideoStream, "VIDEOSTREAM">,
    Group<DescriptorAudioStream, "AUDIO_STREAM">,
    Group<DescriptorHierarchy, "HIERARCHY">,
    Group<DescriptorRegistration, "REGISTRATION">,
    Group<DescriptorDataStreamAlignment, "DATA_STREAM_ALIGNMENT">,
    Group<DescriptorTargetBackgroundGrid, "TARGET_BACKGROUND_GRID">,
    Group<DescriptorVideoWindow, "VIDEO_WINDOW">,
    Group<DescriptorCA, "CA">,
    Group<DescriptorISO639Language, "ISO639LANGUAGE", EntryList<&DescriptorISO639Language::entries, "ISO639LANGUAGESUB_DESCRIPTOR">>,
    Group<DescriptorSystemClock, "SYSTEM_CLOCK">,
    Group<DescriptorMultiplexBufferUtilization, "MULTIPLEX_BUFFER_UTILIZATION">,
    Group<DescriptorCopyright, "COPYRIGHT">,
    Group<DescriptorMaximumBitrate, "MAXIMUM_BITRATE">,
    Group<DescriptorPrivateDataIndicator, "PRIVATE_DATA_INDICATOR">,
    Group<DescriptorSmoothingBuffer, "SMOOTHING_BUFFER">,
    Group<DescriptorSTD, "STD">,
    Group<DescriptorIBP, "IBP">,
    Group<DescriptorTeletext, "TELETEXT", EntryList<&DescriptorTeletext::entries, "TELETEXTSUB_DESCRIPTOR">>,
    Group<DescriptorStreamIdentifier, "STREAM_IDENTIFIER">,
    Group<DescriptorNetworkName, "NETWORK_NAME">,
    Group<DescriptorServiceList, "SERVICELIST", EntryList<&DescriptorServiceList::services, "SERVICELISTSUB_DESCRIPTOR">>,
    Group<DescriptorBouquetName, "BOUQUET_NAME">,
    Group<DescriptorService, "SERVICE">,
    Group<DescriptorStuffing, "STUFFING">,
    Group<DescriptorSatelliteDeliverySystem, "SATELLITEDELIVERYSYSTEM">,
    Group<DescriptorCableDeliverySystem, "CABLEDELIVERYSYSTEM">,
    Group<DescriptorCountryAvailability, "COUNTRY_AVAILABILITY">,
    Group<DescriptorLinkage, "LINKAGE">,
    Group<DescriptorNVODReference, "NVOD_REFERENCE", EntryList<&DescriptorNVODReference::entries, "INFO">>,
    Group<DescriptorTimeShiftedService, "TIME_SHIFTED_SERVICE">,
    Group<DescriptorMosiac, "MOSIAC", EntryList<&DescriptorMosiac::entries, "CELLINFO">>,
    Group<DescriptorParentalRating, "PARENTAL_RATING", EntryList<&DescriptorParentalRating::entries, "RATINGINFO">>,
    Group<DescriptorTelephone, "TELEPHONE">,
    Group<DescriptorSubtitling, "SUBTITLING", EntryList<&DescriptorSubtitling::entries, "SUBTITLINGINFO">>,
    Group<DescriptorMultilingualNetworkName, "MULTILINGUAL_NETWORK_NAME", EntryList<&DescriptorMultilingualNetworkName::entries, "NAMEINFO">>,
    Group<DescriptorMultilingualBouquetName, "MULTILINGUAL_BOUQUET_NAME", EntryList<&DescriptorMultilingualBouquetName::entries, "NAMEINFO">>,
    Group<DescriptorMultilingualServiceName, "MULTILINGUAL_SERVICE_NAME", EntryList<&DescriptorMultilingualServiceName::entries, "NAMEINFO">>,
    Group<DescriptorMultilingualComponent, "MULTILINGUAL_COMPONENT", EntryList<&DescriptorMultilingualComponent::entries, "NAMEINFO">>,
    Group<DescriptorPrivateDataSpecifier, "PRIVATE_DATA_SPECIFIER">,
    Group<DescriptorServiceMove, "SERVICE_MOVE">,
    Group<DescriptorShortSmoothingBuffer, "SHORT_SMOOTHING_BUFFER">,
    Group<DescriptorVBIData, "VBI_DATA", EntryList<&DescriptorVBIData::entries, "VBISERVICEDATA">>,
    Group<DescriptorVBITeletext, "VBI_TELETEXT", EntryList<&DescriptorVBITeletext::entries, "VBITELETEXTDATA">>,
    Group<DescriptorFrequencyList, "FREQUENCY_LIST">,
    Group<DescriptorPartialTransportStream, "PARTIAL_TRANSPORT_STREAM">,
    Group<DescriptorDataBroadcast, "DATA_BROADCAST">,
    Group<DescriptorDataBroadcastId, "DATA_BROADCAST_ID">,
    Group<DescriptorTransportStream, "TRANSPORT_STREAM">,
    Group<DescriptorDSNG, "DSNG">,
    Group<DescriptorPDC, "PDC">,
    Group<DescriptorAC3, "AC3">,
    Group<DescriptorAncillaryData, "ANCILLARY_DATA">,
    Group<DescriptorCellList, "CELL_LIST", EntryList<&DescriptorCellList::entries, "CELL_LIST_DATA", EntryList<&DescriptorCellList::Info::subcells, "SUB_CELL_INFO">>>,
    Group<DescriptorCellFrequencyLink, "CELL_FREQUENCY_LINK", EntryList<&DescriptorCellFrequencyLink::entries, "FREQUENCY_LINK_DATA", EntryList<&DescriptorCellFrequencyLink::Info::subcells, "SUB_CELL_INFO">>>,
    Group<DescriptorAnnouncementSupport, "ANNOUNCEMENT_SUPPORT", EntryList<&DescriptorAnnouncementSupport::entries, "ANNOUNCEMENT_SUPPORT_DATA">>,
    Group<DescriptorApplicationSignalling, "APPLICATION_SIGNALLING", EntryList<&DescriptorApplicationSignalling::entries, "APPLICATION_INFO">>,
    Group<DescriptorAdaptationFieldData, "ADAPTATION_FIELD_DATA">,
    Group<DescriptorServiceIdentifier, "SERVICE_IDENTIFIER">,
    Group<DescriptorServiceAvailability, "SERVICE_AVAILABILITY">,
    Group<DescriptorCAIdentifier, "CA_IDENTIFIER">,
    Group<DescriptorTerrestrialDeliverySystem, "TERRESTRIALDELIVERYSYSTEM">,
    Group<DescriptorContent, "CONTENT", EntryList<&DescriptorContent::entries, "CONTENT_DESCRIPTOR_ITEM">>,
    Group<DescriptorShortEvent, "SHORT_EVENT">,
    Group<DescriptorExtendedEvent, "EXTENDED_EVENT">,
    Group<DescriptorTimeShiftedEvent, "TIME_SHIFTED_EVENT">,
    Group<DescriptorComponent, "COMPONENT_DESCRIPTORS">,
    Group<DescriptorLocalTimeOffset, "LOCAL_TIME_OFFSET">,
    Group<HighUserPrivate, "USER_PRIVATE">,
    Group<LowUserPrivate, "GENERAL">>;
// clang-format on

template <class List, class... Group>
consteval bool hasOneGroup(const std::tuple<Group...>* /*groups*/)
{
    return (std::is_same_v<List, typename Group::List> + ...) == 1;
}

consteval bool everyListHasOneGroup()
{
    bool all = true;
    DescriptorSet::forEachType(
        [&]<class List>() { all = all && hasOneGroup<List>(static_cast<const Groups*>(nullptr)); });
    return all;
}
static_assert(everyListHasOneGroup(), "give every list of DescriptorSet one group");

template <class... Group>
void addGroups(const DescriptorSet& set, Children& children, const std::tuple<Group...>* /*groups*/)
{
    (Group::addTo(set, children), ...);
}

} // namespace

void addDescriptorLoop(const DescriptorSet& descriptors, Children& children)
{
    if (!descriptors.empty())
        addGroups(descriptors, children, static_cast<const Groups*>(nullptr));
}

} // namespace tessaview
