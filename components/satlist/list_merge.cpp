#include "components/satlist/list_merge.h"

#include <string_view>
#include <unordered_map>

namespace tessaview {

namespace {

/// The satellites of a list by name.
class Index {
public:
    explicit Index(const StoredList& list)
    {
        for (const StoredSatellite& satellite : list.satellites)
            satellites_.emplace(satellite.name, &satellite);
    }

    const StoredSatellite* find(const std::string& name) const
    {
        const auto found = satellites_.find(name);
        return found == satellites_.end() ? nullptr : found->second;
    }

private:
    std::unordered_map<std::string_view, const StoredSatellite*> satellites_;
};

bool areEqual(const StoredSatellite* a, const StoredSatellite* b)
{
    return a && b ? *a == *b : a == b;
}

/// One satellite of the three lists, null where a list lacks it.
const StoredSatellite* choice(const StoredSatellite* base, const StoredSatellite* mine,
                              const StoredSatellite* theirs)
{
    if (areEqual(base, mine))
        return theirs;
    if (areEqual(base, theirs))
        return mine;
    return mine ? mine : theirs;
}

} // namespace

StoredList merged(const StoredList& base, const StoredList& mine, const StoredList& theirs)
{
    const Index inBase(base);
    const Index inMine(mine);
    const Index inTheirs(theirs);
    StoredList result;
    result.foreign = theirs.foreign;
    const auto take = [&](const std::string& name) {
        if (const StoredSatellite* const chosen =
                choice(inBase.find(name), inMine.find(name), inTheirs.find(name)))
            result.satellites.push_back(*chosen);
    };
    for (const StoredSatellite& satellite : mine.satellites)
        take(satellite.name);
    for (const StoredSatellite& satellite : theirs.satellites)
        if (!inMine.find(satellite.name))
            take(satellite.name);
    return result;
}

} // namespace tessaview
