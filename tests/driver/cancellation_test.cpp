#include "driver/cancellation.h"

#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

using namespace tessaview;

namespace {

class Interruptible final : public Implements<Interruptible, IDriverInfo, IInterrupt> {
public:
    static ComPtr<Interruptible> make() { return ComPtr<Interruptible>::adopt(new Interruptible); }

    Status GetName(char16_t** /*name*/) noexcept override { return status::kNotImplemented; }
    Status SetInterrupted(std::int32_t interrupted) noexcept override
    {
        told += std::to_string(interrupted);
        return status::kOk;
    }
    Status QueryInterface(const Guid& iid, void** object) noexcept override
    {
        if (iid == IInterrupt::kId && lacksIt)
            return status::kNoInterface;
        return Implements::QueryInterface(iid, object);
    }

    bool lacksIt = false;
    std::string told;

private:
    friend Implements;
    Interruptible() = default;
    ~Interruptible() = default;
};

TEST(Cancellation, keepsTheDriverInterruptedWhileCancelledWorkIsUnderWay)
{
    struct Case {
        const char* steps; ///< '^' raise, 'v' lower, '!' tell the driver, '(' and ')' work
        const char* told;
    };
    const std::vector<Case> cases{
        {"()", "00"},         {"(^!)", "010"},  {"^()", "10"},  {"^!()", "10"},
        {"()^!", "00"},       {"(^!)!", "010"}, {"(^)!", "00"}, {"(^!)()", "01010"},
        {"(^!)v()", "01000"}, {"(!)", "000"},
    };
    for (const bool lacksIt : {false, true})
        for (const Case& each : cases) {
            const auto driver = Interruptible::make();
            driver->lacksIt = lacksIt;
            Cancellation cancellation(static_cast<IDriverInfo*>(driver.get()));
            std::unique_ptr<Cancellation::Work> work;
            for (const char step : std::string(each.steps))
                switch (step) {
                case '^':
                    cancellation.raise();
                    break;
                case 'v':
                    cancellation.lower();
                    break;
                case '!':
                    cancellation.tellDriver();
                    break;
                case '(':
                    work = std::make_unique<Cancellation::Work>(cancellation);
                    break;
                default:
                    work.reset();
                }
            EXPECT_EQ(driver->told, lacksIt ? "" : each.told) << each.steps;
        }
}

} // namespace
