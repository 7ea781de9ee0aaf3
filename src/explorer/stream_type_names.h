#pragma once

namespace tessaview {

/// The label of a PMT stream: what ISO/IEC 13818-1 table 2-29 calls its stream_type.
const char* streamTypeName(int stream_type);

} // namespace tessaview
