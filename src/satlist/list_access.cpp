#include "satlist/list_access.h"

#include "component/received_text.h"

namespace tessaview {

namespace {

/// Calls an operation with an out-parameter for an object, which has to be there on success.
template <class Interface, class Call>
Status received(ComPtr<Interface>& out, Call call)
{
    Interface* object = nullptr;
    const Status result = call(&object);
    out = ComPtr<Interface>::adopt(failed(result) ? nullptr : object);
    return !failed(result) && !object ? status::kUnexpected : result;
}

/// The first failure of the statuses of a list of calls, which are made until one fails.
template <class... Calls>
Status allOf(Calls... calls)
{
    Status result = status::kOk;
    static_cast<void>((!failed(result = calls()) && ...));
    return result;
}

Status readS2(ISatTransponder& transponder, S2Parameters& values)
{
    ComPtr<ISatTransponderS2> s2;
    if (failed(query(&transponder, s2)))
        return status::kOk;
    return allOf([&] { return s2->get_System(&values.system); },
                 [&] { return s2->get_Modulation(&values.modulation); },
                 [&] { return s2->get_RollOff(&values.rollOff); },
                 [&] { return s2->get_Pilot(&values.pilot); },
                 [&] { return s2->get_StreamId(&values.streamId); });
}

Status writeS2(ISatTransponder& transponder, const S2Parameters& values)
{
    ComPtr<ISatTransponderS2> s2;
    if (values == S2Parameters() || failed(query(&transponder, s2)))
        return status::kOk;
    return allOf([&] { return s2->put_System(values.system); },
                 [&] { return s2->put_Modulation(values.modulation); },
                 [&] { return s2->put_RollOff(values.rollOff); },
                 [&] { return s2->put_Pilot(values.pilot); },
                 [&] { return s2->put_StreamId(values.streamId); });
}

} // namespace

SatelliteTuning tuningOf(const TransponderEntry& entry)
{
    SatelliteTuning tuning{};
    tuning.frequency = static_cast<std::uint32_t>(entry.frequency);
    tuning.polarization = static_cast<std::uint8_t>(entry.polarization);
    tuning.symbol_rate = static_cast<std::uint32_t>(entry.symbolRate);
    tuning.FEC_inner = static_cast<std::uint8_t>(entry.fec);
    return tuning;
}

Status enumSatellites(ISatListManager& manager, bool selectedOnly, ComPtr<IEnumSatellite>& out)
{
    return received(out, [&](auto** object) {
        return manager.EnumSatellites(1, selectedOnly ? 1 : 0, object);
    });
}

Status getSatellite(ISatListManager& manager, const Bstr& name, ComPtr<ISatellite>& out)
{
    return received(out, [&](auto** object) { return manager.GetSatellite(name.get(), object); });
}

Status satelliteName(ISatellite& satellite, std::string& utf8)
{
    return receivedText(utf8, [&](char16_t** name) { return satellite.get_Name(name); });
}

Status createSatellite(ISatListManager& manager, const Bstr& name, ComPtr<ISatellite>& out)
{
    return received(out,
                    [&](auto** object) { return manager.CreateSatellite(name.get(), object); });
}

Status enumTransponders(ISatellite& satellite, TransponderUse use, ComPtr<IEnumSatTransponder>& out)
{
    return received(out, [&](auto** object) {
        return satellite.EnumTransponders(static_cast<std::int32_t>(use), object);
    });
}

Status readTransponder(ISatTransponder& transponder, TransponderEntry& entry)
{
    return allOf([&] { return transponder.get_Flag(&entry.flag); },
                 [&] { return transponder.get_Frequency(&entry.frequency); },
                 [&] { return transponder.get_TSID(&entry.tsid); },
                 [&] { return transponder.get_NID(&entry.nid); },
                 [&] { return transponder.get_Polarization(&entry.polarization); },
                 [&] { return transponder.get_SymbolRate(&entry.symbolRate); },
                 [&] { return transponder.get_FEC(&entry.fec); },
                 [&] { return readS2(transponder, entry.s2); });
}

Status addTransponder(ISatellite& satellite, const TransponderEntry& entry)
{
    ComPtr<ISatTransponder> created;
    const Status result = received(created, [&](auto** object) {
        return satellite.CreateTransponder(entry.nid, entry.tsid, object);
    });
    if (failed(result))
        return result;
    return allOf([&] { return entry.flag ? created->put_Flag(entry.flag) : status::kOk; },
                 [&] { return created->put_Frequency(entry.frequency); },
                 [&] { return created->put_Polarization(entry.polarization); },
                 [&] { return created->put_SymbolRate(entry.symbolRate); },
                 [&] { return created->put_FEC(entry.fec); },
                 [&] { return writeS2(*created.get(), entry.s2); },
                 [&] { return satellite.AddTransponder(created.get()); });
}

std::vector<std::string> satelliteNames(ISatListManager* manager, bool selectedOnly)
{
    std::vector<std::string> names;
    ComPtr<IEnumSatellite> satellites;
    if (!manager || failed(enumSatellites(*manager, selectedOnly, satellites)))
        return names;
    for (const auto& satellite : Items(satellites.get())) {
        std::string name;
        if (!failed(satelliteName(*satellite.get(), name)))
            names.push_back(std::move(name));
    }
    return names;
}

Status readTransponders(ISatellite& satellite, std::vector<TransponderEntry>& entries)
{
    ComPtr<IEnumSatTransponder> enumerator;
    Status result = enumTransponders(satellite, TransponderUse::Edit, enumerator);
    if (failed(result))
        return result;
    for (const auto& transponder : Items(enumerator.get())) {
        TransponderEntry entry;
        result = readTransponder(*transponder.get(), entry);
        if (failed(result))
            return result;
        entries.push_back(entry);
    }
    return status::kOk;
}

} // namespace tessaview
