#include "core/sink_list.h"

#include "platform/memory.h"

#include <utility>

SinkList::~SinkList()
{
    for (int slot = 0; slot < size_; ++slot)
        if (IUnknown* sink = std::exchange(slots_[slot].Sink, nullptr))
            sink->Release();
    FreeAndClear(slots_);
}

bool SinkList::Add(IUnknown* sink, uint32_t& cookie) noexcept
{
    int slot = 0;
    while (slot < size_ && slots_[slot].Sink)
        ++slot;
    if (slot == size_) {
        void* grown = ReallocateBlock(slots_, (size_ + 1) * sizeof(Slot));
        if (!grown)
            return false;
        slots_ = static_cast<Slot*>(grown);
        ++size_;
    }
    sink->AddRef();
    cookie = ++lastCookie_ ? lastCookie_ : ++lastCookie_;
    slots_[slot] = {sink, cookie};
    return true;
}

bool SinkList::Remove(uint32_t cookie) noexcept
{
    for (int slot = 0; slot < size_; ++slot)
        if (slots_[slot].Sink && slots_[slot].Cookie == cookie) {
            std::exchange(slots_[slot].Sink, nullptr)->Release();
            return true;
        }
    return false;
}
