#pragma once

#include "tests/support/decoded_stream.h"
#include "tools/multiplex/descriptors.h"
#include "tools/multiplex/sections.h"

#include <numeric>

namespace test {

inline constexpr unsigned kSmallNetwork = 0x0001;
inline constexpr unsigned kSmallStream = 0x0451;

/// One transport stream: a NIT with a delivery descriptor of each kind, a service by name, and its
/// PMT with a CA descriptor that has 150 private bytes.
inline tessaview::Transponder smallTransponder()
{
    Bytes privateBytes(150);
    std::iota(privateBytes.begin(), privateBytes.end(), std::uint8_t{0});
    tessaview::Transponder made = decodedStream(
        {nit(kNitActual, 1, {},
             {{.stream = kSmallStream,
               .network = kSmallNetwork,
               .descriptors = {satelliteDelivery({.frequency = 1175725, .orbitalPosition = 192}),
                               cableDelivery({.frequency = 3460000}),
                               terrestrialDelivery(49000000)}}}),
         sdt(kSdtActual, kSmallStream, kSmallNetwork,
             {{.id = 0x1001, .descriptors = {service(1, "Harbour", "Harbour One")}}}),
         pmt(0x1001, 0x100, {{.type = 2, .pid = 0x100}},
             {conditionalAccess(0x0B00, 0x0104, privateBytes), language("eng")})});
    made.transport_stream_id = kSmallStream;
    return made;
}

inline void fillSmallModel(tessaview::NetworkMap& model)
{
    model.store(kSmallNetwork, smallTransponder());
}

} // namespace test
