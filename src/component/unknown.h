#pragma once

#include "component/guid.h"
#include "component/status.h"

#include <atomic>
#include <cstdint>
#include <new>
#include <utility>

namespace tessaview {

/// The three standard slots every interface begins with. Interfaces have no virtual destructor:
/// it would take slots of its own.
struct IUnknown {
    static constexpr Guid kId = "{00000000-0000-0000-C000-000000000046}"_guid;

    virtual Status QueryInterface(const Guid& iid, void** object) noexcept = 0;
    virtual std::uint32_t AddRef() noexcept = 0;
    virtual std::uint32_t Release() noexcept = 0;

protected:
    ~IUnknown() = default;
};

/// Owns one reference to a component object.
template <class Interface>
class ComPtr {
public:
    ComPtr() = default;
    ComPtr(std::nullptr_t) {} // NOLINT(google-explicit-constructor): null is a ComPtr
    ComPtr(const ComPtr& other) : object_(other.object_)
    {
        if (object_)
            object_->AddRef();
    }
    ComPtr(ComPtr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    ComPtr& operator=(ComPtr other) noexcept
    {
        std::swap(object_, other.object_);
        return *this;
    }
    ~ComPtr() { reset(); }

    /// Takes over a reference that the caller already holds.
    static ComPtr adopt(Interface* object)
    {
        ComPtr pointer;
        pointer.object_ = object;
        return pointer;
    }
    /// Shares an object that stays the caller's.
    static ComPtr share(Interface* object)
    {
        if (object)
            object->AddRef();
        return adopt(object);
    }

    Interface* get() const { return object_; }
    Interface* operator->() const { return object_; }
    explicit operator bool() const { return object_ != nullptr; }
    Interface* detach() { return std::exchange(object_, nullptr); }
    void reset()
    {
        if (Interface* object = std::exchange(object_, nullptr))
            object->Release();
    }

private:
    Interface* object_ = nullptr;
};

/// Asks an object for another of its interfaces. A null object, a failure and a success that
/// yields nothing all give a failure status and leave `out` null.
template <class Interface>
Status query(IUnknown* object, ComPtr<Interface>& out)
{
    out.reset();
    if (!object)
        return status::kNullPointer;
    void* found = nullptr;
    const Status result = object->QueryInterface(Interface::kId, &found);
    if (failed(result))
        return result;
    if (!found)
        return status::kNoInterface;
    out = ComPtr<Interface>::adopt(static_cast<Interface*>(found));
    return result;
}

template <class Interface, class From>
Status query(const ComPtr<From>& object, ComPtr<Interface>& out)
{
    return query(static_cast<IUnknown*>(object.get()), out);
}

/// The base of a component class written in C++: reference count and interface query over the
/// listed interfaces. The object deletes itself with its last reference.
template <class Self, class First, class... More>
class Implements : public First, public More... {
public:
    Implements(const Implements&) = delete;
    Implements& operator=(const Implements&) = delete;

    Status QueryInterface(const Guid& iid, void** object) noexcept override
    {
        if (!object)
            return status::kNullPointer;
        *object = nullptr;
        if (iid == IUnknown::kId || iid == First::kId)
            *object = static_cast<First*>(this);
        else
            static_cast<void>(((iid == More::kId && (*object = static_cast<More*>(this))) || ...));
        if (!*object)
            return status::kNoInterface;
        AddRef();
        return status::kOk;
    }
    std::uint32_t AddRef() noexcept override { return ++references_; }
    std::uint32_t Release() noexcept override
    {
        const std::uint32_t left = --references_;
        if (left == 0)
            delete static_cast<Self*>(this);
        return left;
    }

protected:
    Implements() = default;
    ~Implements() = default;

private:
    std::atomic<std::uint32_t> references_{1};
};

/// Runs the body of an interface operation and turns what it throws into a status.
template <class Body>
Status guarded(Body body) noexcept
{
    try {
        return body();
    } catch (const std::bad_alloc&) {
        return status::kOutOfMemory;
    } catch (...) {
        return status::kUnexpected;
    }
}

} // namespace tessaview
