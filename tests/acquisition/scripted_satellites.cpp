#include "tests/acquisition/scripted_satellites.h"

#include "component/bstr.h"

namespace test {

namespace {

using namespace tessaview; // NOLINT(google-build-using-namespace): the list's own contract

constexpr Status kUnused = status::kNotImplemented;

class Transponder final : public Implements<Transponder, ISatTransponder> {
public:
    Transponder(ComPtr<ScriptedSatellites> script, const ListedTransponder& data)
        : script_(std::move(script))
        , data_(data)
    {
    }

    Status put_Flag(std::int32_t) noexcept override { return kUnused; }
    Status get_Flag(std::int32_t* out) noexcept override { return give("get_Flag", 0, out); }
    Status put_Frequency(std::int32_t) noexcept override { return kUnused; }
    Status get_Frequency(std::int32_t* out) noexcept override
    {
        return give("get_Frequency", data_.frequency, out);
    }
    Status put_TSID(std::int32_t) noexcept override { return kUnused; }
    Status get_TSID(std::int32_t* out) noexcept override { return give("get_TSID", 0, out); }
    Status put_Polarization(std::int32_t) noexcept override { return kUnused; }
    Status get_Polarization(std::int32_t* out) noexcept override
    {
        return give("get_Polarization", data_.polarization, out);
    }
    Status put_SymbolRate(std::int32_t) noexcept override { return kUnused; }
    Status get_SymbolRate(std::int32_t* out) noexcept override
    {
        return give("get_SymbolRate", data_.symbolRate, out);
    }
    Status put_FEC(std::int32_t) noexcept override { return kUnused; }
    Status get_FEC(std::int32_t* out) noexcept override { return give("get_FEC", data_.fec, out); }
    Status put_NID(std::int32_t) noexcept override { return kUnused; }
    Status get_NID(std::int32_t* out) noexcept override { return give("get_NID", 0, out); }

private:
    friend Implements;
    ~Transponder() = default;

    Status give(const char* operation, std::int32_t value, std::int32_t* out) const
    {
        const Status result = script_->answer(operation);
        if (!failed(result))
            *out = value;
        return result;
    }

    ComPtr<ScriptedSatellites> script_;
    ListedTransponder data_;
};

/// Gives out the objects it was made with.
template <class Interface, class Item>
class Enumerator final : public Implements<Enumerator<Interface, Item>, Interface> {
public:
    explicit Enumerator(std::vector<ComPtr<Item>> items) : items_(std::move(items)) {}

    // NOLINTNEXTLINE(readability-non-const-parameter): an out-parameter of the interface
    Status Next(std::uint32_t count, Item** item, std::uint32_t* fetched) noexcept override
    {
        if (count != 1 || !item || fetched)
            return status::kInvalidArgument;
        if (next_ == items_.size())
            return status::kFalse;
        *item = ComPtr<Item>(items_[next_++]).detach();
        return status::kOk;
    }

private:
    friend class Implements<Enumerator, Interface>;
    ~Enumerator() = default;

    std::vector<ComPtr<Item>> items_;
    std::size_t next_ = 0;
};

class Satellite final : public Implements<Satellite, ISatellite> {
public:
    Satellite(ComPtr<ScriptedSatellites> script, ListedSatellite data)
        : script_(std::move(script))
        , data_(std::move(data))
    {
    }

    Status get_Name(char16_t** name) noexcept override
    {
        const Status result = script_->answer("get_Name", data_.name);
        if (!failed(result))
            *name = Bstr(std::string_view(data_.name)).release();
        return result;
    }
    Status ReservedSlot2() noexcept override { return kUnused; }
    Status EnumTransponders(std::int32_t purpose, IEnumSatTransponder** out) noexcept override
    {
        const Status result = script_->answer("EnumTransponders", data_.name);
        if (failed(result) || purpose != 1 || script_->isMute("EnumTransponders"))
            return result;
        return guarded([&] {
            std::vector<ComPtr<ISatTransponder>> items;
            for (const ListedTransponder& each : data_.transponders)
                items.push_back(ComPtr<ISatTransponder>::adopt(new Transponder(script_, each)));
            *out = new Enumerator<IEnumSatTransponder, ISatTransponder>(std::move(items));
            return result;
        });
    }
    Status put_Selected(std::int32_t) noexcept override { return kUnused; }
    Status get_Selected(std::int32_t*) noexcept override { return kUnused; }
    Status put_AddedByUser(std::int32_t) noexcept override { return kUnused; }
    Status ReservedSlot7() noexcept override { return kUnused; }
    Status AddTransponder(ISatTransponder*) noexcept override { return kUnused; }
    Status RemoveTransponder(std::int32_t, std::int32_t) noexcept override { return kUnused; }
    Status CreateTransponder(std::int32_t, std::int32_t, ISatTransponder**) noexcept override
    {
        return kUnused;
    }
    Status ReservedSlot11() noexcept override { return kUnused; }
    Status ReservedSlot12() noexcept override { return kUnused; }
    Status GetTransponderCount(std::uint32_t* count) noexcept override
    {
        const Status result = script_->answer("GetTransponderCount", data_.name);
        *count = static_cast<std::uint32_t>(data_.transponders.size());
        return result;
    }

private:
    friend Implements;
    ~Satellite() = default;

    ComPtr<ScriptedSatellites> script_;
    ListedSatellite data_;
};

} // namespace

Status ScriptedSatellites::answer(const std::string& operation, const std::string& satellite) const
{
    return failing.contains(operation) || failing.contains(operation + " " + satellite)
               ? status::kFail
               : status::kOk;
}

Status ScriptedSatellites::EnumSatellites(std::int32_t /*one*/, std::int32_t selectedOnly,
                                          IEnumSatellite** out) noexcept
{
    const Status result = answer("EnumSatellites");
    if (failed(result) || isMute("EnumSatellites"))
        return result;
    return guarded([&] {
        std::vector<ComPtr<ISatellite>> items;
        for (const ListedSatellite& each : list)
            if (each.isSelected || selectedOnly == 0)
                items.push_back(ComPtr<ISatellite>::adopt(
                    new Satellite(ComPtr<ScriptedSatellites>::share(this), each)));
        *out = new Enumerator<IEnumSatellite, ISatellite>(std::move(items));
        return result;
    });
}

Status ScriptedSatellites::GetSatellite(const char16_t* name, ISatellite** out) noexcept
{
    const Status result = answer("GetSatellite");
    if (failed(result) || isMute("GetSatellite"))
        return result;
    return guarded([&] {
        for (const ListedSatellite& each : list)
            if (each.name == bstrToUtf8(name)) {
                *out = new Satellite(ComPtr<ScriptedSatellites>::share(this), each);
                return result;
            }
        return status::kNotFound;
    });
}

Status ScriptedSatellites::Save(const char16_t* /*path*/) noexcept
{
    return kUnused;
}

Status ScriptedSatellites::Load(const char16_t* /*path*/) noexcept
{
    return kUnused;
}

Status ScriptedSatellites::PutSatellite(ISatellite* /*satellite*/) noexcept
{
    return kUnused;
}

Status ScriptedSatellites::RemoveSatellite(const char16_t* /*name*/) noexcept
{
    return kUnused;
}

Status ScriptedSatellites::CreateSatellite(const char16_t* /*name*/, ISatellite** /*out*/) noexcept
{
    return kUnused;
}

Status ScriptedSatellites::ReservedSlot8() noexcept
{
    return kUnused;
}

Status ScriptedSatellites::GetSatelliteCount(std::uint32_t* count) noexcept
{
    *count = static_cast<std::uint32_t>(list.size());
    return answer("GetSatelliteCount");
}

} // namespace test
