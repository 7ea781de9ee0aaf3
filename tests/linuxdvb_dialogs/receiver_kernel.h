#pragma once

#include "drivers/linuxdvb/frontend_facts.h"

#include <deque>
#include <functional>
#include <map>
#include <mutex>
#include <vector>

namespace test {

/// A kernel with receivers that tune and deliver packets as a test wants. Its time is its own.
class ReceiverKernel final : public tessaview::Kernel {
public:
    struct Receiver {
        tessaview::DeviceId id;
        std::string name;
        std::vector<fe_delivery_system> systems;
        int problem = 0; ///< why it cannot be opened
    };
    /// A tuning by its commands (DTV_...).
    using Tuning = std::map<std::uint32_t, std::uint32_t>;

    /// What reading packets answers, in turn: a size, or a negative error number. Then nothing
    /// comes any more, and `whenIdle` is called.
    std::deque<long> reads;
    std::function<void()> whenIdle;
    /// What waiting for packets finds when nothing comes.
    short idleEvents = 0;
    /// What choosing a PID answers, by the PID.
    std::map<std::uint16_t, int> refusals;
    std::vector<Receiver> receivers;

    /// Whether receivers lock. While the time stands still, what waits does so for ever.
    void setLocking(bool locks);
    void setTimeStill(bool isStill);

    std::vector<Tuning> tunings() const;
    std::vector<std::uint16_t> pids() const;
    bool isOpen(const std::string& path) const;

    std::vector<std::string> entries(const std::string& folder) override;
    int open(const std::string& path, int flags) override;
    int control(int file, unsigned long request, std::uintptr_t argument) override;
    long read(int file, std::span<std::uint8_t> buffer) override;
    int wait(std::span<pollfd> files, std::chrono::milliseconds limit) override;
    void close(int file) noexcept override;
    Clock::time_point now() override;

private:
    const Receiver* receiverOf(const std::string& path) const;
    static int properties(const Receiver& receiver, dtv_properties& list);
    int tune(const dtv_properties& list);

    mutable std::mutex mutex_;
    std::map<int, std::string> open_; // paths by their file
    int lastFile_ = 2;
    std::vector<Tuning> tunings_;
    std::vector<std::uint16_t> pids_;
    std::uint8_t packet_ = 0; // the byte that the packets of the next read are filled with
    bool locks_ = true;
    bool isStill_ = false;
    Clock::time_point now_{};
};

} // namespace test
