#include "tree/table_nodes.h"

#include "charset/display_text.h"
#include "model/network_map.h"
#include "model/service_entry.h"
#include "platform/format.h"
#include "si/texts/value_texts.h"
#include "tree/descriptor_nodes.h"
#include "tree/fields/table_fields.h"
#include "tree/list_nodes.h"
#include "tree/node_labels.h"
#include "tree/tree.h"

namespace tessaview {

namespace {

using namespace lib13818; // NOLINT(google-build-using-namespace): every table class is shown here

/// A label of one number of what the node stands for.
template <Literal Format, class T, auto Member>
std::string numbered(const NodeView& node)
{
    return formatted(Format.text, static_cast<unsigned>(node.data<T>().*Member));
}

/// The key of a map entry.
template <class Map>
std::uint32_t keyOf(const NodeView& node)
{
    return node.data<typename Map::value_type>().first;
}

/// A label of the key of a map entry.
template <Literal Format, class Map>
std::string keyed(const NodeView& node)
{
    return formatted(Format.text, keyOf<Map>(node));
}

template <class T>
std::span<const std::uint8_t> bytesOf(const NodeView& node)
{
    return node.data<T>().bytes();
}

/// The bytes of an entry of a list whose entries all have one size, by its place in the list.
template <std::size_t Start, std::size_t Size>
std::span<const std::uint8_t> bytesAtRow(const NodeView& node)
{
    NodeView at = node.parent();
    while (at.kind().part != NodePart::Section)
        at = at.parent();
    return at.bytes().subspan(Start + Size * node.row(), Size);
}

/// A node per entry of a map of maps.
template <class Map, const NodeKind& Kind>
void addEntries(const Map& map, Children& children)
{
    for (const auto& entry : map)
        children.add(Kind, &entry);
}

template <class Map, const NodeKind& Kind>
void expandMap(const NodeView& node, Children& children)
{
    addEntries<Map, Kind>(node.data<Map>(), children);
}

/// The same for a node that stands for an entry of a map one level up.
template <class Map, const NodeKind& Kind>
void expandEntry(const NodeView& node, Children& children)
{
    using Entry = std::pair<const std::uint32_t, Map>;
    addEntries<Map, Kind>(node.data<Entry>().second, children);
}

/// A node per decoded section of the innermost map.
template <class Sections, const NodeKind& Kind>
void expandSections(const NodeView& node, Children& children)
{
    using Entry = std::pair<const std::uint32_t, Sections>;
    for (const auto& [number, section] : node.data<Entry>().second)
        if (section.parsed)
            children.add(Kind, &section);
}

/// A node per entry of a table's list, named by itself.
template <class T, auto Member, const NodeKind& Kind>
void expandList(const NodeView& node, Children& children)
{
    for (const auto& entry : node.data<T>().*Member)
        children.add(Kind, &entry);
}

template <class T>
void expandDescriptors(const NodeView& node, Children& children)
{
    addDescriptorLoop(node.data<T>().descriptors, children);
}

/// The descriptors of a table and then the heading over its streams.
template <class T, const NodeKind& Heading>
void expandDescriptorsAndStreams(const NodeView& node, Children& children)
{
    addDescriptorLoop(node.data<T>().descriptors, children);
    children.add(Heading, &node.data<T>());
}

NodeView transportStreamOf(NodeView node)
{
    while (node.kind().menu != ContextMenu::TransportStream)
        node = node.parent();
    return node;
}

/// As the SDT actual of the transport stream that was read has it.
std::string serviceName(const NodeView& node, std::uint32_t original_network_id,
                        std::uint32_t transport_stream_id, std::uint32_t service_id)
{
    const auto described = serviceDescriptorOf(
        findService(transportStreamOf(node).data<Transponder>().sdtActual, original_network_id,
                    transport_stream_id, service_id, true));
    return described
               ? displayText(BroadcastText{.text = described->service_name}, node.charsetRule())
               : "<service not in SDT>";
}

// Kinds stand below the kinds of their children.

// NIT

constexpr NodeKind kNitStream{
    .name = "nit-transport-stream",
    .label = numbered<"%04X", TransportStreamEntry, &TransportStreamEntry::transport_stream_id>,
    .expand = expandDescriptors<TransportStreamEntry>,
    .fill = fillFrom<kNitStreamFields>,
    .originalNetworkId = originalNetworkIdOf<TransportStreamEntry>,
    .bytes = bytesOf<TransportStreamEntry>,
    .part = NodePart::Entry};
constexpr NodeKind kNitStreams{.name = "nit-transport-streams",
                               .label = fixed<"STREAM_INFO">,
                               .expand = expandList<Nit, &Nit::transportStreams, kNitStream>};
constexpr NodeKind kNitSection{.name = "nit-section",
                               .label = numbered<"SECTION %04X", Nit, &Nit::section_number>,
                               .expand = expandDescriptorsAndStreams<Nit, kNitStreams>,
                               .fill = fillFrom<kNitFields>,
                               .bytes = bytesOf<Nit>,
                               .part = NodePart::Section};
constexpr NodeKind kNitNetwork{.name = "nit-network",
                               .label = keyed<"NID %04X", NitMap>,
                               .expand = expandSections<NitSections, kNitSection>};
constexpr NodeKind kNitActual{.name = "nit-actual",
                              .label = fixed<"NIT - actual network">,
                              .expand = expandMap<NitMap, kNitNetwork>};
constexpr NodeKind kNitOther{.name = "nit-other",
                             .label = fixed<"NIT - other network">,
                             .expand = expandMap<NitMap, kNitNetwork>};

// SDT

constexpr NodeKind kSdtService{.name = "sdt-service",
                               .label = numbered<"%04x", SdtService, &SdtService::service_id>,
                               .expand = expandDescriptors<SdtService>,
                               .fill = fillFrom<kSdtServiceFields>,
                               .bytes = bytesOf<SdtService>,
                               .part = NodePart::Entry};
constexpr NodeKind kSdtSection{.name = "sdt-section",
                               .label = numbered<"SECTION %04X", Sdt, &Sdt::section_number>,
                               .expand = expandList<Sdt, &Sdt::services, kSdtService>,
                               .fill = fillFrom<kSdtFields>,
                               .bytes = bytesOf<Sdt>,
                               .part = NodePart::Section};
constexpr NodeKind kSdtStream{.name = "sdt-transport-stream",
                              .label = keyed<"TID %04X", SdtStreams>,
                              .expand = expandSections<SdtSections, kSdtSection>};
constexpr NodeKind kSdtNetwork{.name = "sdt-network",
                               .label = keyed<"ORIGINAL NID %04X", SdtMap>,
                               .expand = expandEntry<SdtStreams, kSdtStream>,
                               .originalNetworkId = keyOf<SdtMap>};
constexpr NodeKind kSdtActual{.name = "sdt-actual",
                              .label = fixed<"SDT - actual transport stream">,
                              .expand = expandMap<SdtMap, kSdtNetwork>};
constexpr NodeKind kSdtOther{.name = "sdt-other",
                             .label = fixed<"SDT - other transport stream">,
                             .expand = expandMap<SdtMap, kSdtNetwork>};

// CAT, BAT, PAT, RST, TDT, TOT

constexpr NodeKind kCat{.name = "cat",
                        .label = fixed<"CAT">,
                        .expand = expandDescriptors<Cat>,
                        .fill = fillFrom<kCatFields>,
                        .bytes = bytesOf<Cat>,
                        .part = NodePart::Section};
constexpr NodeKind kBat{.name = "bat",
                        .label = fixed<"BAT">,
                        .fill = fillFrom<kBatFields>,
                        .bytes = bytesOf<Bat>,
                        .part = NodePart::Section};
constexpr NodeKind kPatProgram{.name = "pat-program",
                               .label = numbered<"%04X", PatProgram, &PatProgram::program_number>,
                               .fill = fillFrom<kPatProgramFields>,
                               .bytes = bytesAtRow<8, 4>,
                               .part = NodePart::Entry};
constexpr NodeKind kPat{.name = "pat",
                        .label = fixed<"PAT">,
                        .expand = expandList<Pat, &Pat::programs, kPatProgram>,
                        .fill = fillFrom<kPatFields>,
                        .bytes = bytesOf<Pat>,
                        .part = NodePart::Section};
} // namespace
template <>
constexpr std::span<const std::uint8_t> (*kBytesOf<RunningStatusEntry>)(const NodeView& node) =
    bytesAtRow<3, 9>;
namespace {

constexpr NodeKind kRst{.name = "rst",
                        .label = fixed<"RST">,
                        .expand =
                            expandLists<Rst, EntryList<&Rst::entries, "ITEM", kRstEntryFields>>,
                        .fill = fillFrom<kRstFields>,
                        .bytes = bytesOf<Rst>,
                        .part = NodePart::Section};
constexpr NodeKind kTdt{.name = "tdt",
                        .label = fixed<"TDT">,
                        .fill = fillFrom<kTdtFields>,
                        .bytes = bytesOf<Tdt>,
                        .part = NodePart::Section};
constexpr NodeKind kTot{.name = "tot",
                        .label = fixed<"TOT">,
                        .expand = expandDescriptors<Tot>,
                        .fill = fillFrom<kTotFields>,
                        .bytes = bytesOf<Tot>,
                        .part = NodePart::Section};

// PMT

constexpr NodeKind kPmtStream{.name = "pmt-stream",
                              .label =
                                  [](const NodeView& node) {
                                      return std::string(
                                          streamTypeText(node.data<StreamInfo>().stream_type));
                                  },
                              .expand = expandDescriptors<StreamInfo>,
                              .fill = fillFrom<kPmtStreamFields>,
                              .bytes = bytesOf<StreamInfo>,
                              .part = NodePart::Entry};
constexpr NodeKind kPmtStreams{.name = "pmt-streams",
                               .label = fixed<"STREAM_INFO">,
                               .expand = expandList<Pmt, &Pmt::streams, kPmtStream>};

std::string programLabel(const NodeView& node)
{
    const auto program = static_cast<std::uint32_t>(node.data<Pmt>().table_id_extension);
    const NodeView transportStream = transportStreamOf(node);
    const std::uint32_t stream = transportStream.data<Transponder>().transport_stream_id;
    const std::uint32_t network = transportStream.parent().data<Network>().original_network_id;
    return formatted("%04X - %s", program, serviceName(node, network, stream, program).c_str());
}

constexpr NodeKind kProgram{.name = "pmt-program",
                            .label = programLabel,
                            .expand = expandDescriptorsAndStreams<Pmt, kPmtStreams>,
                            .fill = fillFrom<kPmtFields>,
                            .menu = ContextMenu::Program,
                            .bytes = bytesOf<Pmt>,
                            .part = NodePart::Section};

void expandPmt(const NodeView& node, Children& children)
{
    for (const Pmt& pmt : node.data<Transponder>().pmts)
        if (pmt.parsed)
            children.add(kProgram, &pmt);
}

constexpr NodeKind kPmt{.name = "pmt", .label = fixed<"PMT">, .expand = expandPmt};

// EIT

constexpr NodeKind kEitEvent{.name = "eit-event",
                             .label = numbered<"EID %04x", EitEvent, &EitEvent::event_id>,
                             .expand = expandDescriptors<EitEvent>,
                             .fill = fillFrom<kEitEventFields>,
                             .bytes = bytesOf<EitEvent>,
                             .part = NodePart::Entry};
constexpr NodeKind kEitSection{.name = "eit-section",
                               .label = numbered<"%04X", Eit, &Eit::section_number>,
                               .expand = expandList<Eit, &Eit::events, kEitEvent>,
                               .fill = fillFrom<kEitFields>,
                               .bytes = bytesOf<Eit>,
                               .part = NodePart::Section};

std::string eitServiceLabel(const NodeView& node)
{
    const std::uint32_t service = keyOf<EitServices>(node);
    const std::uint32_t stream = keyOf<EitStreams>(node.parent());
    const std::uint32_t network = keyOf<EitMap>(node.parent().parent());
    return formatted("SID %04X - %s", service, serviceName(node, network, stream, service).c_str());
}

constexpr NodeKind kEitService{.name = "eit-service",
                               .label = eitServiceLabel,
                               .expand = expandSections<EitSections, kEitSection>};
constexpr NodeKind kEitStream{.name = "eit-transport-stream",
                              .label = keyed<"TID %04X", EitStreams>,
                              .expand = expandEntry<EitServices, kEitService>};

std::string eitNetworkLabel(const NodeView& node)
{
    const std::uint32_t network = keyOf<EitMap>(node);
    return formatted("NID %04X - %s", network, networkText(network).c_str());
}

constexpr NodeKind kEitNetwork{.name = "eit-network",
                               .label = eitNetworkLabel,
                               .expand = expandEntry<EitStreams, kEitStream>,
                               .originalNetworkId = keyOf<EitMap>};
constexpr NodeKind kEitPfActual{.name = "eit-pf-actual",
                                .label = fixed<"actual_transport_stream, present/following">,
                                .expand = expandMap<EitMap, kEitNetwork>};
constexpr NodeKind kEitPfOther{.name = "eit-pf-other",
                               .label = fixed<"other_transport_stream, present/following">,
                               .expand = expandMap<EitMap, kEitNetwork>};
constexpr NodeKind kEitScheduleActual{.name = "eit-schedule-actual",
                                      .label = fixed<"actual_transport_stream, schedule">,
                                      .expand = expandMap<EitMap, kEitNetwork>};
constexpr NodeKind kEitScheduleOther{.name = "eit-schedule-other",
                                     .label = fixed<"other_transport_stream, schedule">,
                                     .expand = expandMap<EitMap, kEitNetwork>};

void expandEit(const NodeView& node, Children& children)
{
    const auto& transponder = node.data<Transponder>();
    children.add(kEitPfActual, &transponder.eitPfActual);
    children.add(kEitPfOther, &transponder.eitPfOther);
    children.add(kEitScheduleActual, &transponder.eitScheduleActual);
    children.add(kEitScheduleOther, &transponder.eitScheduleOther);
}

constexpr NodeKind kEit{
    .name = "eit", .label = fixed<"EIT">, .expand = expandEit, .item = NodeItem::None};

} // namespace

void addTables(const Transponder& t, Children& children)
{
    const auto add = [&](bool shown, const NodeKind& kind, const void* data) {
        if (shown)
            children.add(kind, data);
    };
    add(t.cat.parsed && !t.cat.descriptors.all<DescriptorCA>().empty(), kCat, &t.cat);
    add(!t.nitActual.empty(), kNitActual, &t.nitActual);
    add(!t.nitOther.empty(), kNitOther, &t.nitOther);
    add(!t.sdtActual.empty(), kSdtActual, &t.sdtActual);
    add(!t.sdtOther.empty(), kSdtOther, &t.sdtOther);
    add(t.bat.parsed, kBat, &t.bat);
    add(t.pat.parsed && !t.pat.programs.empty(), kPat, &t.pat);
    add(t.rst.parsed, kRst, &t.rst);
    add(t.tdt.parsed, kTdt, &t.tdt);
    add(t.tot.parsed, kTot, &t.tot);
    add(!t.pmts.empty(), kPmt, &t);
    const bool hasEvents = !t.eitPfActual.empty() || !t.eitPfOther.empty() ||
                           !t.eitScheduleActual.empty() || !t.eitScheduleOther.empty();
    add(hasEvents, kEit, &t);
}

} // namespace tessaview
