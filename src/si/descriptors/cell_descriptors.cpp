#include "si/descriptors/cell_descriptors.h"

namespace lib13818 {

namespace {

template <class Subcell>
Records<Subcell> readSubcells(BitReader& in, int loopLength, int subcellBytes)
{
    // A cell that does not fit is an overrun before it is a loop of broken subcells.
    if (in.bytesLeft() < loopLength)
        throw error(kRecordsMissTheEnd.code, kRecordsMissTheEnd.message);
    BitReader loop(in.take(loopLength));
    return readRecords<Subcell>(loop, subcellBytes);
}

} // namespace

DescriptorCellList::Subcell::Subcell(BitReader& in)
    : cell_id_extension(in.u8())
    , subcell_latitude(in.u16())
    , subcell_longitude(in.u16())
    , subcell_extent_of_latitude(in.bits(12))
    , subcell_extent_of_longitude(in.bits(12))
{
}

DescriptorCellList::Info::Info(BitReader& in)
    : cell_id(in.u16())
    , cell_latitude(in.u16())
    , cell_longitude(in.u16())
    , cell_extent_of_latitude(in.bits(12))
    , cell_extent_of_longitude(in.bits(12))
    , subcell_info_loop_length(in.u8())
    , subcells(readSubcells<Subcell>(in, subcell_info_loop_length, 8))
{
}

DescriptorCellList::DescriptorCellList(DescriptorReader in)
    : DescriptorOf(in)
    , entries(readRecordsToEnd<Info>(in, kRecordsMissTheEnd))
{
}

DescriptorCellFrequencyLink::Subcell::Subcell(BitReader& in)
    : cell_id_extension(in.u8())
    , transposer_frequency(in.u32())
{
}

DescriptorCellFrequencyLink::Info::Info(BitReader& in)
    : cell_id(in.u16())
    , frequency(in.u32())
    , subcell_info_loop_length(in.u8())
    , subcells(readSubcells<Subcell>(in, subcell_info_loop_length, 5))
{
}

DescriptorCellFrequencyLink::DescriptorCellFrequencyLink(DescriptorReader in)
    : DescriptorOf(in)
    , entries(readRecordsToEnd<Info>(in, kRecordsMissTheEnd))
{
}

DescriptorServiceAvailability::DescriptorServiceAvailability(DescriptorReader in)
    : DescriptorOf(in)
    , availability_flag(in.bits(1))
{
    in.requireRecordsOf(2, 1);
    in.skip(7);
    cell_id = Records<int>(in.rest());
}

} // namespace lib13818
