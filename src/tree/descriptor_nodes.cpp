#include "tree/descriptor_nodes.h"

#include "tree/fields/cell_fields.h"
#include "tree/fields/component_fields.h"
#include "tree/fields/data_fields.h"
#include "tree/fields/delivery_fields.h"
#include "tree/fields/event_fields.h"
#include "tree/fields/mosiac_fields.h"
#include "tree/fields/mpeg_fields.h"
#include "tree/fields/multilingual_fields.h"
#include "tree/fields/network_fields.h"
#include "tree/fields/service_fields.h"
#include "tree/fields/transport_fields.h"
#include "tree/list_nodes.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
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

/// One group of a descriptor loop: the class, its label stem, its field list and the lists of
/// entries under it.
template <class ListClass, Literal Stem, const auto& Fields, class... Entries>
struct Group : ListNodes<SetList<ListClass>, descriptorLabel(Stem), Fields, Entries...> {
    using List = ListClass;
};

// clang-format off
/// The groups in the order in which the tree shows them.
using Groups = std::tuple<
    Group<DescriptorVideoStream, "VIDEOSTREAM", kVideoStreamFields>,
    Group<DescriptorAudioStream, "AUDIO_STREAM", kAudioStreamFields>,
    Group<DescriptorHierarchy, "HIERARCHY", kHierarchyFields>,
    Group<DescriptorRegistration, "REGISTRATION", kRegistrationFields>,
    Group<DescriptorDataStreamAlignment, "DATA_STREAM_ALIGNMENT", kDataStreamAlignmentFields>,
    Group<DescriptorTargetBackgroundGrid, "TARGET_BACKGROUND_GRID", kTargetBackgroundGridFields>,
    Group<DescriptorVideoWindow, "VIDEO_WINDOW", kVideoWindowFields>,
    Group<DescriptorCA, "CA", kCaFields>,
    Group<DescriptorISO639Language, "ISO639LANGUAGE", kIso639LanguageFields,
          EntryList<&DescriptorISO639Language::entries, "ISO639LANGUAGESUB_DESCRIPTOR", kIso639LanguageEntryFields>>,
    Group<DescriptorSystemClock, "SYSTEM_CLOCK", kSystemClockFields>,
    Group<DescriptorMultiplexBufferUtilization, "MULTIPLEX_BUFFER_UTILIZATION", kMultiplexBufferUtilizationFields>,
    Group<DescriptorCopyright, "COPYRIGHT", kCopyrightFields>,
    Group<DescriptorMaximumBitrate, "MAXIMUM_BITRATE", kMaximumBitrateFields>,
    Group<DescriptorPrivateDataIndicator, "PRIVATE_DATA_INDICATOR", kPrivateDataIndicatorFields>,
    Group<DescriptorSmoothingBuffer, "SMOOTHING_BUFFER", kSmoothingBufferFields>,
    Group<DescriptorSTD, "STD", kStdFields>,
    Group<DescriptorIBP, "IBP", kIbpFields>,
    Group<DescriptorTeletext, "TELETEXT", kTeletextFields,
          EntryList<&DescriptorTeletext::entries, "TELETEXTSUB_DESCRIPTOR", kTeletextEntryFields>>,
    Group<DescriptorStreamIdentifier, "STREAM_IDENTIFIER", kStreamIdentifierFields>,
    Group<DescriptorNetworkName, "NETWORK_NAME", kNetworkNameFields>,
    Group<DescriptorServiceList, "SERVICELIST", kServiceListFields,
          EntryList<&DescriptorServiceList::services, "SERVICELISTSUB_DESCRIPTOR", kServiceListEntryFields>>,
    Group<DescriptorBouquetName, "BOUQUET_NAME", kBouquetNameFields>,
    Group<DescriptorService, "SERVICE", kServiceFields>,
    Group<DescriptorStuffing, "STUFFING", kStuffingFields>,
    Group<DescriptorSatelliteDeliverySystem, "SATELLITEDELIVERYSYSTEM", kSatelliteDeliverySystemFields>,
    Group<DescriptorCableDeliverySystem, "CABLEDELIVERYSYSTEM", kCableDeliverySystemFields>,
    Group<DescriptorCountryAvailability, "COUNTRY_AVAILABILITY", kCountryAvailabilityFields>,
    Group<DescriptorLinkage, "LINKAGE", kLinkageFields>,
    Group<DescriptorNVODReference, "NVOD_REFERENCE", kNvodReferenceFields,
          EntryList<&DescriptorNVODReference::entries, "INFO", kNvodReferenceEntryFields>>,
    Group<DescriptorTimeShiftedService, "TIME_SHIFTED_SERVICE", kTimeShiftedServiceFields>,
    Group<DescriptorMosiac, "MOSIAC", kMosiacFields,
          EntryList<&DescriptorMosiac::entries, "CELLINFO", kMosiacCellFields>>,
    Group<DescriptorParentalRating, "PARENTAL_RATING", kParentalRatingFields,
          EntryList<&DescriptorParentalRating::entries, "RATINGINFO", kParentalRatingEntryFields>>,
    Group<DescriptorTelephone, "TELEPHONE", kTelephoneFields>,
    Group<DescriptorSubtitling, "SUBTITLING", kSubtitlingFields,
          EntryList<&DescriptorSubtitling::entries, "SUBTITLINGINFO", kSubtitlingEntryFields>>,
    Group<DescriptorMultilingualNetworkName, "MULTILINGUAL_NETWORK_NAME", kMultilingualNetworkNameFields,
          EntryList<&DescriptorMultilingualNetworkName::entries, "NAMEINFO", kMultilingualNameFields>>,
    Group<DescriptorMultilingualBouquetName, "MULTILINGUAL_BOUQUET_NAME", kMultilingualBouquetNameFields,
          EntryList<&DescriptorMultilingualBouquetName::entries, "NAMEINFO", kMultilingualNameFields>>,
    Group<DescriptorMultilingualServiceName, "MULTILINGUAL_SERVICE_NAME", kMultilingualServiceNameFields,
          EntryList<&DescriptorMultilingualServiceName::entries, "NAMEINFO", kMultilingualServiceNameEntryFields>>,
    Group<DescriptorMultilingualComponent, "MULTILINGUAL_COMPONENT", kMultilingualComponentFields,
          EntryList<&DescriptorMultilingualComponent::entries, "NAMEINFO", kMultilingualNameFields>>,
    Group<DescriptorPrivateDataSpecifier, "PRIVATE_DATA_SPECIFIER", kPrivateDataSpecifierFields>,
    Group<DescriptorServiceMove, "SERVICE_MOVE", kServiceMoveFields>,
    Group<DescriptorShortSmoothingBuffer, "SHORT_SMOOTHING_BUFFER", kShortSmoothingBufferFields>,
    Group<DescriptorVBIData, "VBI_DATA", kVbiDataFields,
          EntryList<&DescriptorVBIData::entries, "VBISERVICEDATA", kVbiDataEntryFields>>,
    Group<DescriptorVBITeletext, "VBI_TELETEXT", kVbiTeletextFields,
          EntryList<&DescriptorVBITeletext::entries, "VBITELETEXTDATA", kVbiTeletextEntryFields>>,
    Group<DescriptorFrequencyList, "FREQUENCY_LIST", kFrequencyListFields>,
    Group<DescriptorPartialTransportStream, "PARTIAL_TRANSPORT_STREAM", kPartialTransportStreamFields>,
    Group<DescriptorDataBroadcast, "DATA_BROADCAST", kDataBroadcastFields>,
    Group<DescriptorDataBroadcastId, "DATA_BROADCAST_ID", kDataBroadcastIdFields>,
    Group<DescriptorTransportStream, "TRANSPORT_STREAM", kTransportStreamFields>,
    Group<DescriptorDSNG, "DSNG", kDsngFields>,
    Group<DescriptorPDC, "PDC", kPdcFields>,
    Group<DescriptorAC3, "AC3", kAc3Fields>,
    Group<DescriptorAncillaryData, "ANCILLARY_DATA", kAncillaryDataFields>,
    Group<DescriptorCellList, "CELL_LIST", kCellListFields,
          EntryList<&DescriptorCellList::entries, "CELL_LIST_DATA", kCellListEntryFields,
          EntryList<&DescriptorCellList::Info::subcells, "SUB_CELL_INFO", kCellListSubcellFields>>>,
    Group<DescriptorCellFrequencyLink, "CELL_FREQUENCY_LINK", kCellFrequencyLinkFields,
          EntryList<&DescriptorCellFrequencyLink::entries, "FREQUENCY_LINK_DATA", kCellFrequencyLinkEntryFields,
          EntryList<&DescriptorCellFrequencyLink::Info::subcells, "SUB_CELL_INFO", kCellFrequencyLinkSubcellFields>>>,
    Group<DescriptorAnnouncementSupport, "ANNOUNCEMENT_SUPPORT", kAnnouncementSupportFields,
          EntryList<&DescriptorAnnouncementSupport::entries, "ANNOUNCEMENT_SUPPORT_DATA", kAnnouncementSupportEntryFields>>,
    Group<DescriptorApplicationSignalling, "APPLICATION_SIGNALLING", kApplicationSignallingFields,
          EntryList<&DescriptorApplicationSignalling::entries, "APPLICATION_INFO", kApplicationSignallingEntryFields>>,
    Group<DescriptorAdaptationFieldData, "ADAPTATION_FIELD_DATA", kAdaptationFieldDataFields>,
    Group<DescriptorServiceIdentifier, "SERVICE_IDENTIFIER", kServiceIdentifierFields>,
    Group<DescriptorServiceAvailability, "SERVICE_AVAILABILITY", kServiceAvailabilityFields>,
    Group<DescriptorCAIdentifier, "CA_IDENTIFIER", kCaIdentifierFields>,
    Group<DescriptorTerrestrialDeliverySystem, "TERRESTRIALDELIVERYSYSTEM", kTerrestrialDeliverySystemFields>,
    Group<DescriptorContent, "CONTENT", kContentFields,
          EntryList<&DescriptorContent::entries, "CONTENT_DESCRIPTOR_ITEM", kContentEntryFields>>,
    Group<DescriptorShortEvent, "SHORT_EVENT", kShortEventFields>,
    Group<DescriptorExtendedEvent, "EXTENDED_EVENT", kExtendedEventFields>,
    Group<DescriptorTimeShiftedEvent, "TIME_SHIFTED_EVENT", kTimeShiftedEventFields>,
    Group<DescriptorComponent, "COMPONENT_DESCRIPTORS", kComponentFields>,
    Group<DescriptorLocalTimeOffset, "LOCAL_TIME_OFFSET", kLocalTimeOffsetFields>,
    Group<HighUserPrivate, "USER_PRIVATE", kUserPrivateFields>,
    Group<LowUserPrivate, "GENERAL", kUserPrivateFields>>;
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

constexpr std::size_t kGroupCount = std::tuple_size_v<Groups>;

template <class... Group>
consteval auto addersOf(const std::tuple<Group...>* /*groups*/)
{
    return std::array{&Group::addTo...};
}
constexpr auto kAdders = addersOf(static_cast<const Groups*>(nullptr));

template <class... Group>
consteval auto groupsOfTags(const std::tuple<Group...>* /*groups*/)
{
    std::array<std::uint8_t, 256> groups{};
    for (std::size_t tag = 0; tag < groups.size(); ++tag) {
        std::uint8_t group = 0;
        (((DescriptorSet::kListOfTag[tag] == DescriptorSet::kIndex<typename Group::List>
               ? void(groups[tag] = group)
               : void()),
          ++group),
         ...);
    }
    return groups;
}
/// The place of the group that a tag belongs to.
constexpr auto kGroupOfTag = groupsOfTags(static_cast<const Groups*>(nullptr));

} // namespace

void addDescriptorLoop(const DescriptorSet& descriptors, Children& children)
{
    // A loop has a handful of the groups: only those are gone through.
    constexpr std::size_t kWordBits = 64;
    std::array<std::uint64_t, (kGroupCount + kWordBits - 1) / kWordBits> present{};
    descriptors.forEach([&](Bytes descriptor) {
        const std::size_t group = kGroupOfTag[descriptor[0]];
        present[group / kWordBits] |= std::uint64_t{1} << group % kWordBits;
    });
    for (std::size_t word = 0; word < present.size(); ++word)
        for (; present[word] != 0; present[word] &= present[word] - 1) {
            const auto bit = static_cast<std::size_t>(std::countr_zero(present[word]));
            kAdders[word * kWordBits + bit](descriptors, &descriptors, children);
        }
}

} // namespace tessaview
