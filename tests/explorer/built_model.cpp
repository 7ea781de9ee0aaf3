#include "tests/explorer/built_model.h"

#include "explorer/value_row.h"
#include "tests/multiplex/sections.h"
#include "tests/support/section_cases.h"

#include <utility>

namespace test {

using namespace tessaview;

namespace {

template <class Table>
void add(Table& single, const Bytes& section)
{
    single = parsed<Table>(section);
}

void add(NitMap& map, const Bytes& section)
{
    auto nit = parsed<lib13818::Nit>(section);
    map[static_cast<unsigned>(nit.table_id_extension)][static_cast<unsigned>(nit.section_number)] =
        std::move(nit);
}

void add(SdtMap& map, const Bytes& section)
{
    auto sdt = parsed<lib13818::Sdt>(section);
    map[static_cast<unsigned>(sdt.original_network_id)]
       [static_cast<unsigned>(sdt.table_id_extension)][static_cast<unsigned>(sdt.section_number)] =
           std::move(sdt);
}

void add(EitMap& map, const Bytes& section)
{
    auto eit = parsed<lib13818::Eit>(section);
    map[static_cast<unsigned>(eit.original_network_id)]
       [static_cast<unsigned>(eit.transport_stream_id)]
       [static_cast<unsigned>(eit.table_id_extension)][static_cast<unsigned>(eit.section_number)] =
           std::move(eit);
}

void addTo(Transponder& stream, const Bytes& section)
{
    switch (const unsigned tableId = section.front()) {
    case 0x00:
        return add(stream.pat, section);
    case 0x01:
        return add(stream.cat, section);
    case 0x02:
        return stream.pmts.push_back(parsed<lib13818::Pmt>(section));
    case 0x40:
        return add(stream.nitActual, section);
    case 0x41:
        return add(stream.nitOther, section);
    case 0x42:
        return add(stream.sdtActual, section);
    case 0x46:
        return add(stream.sdtOther, section);
    case 0x4A:
        return add(stream.bat, section);
    case 0x4E:
        return add(stream.eitPfActual, section);
    case 0x4F:
        return add(stream.eitPfOther, section);
    case 0x70:
        return add(stream.tdt, section);
    case 0x71:
        return add(stream.rst, section);
    case 0x73:
        return add(stream.tot, section);
    default:
        return add(tableId < 0x60 ? stream.eitScheduleActual : stream.eitScheduleOther, section);
    }
}

} // namespace

BuiltModel::BuiltModel(const std::vector<Bytes>& sections)
{
    Transponder stream;
    stream.transport_stream_id = kStream;
    for (const Bytes& section : sections)
        addTo(stream, section);
    model.store(kNetwork, std::move(stream));
    tree.rebuild(model);
}

NodeView BuiltModel::at(std::initializer_list<const char*> labels) const
{
    NodeView node = transportStream();
    for (const char* const label : labels) {
        std::size_t row = 0;
        while (row < node.childCount() && node.child(row).label() != label)
            ++row;
        if (row == node.childCount()) {
            ADD_FAILURE() << "no node " << label << " under " << node.label();
            return transportStream();
        }
        node = node.child(row);
    }
    return node;
}

BuiltModel modelOfService(const std::vector<Bytes>& descriptors)
{
    return BuiltModel(
        {sdt(kSdtActual, kStream, kNetwork, {{.id = 1, .descriptors = descriptors}})});
}

NodeView serviceOf(const BuiltModel& built)
{
    return built.at(
        {"SDT - actual transport stream", "ORIGINAL NID 0085", "TID 0451", "SECTION 0000", "0001"});
}

std::string treeText(const NodeView& node, std::size_t depth)
{
    std::string text = std::string(2 * depth, ' ') + node.label() + '\n';
    for (std::size_t i = 0; i < node.childCount(); ++i)
        text += treeText(node.child(i), depth + 1);
    return text;
}

std::string valuesText(const NodeView& node, std::size_t depth)
{
    const std::string indent(2 * depth, ' ');
    std::string text = indent + node.label() + '\n';
    for (const ValueRow& row : valueRows(node))
        text.append(indent).append(4, ' ').append(row.name).append(" = ").append(row.data) += '\n';
    for (std::size_t i = 0; i < node.childCount(); ++i)
        text += valuesText(node.child(i), depth + 1);
    return text;
}

std::string childLabels(const NodeView& node)
{
    std::string labels;
    for (std::size_t i = 0; i < node.childCount(); ++i)
        labels.append(i == 0 ? "" : " ").append(node.child(i).label());
    return labels;
}

} // namespace test
