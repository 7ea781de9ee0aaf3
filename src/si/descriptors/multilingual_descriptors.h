#pragma once

#include "si/descriptors/descriptor.h"
#include "si/descriptors/records.h"

#include <string_view>

// Names in several languages (EN 300 468, 6.2). Names are the broadcast's own bytes,
// character table selector included. An entry that its descriptor cannot hold throws code 3 and a
// text that says which part of it does not fit.

namespace lib13818 {

struct MultilingualNameInfo : Record {
    explicit MultilingualNameInfo(BitReader& in);

    Code ISO_639_language_code;
    int text_len; ///< as coded, in bytes
    std::string_view name;
};

class DescriptorMultilingualNetworkName final
    : public DescriptorOf<0x5B, "multilingual_network_name_descriptor"> {
public:
    explicit DescriptorMultilingualNetworkName(DescriptorReader in);
    void dumpBody(std::ostream& out) const override;
    void clear() override { entries = {}; }

    Records<MultilingualNameInfo> entries;
};

class DescriptorMultilingualBouquetName final
    : public DescriptorOf<0x5C, "multilingual_bouquet_name_descriptor"> {
public:
    explicit DescriptorMultilingualBouquetName(DescriptorReader in);
    void dumpBody(std::ostream& out) const override;
    void clear() override { entries = {}; }

    Records<MultilingualNameInfo> entries;
};

class DescriptorMultilingualServiceName final
    : public DescriptorOf<0x5D, "multilingual_service_name_descriptor"> {
public:
    explicit DescriptorMultilingualServiceName(DescriptorReader in);
    void dumpBody(std::ostream& out) const override;
    void clear() override { entries = {}; }

    struct MultilingualServiceNameInfo : Record {
        explicit MultilingualServiceNameInfo(BitReader& in);

        Code ISO_639_language_code;
        int provider_len; ///< as coded, in bytes
        std::string_view providername;
        int service_len; ///< as coded, in bytes
        std::string_view servicename;
    };
    Records<MultilingualServiceNameInfo> entries;
};

class DescriptorMultilingualComponent final
    : public DescriptorOf<0x5E, "multilingual_component_name_descriptor"> {
public:
    explicit DescriptorMultilingualComponent(DescriptorReader in);
    void dumpBody(std::ostream& out) const override;
    void clear() override { entries = {}; }

    int component_tag;
    Records<MultilingualNameInfo> entries;
};

} // namespace lib13818
