#include "drivers/linuxdvb/section_filter.h"

#include "drivers/common/table_ids.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <linux/dvb/dmx.h>
#include <span>

namespace tessaview {

namespace {

constexpr std::size_t kLargestSection = 4096;
constexpr std::size_t kHeader = 3;
constexpr std::size_t kBufferSize = std::size_t{64} << 10;
constexpr std::size_t kEventBufferSize = std::size_t{512} << 10; // these come thick and fast
// So that one filter that is always full does not keep the others waiting.
constexpr int kSectionsAtATime = 256;

constexpr std::size_t kExtensionPlace = 1;   // of a filter, whose bytes leave the length out
constexpr std::size_t kCurrentNextPlace = 3; // likewise

/// What the request asks for, as far as the kernel can tell it; the collector tells the rest.
dmx_sct_filter_params parametersOf(const TableRequest& request)
{
    dmx_sct_filter_params parameters{};
    parameters.pid = static_cast<__u16>(request.PID);
    parameters.flags = DMX_CHECK_CRC | DMX_IMMEDIATE_START;
    dmx_filter& filter = parameters.filter;
    filter.filter[0] = request.table_id;
    filter.mask[0] = tableIdMask(request.table_id);
    if (request.match_table_id_extension != 0) {
        filter.filter[kExtensionPlace] = static_cast<__u8>(request.table_id_extension >> 8);
        filter.filter[kExtensionPlace + 1] = static_cast<__u8>(request.table_id_extension);
        filter.mask[kExtensionPlace] = filter.mask[kExtensionPlace + 1] = 0xFF;
    }
    if (request.table_id < kFirstShortTable)
        filter.filter[kCurrentNextPlace] = filter.mask[kCurrentNextPlace] = 0x01;
    return parameters;
}

std::span<const std::uint8_t> sectionIn(std::span<const std::uint8_t> bytes)
{
    if (bytes.size() < kHeader)
        return {};
    const std::size_t size = kHeader + ((bytes[1] & 0x0FU) << 8 | bytes[2]);
    return size <= bytes.size() ? bytes.first(size) : std::span<const std::uint8_t>();
}

} // namespace

SectionFilter::SectionFilter(Kernel& kernel, const std::string& demultiplexer,
                             const TableRequest& request, SectionCollector& collector)
    : device_(kernel, demultiplexer, O_RDWR | O_NONBLOCK)
    , collector_(&collector)
    , started_(kernel.now())
    , lastNew_(started_)
{
    // A driver that cannot have a buffer of this size keeps its own.
    static_cast<void>(device_.controlValue(
        DMX_SET_BUFFER_SIZE, isEventTable(request.table_id) ? kEventBufferSize : kBufferSize));
    dmx_sct_filter_params parameters = parametersOf(request);
    if (const int result = device_.control(DMX_SET_FILTER, parameters); result < 0)
        throw device_.error("setting a section filter", result);
}

bool SectionFilter::isFull(const DeviceError& error)
{
    switch (error.error()) {
    case EBUSY:
    case EMFILE:
    case ENFILE:
    case ENOSPC:
    case ENOMEM:
    case EAGAIN:
        return true;
    default:
        return false;
    }
}

void SectionFilter::read()
{
    std::array<std::uint8_t, kLargestSection> buffer{};
    for (int i = 0; i < kSectionsAtATime && !collector_->isComplete(); ++i) {
        const long size = device_.kernel().read(device_.file(), buffer);
        if (size == -EAGAIN || size == -EINTR || size == 0)
            return;
        if (size == -EOVERFLOW) {
            ++overflows_;
            continue;
        }
        if (size < 0)
            throw device_.error("reading sections", static_cast<int>(size));
        const std::size_t before = collector_->keptCount();
        if (const auto section = sectionIn(std::span(buffer).first(static_cast<std::size_t>(size)));
            !section.empty())
            collector_->take(section);
        if (collector_->keptCount() != before)
            lastNew_ = device_.kernel().now();
    }
}

} // namespace tessaview
