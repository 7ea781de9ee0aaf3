#include "si/descriptors/application_descriptors.h"

#include "si/dump.h"

namespace lib13818 {

namespace {

Records<DescriptorApplication::ApplicationProfile> readProfiles(BitReader& in, int length)
{
    constexpr int kProfileBytes = 5;
    if (length % kProfileBytes != 0 || length > in.bytesLeft())
        throw error(kBadContent,
                    "application_descriptor: application_profiles_length length mismatch");
    BitReader loop(in.take(length));
    return readRecords<DescriptorApplication::ApplicationProfile>(loop, kProfileBytes);
}

/// The two lines of a text called `name`.
void dumpText(std::ostream& out, const char* name, const LengthPrefixedText& text)
{
    line(out << name, "_length: ", text.length);
    line(out << name, ": ", text.text);
}

} // namespace

LengthPrefixedText::LengthPrefixedText(BitReader& in) : length(in.u8()), text(in.text(length)) {}

DescriptorApplication::ApplicationProfile::ApplicationProfile(BitReader& in)
    : application_profile(in.u16())
    , version_major(in.u8())
    , version_minor(in.u8())
    , version_micro(in.u8())
{
}

DescriptorApplication::DescriptorApplication(DescriptorReader in)
    : DescriptorOf(in)
    , application_profiles_length(in.u8())
    , profiles(readProfiles(in, application_profiles_length))
    , service_bound_flag(in.bits(1))
    , visibility(in.bits(2))
    , application_priority(in.skip(5).u8())
    , transport_protocol_label(in.rest())
{
}

void DescriptorApplication::dumpBody(std::ostream& out) const
{
    line(out, "application_profiles_length: ", application_profiles_length);
    for (const ApplicationProfile& profile : profiles) {
        line(out, "application_profile: ", profile.application_profile);
        line(out, "version_major: ", profile.version_major);
        line(out, "version_minor: ", profile.version_minor);
        line(out, "version_micro: ", profile.version_micro);
    }
    line(out, "service_bound_flag: ", service_bound_flag);
    line(out, "visibility: ", visibility);
    line(out, "application_priority: ", application_priority);
    for (const uint8_t label : transport_protocol_label)
        line(out, "transport_protocol_label: ", static_cast<char>(label));
}

void DescriptorApplication::clear()
{
    profiles = {};
    transport_protocol_label = {};
}

DescriptorApplicationName::ApplicationNameInfo::ApplicationNameInfo(BitReader& in)
    : ISO_639_language_code(readCode(in))
    , application_name_length(in.u8())
    , application_name(in.text(application_name_length))
{
}

DescriptorApplicationName::DescriptorApplicationName(DescriptorReader in)
    : DescriptorOf(in)
    , entries(readRecordsToEnd<ApplicationNameInfo>(
          in, {kBadContent, "application_name_descriptor: 1"}))
{
}

void DescriptorApplicationName::dumpBody(std::ostream& out) const
{
    for (const ApplicationNameInfo& entry : entries) {
        line(out, "ISO_639_language_code: ", entry.ISO_639_language_code.data());
        line(out, "application_name_length: ", entry.application_name_length);
        line(out, "application_name: ", entry.application_name);
    }
}

DescriptorApplicationIcons::DescriptorApplicationIcons(DescriptorReader in) noexcept
    : DescriptorOf(in)
    , icon_locator_length(in.u8())
    , icon_locator(in.text(icon_locator_length))
    , icon_flags(in.u16())
    , reserved_future_use(in.rest())
{
}

void DescriptorApplicationIcons::dumpBody(std::ostream& out) const
{
    line(out, "icon_locator_length: ", icon_locator_length);
    line(out, "icon_locator: ", icon_locator);
    line(out, "icon_flags: ", icon_flags);
    line(out, "reserved_future_use:", "");
    hexDump(out, reserved_future_use);
}

void DescriptorApplicationIcons::clear()
{
    icon_locator = {};
    reserved_future_use = {};
}

DescriptorExternalApplicationAuthorisation::AuthorisationInfo::AuthorisationInfo(BitReader& in)
    : organisation_id(in.u32())
    , application_id(in.u16())
    , application_priority(in.u8())
{
}

DescriptorExternalApplicationAuthorisation::DescriptorExternalApplicationAuthorisation(
    DescriptorReader in)
    : DescriptorOf(in)
    , entries(readRecords<AuthorisationInfo>(
          in, 7, {kBadContent, "external_application_authorisation_descriptor: 1"}))
{
}

void DescriptorExternalApplicationAuthorisation::dumpBody(std::ostream& out) const
{
    for (const AuthorisationInfo& entry : entries) {
        line(out, "organisation_id: ", entry.organisation_id);
        line(out, "application_id: ", entry.application_id);
        line(out, "application_priority: ", entry.application_priority);
    }
}

DescriptorDvbJApplication::DescriptorDvbJApplication(DescriptorReader in) noexcept
    : DescriptorOf(in)
    , parameters(in.rest())
{
}

void DescriptorDvbJApplication::dumpBody(std::ostream& out) const
{
    for (const LengthPrefixedText& parameter : parameters)
        dumpText(out, "parameter_info", parameter);
}

DescriptorDvbJApplicationLocation::DescriptorDvbJApplicationLocation(DescriptorReader in) noexcept
    : DescriptorOf(in)
    , base_directory(in)
    , classpath_extension(in)
    , initial_class(in.restText())
{
}

void DescriptorDvbJApplicationLocation::dumpBody(std::ostream& out) const
{
    dumpText(out, "base_directory", base_directory);
    dumpText(out, "classpath_extension", classpath_extension);
    line(out, "initial_class: ", initial_class);
}

DescriptorDvbHtmlApplication::DescriptorDvbHtmlApplication(DescriptorReader in) noexcept
    : DescriptorOf(in)
    , application_id(in)
    , parameter(in.rest())
{
}

void DescriptorDvbHtmlApplication::dumpBody(std::ostream& out) const
{
    dumpText(out, "application_id", application_id);
    line(out, "parameter:", "");
    hexDump(out, parameter);
}

DescriptorDvbHtmlApplicationLocation::DescriptorDvbHtmlApplicationLocation(
    DescriptorReader in) noexcept
    : DescriptorOf(in)
    , physical_root(in)
    , initial_path(in.restText())
{
}

void DescriptorDvbHtmlApplicationLocation::dumpBody(std::ostream& out) const
{
    dumpText(out, "physical_root", physical_root);
    line(out, "initial_path: ", initial_path);
}

DescriptorDvbHtmlApplicationBoundary::DescriptorDvbHtmlApplicationBoundary(
    DescriptorReader in) noexcept
    : DescriptorOf(in)
    , label(in)
    , regular_expression(in.restText())
{
}

void DescriptorDvbHtmlApplicationBoundary::dumpBody(std::ostream& out) const
{
    dumpText(out, "label", label);
    line(out, "regular_expression: ", regular_expression);
}

} // namespace lib13818
