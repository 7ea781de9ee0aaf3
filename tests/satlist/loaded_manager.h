#pragma once

#include "component/class_registry.h"
#include "satlist/list_access.h"

#include <filesystem>
#include <ostream>
#include <string>
#include <vector>

namespace tessaview {

inline void PrintTo(const TransponderEntry& entry, std::ostream* out)
{
    *out << entry.nid << '/' << entry.tsid << ": " << entry.frequency << ' ' << entry.polarization
         << ' ' << entry.symbolRate << ' ' << entry.fec << " flag " << entry.flag << " S2 "
         << entry.s2.system << ' ' << entry.s2.modulation << ' ' << entry.s2.rollOff << ' '
         << entry.s2.pilot << ' ' << entry.s2.streamId;
}

} // namespace tessaview

namespace test {

/// A satellite list manager, loaded from its library, and short ways to use it; what fails
/// throws std::runtime_error.
class LoadedManager {
public:
    LoadedManager();

    tessaview::ISatListManager& get() const { return *manager_.get(); }
    tessaview::ISatListManager* operator->() const { return manager_.get(); }

    tessaview::ComPtr<tessaview::ISatellite> satellite(const std::string& name) const;
    std::vector<tessaview::TransponderEntry> transponders(const std::string& name) const;
    static tessaview::ComPtr<tessaview::ISatTransponder>
    firstTransponder(tessaview::ISatellite& satellite);
    /// Creates a satellite with transponders and puts it into the list, in the place of one of
    /// that name.
    void put(const std::string& name, const std::vector<tessaview::TransponderEntry>& transponders,
             bool selected = true) const;
    /// The names in the order of the list.
    std::vector<std::string> names(bool selectedOnly = false) const;

    tessaview::Status load(const std::filesystem::path& file) const;
    tessaview::Status save(const std::filesystem::path& file) const;

private:
    tessaview::ComPtr<tessaview::ISatListManager> manager_;
};

} // namespace test
