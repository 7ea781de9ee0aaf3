#include "drivers/linuxdvb/section_reader.h"

namespace tessaview {
ReadAnswers readTables(Kernel&, const std::string&, std::span<const TableRequest>, ReadTimes,
                       const StopRequested&)
{
    return {};
}
} // namespace tessaview
