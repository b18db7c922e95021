#pragma once

#include <unknwn.h>

#include <cstdint>

// The sinks of one connection point. A sink that leaves makes a hole, and the next one that comes fills
// it, so that slot numbers stay good while events are out.
class SinkList
{
public:
    SinkList() noexcept = default;
    SinkList(const SinkList&) = delete;
    SinkList& operator=(const SinkList&) = delete;
    ~SinkList();

    // Takes a counted reference. False when there is no memory. `cookie` is never 0.
    [[nodiscard]] bool Add(IUnknown* sink, uint32_t& cookie) noexcept;
    // False for a cookie that is not connected.
    bool Remove(uint32_t cookie) noexcept;

    // Slots, holes included.
    int Size() const noexcept { return size_; }
    // Null for a hole and for a slot that is no longer there.
    IUnknown* At(int slot) const noexcept { return slot < size_ ? slots_[slot].Sink : nullptr; }
    uint32_t CookieAt(int slot) const noexcept { return slot < size_ ? slots_[slot].Cookie : 0; }

private:
    struct Slot {
        IUnknown* Sink;
        uint32_t Cookie;
    };
    Slot* slots_ = nullptr;
    int size_ = 0;
    uint32_t lastCookie_ = 0;
};
