#include "si/ait.h"

#include "si/dump.h"
#include "si/error.h"

#include <type_traits>

namespace lib13818 {

namespace {

constexpr int kApplicationHeaderBytes = 9;

/// The descriptors of a loop that may be cut to what there is.
void walk(AitDescriptorSet& set, Bytes loop, bool isCut)
{
    if (set.fill(loop) != 0 || isCut)
        throw error(kBadContent, "application common descriptors length mismatch");
}

void dumpApplication(std::ostream& out, const AitApplication& application)
{
    line(out, "organisation_id: ", application.organisation_id);
    line(out, "application_id: ", application.application_id);
    line(out, "application_control_code: ", application.application_control_code);
    line(out,
         "application_descriptors_loop_length: ", application.application_descriptors_loop_length);
    application.descriptors.dump(out);
}

} // namespace

static_assert(std::is_nothrow_move_constructible_v<AitApplication>);

AitApplication::AitApplication(BitReader& loop)
    : organisation_id(loop.u32())
    , application_id(loop.u16())
    , application_control_code(loop.u8())
    , application_descriptors_loop_length(loop.skip(4).bits(12))
{
    const bool isCut = loop.bytesLeft() < application_descriptors_loop_length;
    walk(descriptors, loop.take(application_descriptors_loop_length), isCut);
}

void Ait::clear()
{
    applications.clear();
    descriptors.leaveOut<LowUserPrivate>();
}

void Ait::parsePayload(const uint8_t* body)
{
    BitReader in = payload(body);
    common_descriptors_length = require(in, 2, kBadContent).skip(4).bits(12);
    require(in, common_descriptors_length, kBadContent);
    walk(descriptors, behind(descriptors, in.take(common_descriptors_length)), false);
    application_loop_length = require(in, 2, kBadContent).skip(4).bits(12);
    BitReader loop = takeLoop(in, application_loop_length, kBadContent);
    while (!loop.atEnd()) {
        if (loop.bytesLeft() < kApplicationHeaderBytes)
            throw error(kBadContent, "application length to small");
        applications.emplace_back(loop);
    }
    if (!loop.exactlyAtEnd())
        throw error(kBadContent, "application length mismatch");
}

void Ait::dump(std::ostream& out) const
{
    line(out, "application_type: ", table_id_extension);
    line(out, "common_descriptors_length: ", common_descriptors_length);
    descriptors.dump(out);
    line(out, "application_loop_length: ", application_loop_length);
    for (const AitApplication& application : applications)
        dumpApplication(out, application);
}

} // namespace lib13818
