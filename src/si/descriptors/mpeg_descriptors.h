#pragma once

#include "si/descriptors/descriptor.h"
#include "si/descriptors/records.h"

// The descriptors of ISO/IEC 13818-1, clause 2.6.

namespace lib13818 {

class DescriptorVideoStream final : public DescriptorOf<0x02, "video_stream_descriptor"> {
public:
    explicit DescriptorVideoStream(DescriptorReader in) noexcept;
    void dumpBody(std::ostream& out) const override;

    int multiple_frame_rate_flag;
    int frame_rate_code;
    bool MPEG_1_only_flag;
    bool constrained_parameter_flag;
    bool still_picture_flag;
    // Broadcast only without MPEG_1_only_flag, else 0.
    int profile_and_level_indication = 0;
    int chroma_format = 0;
    bool frame_rate_extension_flag = false;
    int reserved = 0;
};

class DescriptorAudioStream final : public DescriptorOf<0x03, "audio_stream_descriptor"> {
public:
    explicit DescriptorAudioStream(DescriptorReader in) noexcept;
    void dumpBody(std::ostream& out) const override;

    int free_format_flag;
    int ID;
    int layer;
    int variable_rate_audio_indicator;
};

class DescriptorHierarchy final : public DescriptorOf<0x04, "hierachy_descriptor"> {
public:
    explicit DescriptorHierarchy(DescriptorReader in) noexcept;

    int hierarchy_type;
    int hierarchy_layer_index;
    int hierarchy_embedded_layer_index;
    int hierarchy_channel;
};

class DescriptorRegistration final : public DescriptorOf<0x05, "registration_descriptor"> {
public:
    explicit DescriptorRegistration(DescriptorReader in) noexcept;

    uint32_t format_identifier;
    Bytes additional_identification_info;
};

class DescriptorDataStreamAlignment final
    : public DescriptorOf<0x06, "data_stream_alignment_descriptor"> {
public:
    explicit DescriptorDataStreamAlignment(DescriptorReader in) noexcept;

    int alignment_type;
};

class DescriptorTargetBackgroundGrid final
    : public DescriptorOf<0x07, "target_background_grid_descriptor"> {
public:
    explicit DescriptorTargetBackgroundGrid(DescriptorReader in) noexcept;

    int horizontal_size; ///< pixels
    int vertical_size;   ///< pixels
    int aspect_ratio_information;
};

class DescriptorVideoWindow final : public DescriptorOf<0x08, "video_window_descriptor"> {
public:
    explicit DescriptorVideoWindow(DescriptorReader in) noexcept;

    int horizontal_offset; ///< pixels
    int vertical_offset;   ///< pixels
    int window_priority;
};

class DescriptorCA final : public DescriptorOf<0x09, "CA_Descriptor"> {
public:
    explicit DescriptorCA(DescriptorReader in) noexcept;
    void dumpBody(std::ostream& out) const override;
    void clear() override { private_data_byte = {}; }

    int CA_system_id;
    int CA_PID;
    Bytes private_data_byte;
};

class DescriptorISO639Language final : public DescriptorOf<0x0A, "ISO_639_language_descriptor"> {
public:
    explicit DescriptorISO639Language(DescriptorReader in);
    void dumpBody(std::ostream& out) const override;
    void clear() override { entries = {}; }

    struct Info : Record {
        explicit Info(BitReader& in);

        Code ISO_639_language_code;
        int audio_type;
    };
    Records<Info> entries;
};

class DescriptorSystemClock final : public DescriptorOf<0x0B, "system_clock_descriptor"> {
public:
    explicit DescriptorSystemClock(DescriptorReader in) noexcept;

    int external_clock_reference_indicator;
    int clock_accuracy_integer;
    int clock_accuracy_exponent;
};

class DescriptorMultiplexBufferUtilization final
    : public DescriptorOf<0x0C, "multiplex_buffer_utilization_descriptor"> {
public:
    explicit DescriptorMultiplexBufferUtilization(DescriptorReader in) noexcept;

    int bound_valid_flag;
    int LTW_offset_lower_bound;
    int LTW_offset_upper_bound;
};

class DescriptorCopyright final : public DescriptorOf<0x0D, "copyright_descriptor"> {
public:
    explicit DescriptorCopyright(DescriptorReader in) noexcept;
    void dumpBody(std::ostream& out) const override;
    void clear() override { additional_copyright_info = {}; }

    uint32_t copyright_identifier;
    Bytes additional_copyright_info;
};

class DescriptorMaximumBitrate final : public DescriptorOf<0x0E, "maximum_bitrate_descriptor"> {
public:
    explicit DescriptorMaximumBitrate(DescriptorReader in) noexcept;

    int maximum_bitrate; ///< 50 bytes per second
};

class DescriptorPrivateDataIndicator final
    : public DescriptorOf<0x0F, "private_data__indicatordescriptor"> {
public:
    explicit DescriptorPrivateDataIndicator(DescriptorReader in) noexcept;
    void dumpBody(std::ostream& out) const override;

    uint32_t private_data_indicator;
};

class DescriptorSmoothingBuffer final : public DescriptorOf<0x10, "smoothing_buffer_descriptor"> {
public:
    explicit DescriptorSmoothingBuffer(DescriptorReader in) noexcept;

    int sb_leak_rate; ///< 400 bits per second
    int sb_size;      ///< bytes
};

class DescriptorSTD final : public DescriptorOf<0x11, "STD_descriptor"> {
public:
    explicit DescriptorSTD(DescriptorReader in) noexcept;
    void dumpBody(std::ostream& out) const override;

    int leak_valid_flag;
};

class DescriptorIBP final : public DescriptorOf<0x12, "IBP_descriptor"> {
public:
    explicit DescriptorIBP(DescriptorReader in) noexcept;

    int closed_gop_flag;
    int identical_gop_flag;
    int max_gop_length;
};

} // namespace lib13818
