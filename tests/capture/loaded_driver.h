#pragma once

#include "component/class_registry.h"
#include "driver/tuner_driver.h"
#include "tests/support/temporary_folder.h"
#include "tools/multiplex/bytes_writer.h"

#include <filesystem>
#include <string>
#include <vector>

namespace test {

/// A request as the explorer makes it.
tessaview::TableRequest request(unsigned pid, unsigned tableId,
                                tessaview::CollectionMode mode = {});
/// One for the table of a table_id_extension.
tessaview::TableRequest requestOf(unsigned pid, unsigned tableId, unsigned extension);

/// The capture driver, loaded from its library like any driver, and folders of its own to read
/// captures and settings from.
class LoadedDriver {
public:
    LoadedDriver();
    LoadedDriver(const LoadedDriver&) = delete;
    LoadedDriver& operator=(const LoadedDriver&) = delete;
    ~LoadedDriver();

    /// Every interface of the driver; throws std::runtime_error when it does not answer to one.
    template <class Interface>
    tessaview::ComPtr<Interface> as() const
    {
        tessaview::ComPtr<Interface> out;
        if (tessaview::failed(tessaview::query(info_, out)))
            throw std::runtime_error("the driver lacks an interface");
        return out;
    }

    /// Initialises it anew, with the settings as they now are.
    tessaview::Status initialize() const;
    const std::filesystem::path& folder() const { return folder_.path(); }
    /// Writes a file below the folder and gives its path.
    std::filesystem::path file(const std::string& name, const Bytes& content) const;

    /// Points the driver at files; gives the problems it names.
    std::string use(const std::vector<std::filesystem::path>& paths,
                    tessaview::Status* status = nullptr) const;
    /// Reads the tables of what it is set to; throws std::runtime_error on a failure status.
    std::vector<std::vector<Bytes>>
    read(const std::vector<tessaview::TableRequest>& requests) const;
    /// The answer to one request over a stream of its own.
    std::vector<Bytes> sectionsOf(const Bytes& stream,
                                  const tessaview::TableRequest& request) const;

    /// The transport_stream_id in the PAT of what it is set to; 0 when there is none.
    unsigned stream() const;
    bool isLocked() const;
    unsigned tunerType() const;
    std::string statusText() const;

private:
    TemporaryFolder folder_;
    Environment config_;
    tessaview::ComPtr<tessaview::IDriverInfo> info_;
};

} // namespace test
