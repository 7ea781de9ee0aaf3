#pragma once

#include "component/bstr.h"
#include "driver/tuner_driver.h"
#include "satlist/satellite_list.h"

#include <string>
#include <vector>

// How the explorer reads and writes the satellite list. Every function hands the first failure
// status on; a success that yields nothing counts as a failure.

namespace tessaview {

/// What DVB-S2 needs besides, in the values of `ISatTransponderS2`.
struct S2Parameters {
    std::int32_t system = ISatTransponderS2::kNotGiven;
    std::int32_t modulation = ISatTransponderS2::kNotGiven;
    std::int32_t rollOff = ISatTransponderS2::kNotGiven;
    std::int32_t pilot = ISatTransponderS2::kNotGiven;
    std::int32_t streamId = ISatTransponderS2::kNotGiven;

    friend bool operator==(const S2Parameters&, const S2Parameters&) = default;
};

/// A transponder entry as plain values, in the units of `ISatTransponder`.
struct TransponderEntry {
    std::int32_t nid = 0;
    std::int32_t tsid = 0;
    std::int32_t frequency = 0;    ///< 10 kHz
    std::int32_t polarization = 0; ///< 0 H, 1 V, 2 L, 3 R
    std::int32_t symbolRate = 0;   ///< 100 symbols/s
    std::int32_t fec = 0;          ///< 0 to 7
    std::int32_t flag = 0;         ///< above 0: added by the user
    S2Parameters s2 = {};

    friend bool operator==(const TransponderEntry&, const TransponderEntry&) = default;
};

/// What a tuner is set to for an entry: frequency, polarization, symbol rate and FEC.
SatelliteTuning tuningOf(const TransponderEntry& entry);

/// The rest of an enumeration, for a range-based for: `for (auto& item : Items(enumerator))`. It
/// ends at the first answer that yields no item.
template <class Item>
class Items {
public:
    /// The enumerator stays the caller's and outlives this.
    explicit Items(IEnum<Item>* enumerator) : enumerator_(enumerator) {}

    struct End {};
    class Iterator {
    public:
        explicit Iterator(IEnum<Item>* enumerator) : enumerator_(enumerator) { ++*this; }
        ComPtr<Item>& operator*() { return item_; }
        Iterator& operator++()
        {
            Item* next = nullptr;
            const bool yields =
                enumerator_ && enumerator_->Next(1, &next, nullptr) == status::kOk && next;
            item_ = ComPtr<Item>::adopt(yields ? next : nullptr);
            return *this;
        }
        bool operator!=(End) const { return static_cast<bool>(item_); }

    private:
        IEnum<Item>* enumerator_;
        ComPtr<Item> item_;
    };

    Iterator begin() const { return Iterator(enumerator_); }
    End end() const { return {}; }

private:
    IEnum<Item>* enumerator_;
};

/// What `EnumTransponders` wants them for.
enum class TransponderUse : std::int32_t { Edit = 0, Scan = 1 };

Status enumSatellites(ISatListManager& manager, bool selectedOnly, ComPtr<IEnumSatellite>& out);
Status getSatellite(ISatListManager& manager, const Bstr& name, ComPtr<ISatellite>& out);
Status satelliteName(ISatellite& satellite, std::string& utf8);
Status createSatellite(ISatListManager& manager, const Bstr& name, ComPtr<ISatellite>& out);
Status enumTransponders(ISatellite& satellite, TransponderUse use,
                        ComPtr<IEnumSatTransponder>& out);

/// What DVB-S2 needs is not given by a list that does not know it.
Status readTransponder(ISatTransponder& transponder, TransponderEntry& entry);
/// Creates a transponder with the entry's values and adds it to the satellite, not yet to the
/// list. The flag is set only when it is not 0, what DVB-S2 needs only when it is given and the
/// list knows it.
Status addTransponder(ISatellite& satellite, const TransponderEntry& entry);

/// The names of the satellites in the order of the list, UTF-8; none without a list.
std::vector<std::string> satelliteNames(ISatListManager* manager, bool selectedOnly);

/// Every transponder of a satellite; stops at the first that cannot be read, with its status.
Status readTransponders(ISatellite& satellite, std::vector<TransponderEntry>& entries);

} // namespace tessaview
