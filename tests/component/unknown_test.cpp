#include "component/unknown.h"

#include <gtest/gtest.h>

using namespace tessaview;

namespace {

struct IFirst : IUnknown {
    static constexpr Guid kId = "{00000001-0000-0000-0000-000000000000}"_guid;
    virtual Status First() noexcept = 0;

protected:
    ~IFirst() = default;
};

struct ISecond : IUnknown {
    static constexpr Guid kId = "{00000002-0000-0000-0000-000000000000}"_guid;
    virtual Status Second() noexcept = 0;

protected:
    ~ISecond() = default;
};

struct IForeign : IUnknown {
    static constexpr Guid kId = "{00000003-0000-0000-0000-000000000000}"_guid;
};

class Thing final : public Implements<Thing, IFirst, ISecond> {
public:
    explicit Thing(int& living) : living_(living) { ++living_; }
    ~Thing() { --living_; }
    Status First() noexcept override { return 1; }
    Status Second() noexcept override { return 2; }

private:
    int& living_;
};

/// Says yes to everything and gives nothing.
class Liar final : public Implements<Liar, IFirst> {
public:
    Status First() noexcept override { return status::kOk; }
    Status QueryInterface(const Guid& /*iid*/, void** /*object*/) noexcept override
    {
        return status::kOk;
    }
};

TEST(Component, answersToEachOfItsInterfacesAndToOneIdentity)
{
    int living = 0;
    {
        const auto first = ComPtr<IFirst>::adopt(new Thing(living));
        ComPtr<ISecond> second;
        ASSERT_EQ(query(first, second), status::kOk);
        EXPECT_EQ(second->Second(), 2);
        ComPtr<IFirst> back;
        ASSERT_EQ(query(second, back), status::kOk);
        EXPECT_EQ(back->First(), 1);
        ComPtr<IUnknown> one;
        ComPtr<IUnknown> other;
        ASSERT_EQ(query(first, one), status::kOk);
        ASSERT_EQ(query(second, other), status::kOk);
        EXPECT_EQ(one.get(), other.get());
    }
    EXPECT_EQ(living, 0);
}

TEST(Component, livesAsLongAsItsLastReference)
{
    int living = 0;
    auto object = ComPtr<IFirst>::adopt(new Thing(living));
    const ComPtr<IFirst>& same = object;
    object = same;
    ComPtr<IFirst> copy = object;
    ComPtr<IFirst> shared = ComPtr<IFirst>::share(object.get());
    const ComPtr<IFirst> moved = std::move(copy);
    object = shared;
    object.reset();
    IFirst* const detached = shared.detach();
    EXPECT_EQ(detached->AddRef(), 3U);
    EXPECT_EQ(detached->Release(), 2U);
    EXPECT_EQ(detached->Release(), 1U);
    EXPECT_EQ(living, 1);
}

TEST(Component, leavesNothingWhenTheQueryFails)
{
    int living = 0;
    const auto object = ComPtr<IFirst>::adopt(new Thing(living));
    auto foreign = ComPtr<IForeign>();
    EXPECT_EQ(query(object, foreign), status::kNoInterface);
    EXPECT_FALSE(foreign);
    EXPECT_EQ(object->QueryInterface(IFirst::kId, nullptr), status::kNullPointer);

    const auto liar = ComPtr<IFirst>::adopt(new Liar);
    ComPtr<ISecond> second;
    EXPECT_TRUE(failed(query(liar, second)));
    EXPECT_FALSE(second);
    EXPECT_TRUE(failed(query(static_cast<IUnknown*>(nullptr), second)));
}

TEST(Component, turnsWhatAnOperationThrowsIntoAStatus)
{
    EXPECT_EQ(guarded([]() -> Status { throw std::bad_alloc(); }), status::kOutOfMemory);
    EXPECT_EQ(guarded([]() -> Status { throw 1; }), status::kUnexpected);
    EXPECT_EQ(guarded([] { return status::kFalse; }), status::kFalse);
}

} // namespace
