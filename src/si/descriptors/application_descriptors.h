#pragma once

#include "si/descriptors/descriptor.h"
#include "si/descriptors/records.h"

#include <string_view>

// What an application is and where it begins (ETSI TS 102 812, 10.7, 10.9 and 10.10). Texts are
// the broadcast's own bytes; what would reach past the descriptor is cut there, numbers keep 0.
// Every error has code 3.

namespace lib13818 {

/// A text behind a length byte.
struct LengthPrefixedText : Record {
    explicit LengthPrefixedText(BitReader& in);

    int length; ///< as coded, in bytes
    std::string_view text;
};

class DescriptorApplication final : public DescriptorOf<0x00, "application_descriptor"> {
public:
    explicit DescriptorApplication(DescriptorReader in);
    void dumpBody(std::ostream& out) const override;
    void clear() override;

    struct ApplicationProfile : Record {
        explicit ApplicationProfile(BitReader& in);

        int application_profile;
        int version_major;
        int version_minor;
        int version_micro;
    };

    int application_profiles_length; ///< bytes
    Records<ApplicationProfile> profiles;
    int service_bound_flag;
    int visibility;
    int application_priority;
    Bytes transport_protocol_label;
};

class DescriptorApplicationName final : public DescriptorOf<0x01, "application_name_descriptor"> {
public:
    explicit DescriptorApplicationName(DescriptorReader in);
    void dumpBody(std::ostream& out) const override;
    void clear() override { entries = {}; }

    struct ApplicationNameInfo : Record {
        explicit ApplicationNameInfo(BitReader& in);

        Code ISO_639_language_code;
        int application_name_length; ///< as coded, in bytes
        std::string_view application_name;
    };
    Records<ApplicationNameInfo> entries;
};

class DescriptorApplicationIcons final : public DescriptorOf<0x0B, "application_icons_descriptor"> {
public:
    explicit DescriptorApplicationIcons(DescriptorReader in) noexcept;
    void dumpBody(std::ostream& out) const override;
    void clear() override;

    int icon_locator_length; ///< as coded, in bytes
    std::string_view icon_locator;
    int icon_flags; ///< one bit for each size and shape of pixels
    Bytes reserved_future_use;
};

class DescriptorExternalApplicationAuthorisation final
    : public DescriptorOf<0x05, "external_application_authorisation_descriptor"> {
public:
    explicit DescriptorExternalApplicationAuthorisation(DescriptorReader in);
    void dumpBody(std::ostream& out) const override;
    void clear() override { entries = {}; }

    struct AuthorisationInfo : Record {
        explicit AuthorisationInfo(BitReader& in);

        uint32_t organisation_id;
        int application_id;
        int application_priority;
    };
    Records<AuthorisationInfo> entries;
};

class DescriptorDvbJApplication final : public DescriptorOf<0x03, "DVB-J_application_descriptor"> {
public:
    explicit DescriptorDvbJApplication(DescriptorReader in) noexcept;
    void dumpBody(std::ostream& out) const override;
    void clear() override { parameters = {}; }

    Records<LengthPrefixedText> parameters;
};

class DescriptorDvbJApplicationLocation final
    : public DescriptorOf<0x04, "DVB-J_application_location_descriptor"> {
public:
    explicit DescriptorDvbJApplicationLocation(DescriptorReader in) noexcept;
    void dumpBody(std::ostream& out) const override;

    LengthPrefixedText base_directory;
    LengthPrefixedText classpath_extension;
    std::string_view initial_class;
};

class DescriptorDvbHtmlApplication final
    : public DescriptorOf<0x08, "DVB-HTML_application_descriptor"> {
public:
    explicit DescriptorDvbHtmlApplication(DescriptorReader in) noexcept;
    void dumpBody(std::ostream& out) const override;
    void clear() override { parameter = {}; }

    LengthPrefixedText application_id; ///< the set of them, two bytes each
    Bytes parameter;
};

class DescriptorDvbHtmlApplicationLocation final
    : public DescriptorOf<0x09, "DVB-HTML_application_location"> {
public:
    explicit DescriptorDvbHtmlApplicationLocation(DescriptorReader in) noexcept;
    void dumpBody(std::ostream& out) const override;

    LengthPrefixedText physical_root;
    std::string_view initial_path;
};

class DescriptorDvbHtmlApplicationBoundary final
    : public DescriptorOf<0x0A, "DVB-HTML_application_boundary"> {
public:
    explicit DescriptorDvbHtmlApplicationBoundary(DescriptorReader in) noexcept;
    void dumpBody(std::ostream& out) const override;

    LengthPrefixedText label;
    std::string_view regular_expression;
};

} // namespace lib13818
