#pragma once

#include <objbase.h>

#include <utility>

// Owner of one counted reference to a COM object.
template<class T> class ComPtr
{
public:
    ComPtr() noexcept = default;
    ComPtr(std::nullptr_t) noexcept {}
    // Takes a reference of its own.
    explicit ComPtr(T* object) noexcept : object_(object)
    {
        if (object_)
            object_->AddRef();
    }
    ComPtr(const ComPtr& other) noexcept : ComPtr(other.object_) {}
    ComPtr(ComPtr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    ~ComPtr() { Reset(); }

    ComPtr& operator=(ComPtr other) noexcept
    {
        std::swap(object_, other.object_);
        return *this;
    }

    T* Get() const noexcept { return object_; }
    T* operator->() const noexcept { return object_; }
    explicit operator bool() const noexcept { return object_ != nullptr; }

    void Reset() noexcept
    {
        if (T* old = std::exchange(object_, nullptr))
            old->Release();
    }
    // Hands the reference to the caller.
    [[nodiscard]] T* Detach() noexcept { return std::exchange(object_, nullptr); }
    // Takes over a reference that the caller holds.
    void Attach(T* object) noexcept
    {
        Reset();
        object_ = object;
    }
    // For out arguments; gives up the present reference first.
    [[nodiscard]] T** Put() noexcept
    {
        Reset();
        return &object_;
    }
    [[nodiscard]] void** PutVoid() noexcept { return reinterpret_cast<void**>(Put()); }

private:
    T* object_ = nullptr;
};

// Asks `from` for the interface `iid`; empty when there is none.
template<class T> ComPtr<T> QueryFor(IUnknown* from, REFIID iid) noexcept
{
    ComPtr<T> result;
    if (from && FAILED(from->QueryInterface(iid, result.PutVoid())))
        return {};
    return result;
}

// Stores a counted reference in a plain field, releasing the one that was there.
template<class T> void ReplaceReference(T*& field, T* object) noexcept
{
    if (object)
        object->AddRef();
    if (T* old = std::exchange(field, object))
        old->Release();
}
