#include "core/font_pool.h"

#include "platform/memory.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <cwchar>

namespace
{
struct FontSlot {
    int32_t Uses;
    uint32_t Age; // ticket of the last creation, the lowest is the oldest
    HFONT Font;
    LOGFONTW Description;
};

struct FontPoolState {
    FontSlot* Slots; // FontPoolSize, made at the first request
    uint32_t LastTicket;
};
FontPoolState fontPool;

bool SameFont(const LOGFONTW& a, const LOGFONTW& b) noexcept
{
    return std::memcmp(&a, &b, offsetof(LOGFONTW, lfFaceName)) == 0 &&
           _wcsnicmp(a.lfFaceName, b.lfFaceName, LF_FACESIZE) == 0;
}

FontSlot* FindSlot(HFONT font) noexcept
{
    for (int i = 0; fontPool.Slots && i < FontPoolSize; ++i)
        if (fontPool.Slots[i].Font == font)
            return &fontPool.Slots[i];
    return nullptr;
}

// A free slot, or else the oldest one that nobody uses; null when every slot is in use.
FontSlot* SlotForNewFont() noexcept
{
    FontSlot* best = nullptr;
    for (int i = 0; i < FontPoolSize; ++i) {
        FontSlot& slot = fontPool.Slots[i];
        if (!slot.Font)
            return &slot;
        if (slot.Uses == 0 && (!best || slot.Age < best->Age))
            best = &slot;
    }
    return best;
}
} // namespace

HFONT AcquirePooledFont(const LOGFONTW& description) noexcept
{
    if (!fontPool.Slots)
        fontPool.Slots = static_cast<FontSlot*>(AllocateZeroed(FontPoolSize, sizeof(FontSlot)));
    if (!fontPool.Slots)
        return CreateFontIndirectW(&description);
    for (int i = 0; i < FontPoolSize; ++i) {
        FontSlot& slot = fontPool.Slots[i];
        if (slot.Font && SameFont(slot.Description, description)) {
            ++slot.Uses;
            return slot.Font;
        }
    }
    HFONT font = CreateFontIndirectW(&description);
    FontSlot* slot = font ? SlotForNewFont() : nullptr;
    if (!slot)
        return font;
    if (slot->Font)
        DeleteObject(slot->Font);
    *slot = {1, ++fontPool.LastTicket, font, description};
    return font;
}

void ReleasePooledFont(HFONT font) noexcept
{
    if (!font)
        return;
    FontSlot* slot = FindSlot(font);
    if (!slot)
        DeleteObject(font);
    else if (slot->Uses > 0)
        --slot->Uses;
}

void PurgeFontPool() noexcept
{
    bool empty = true;
    for (int i = 0; fontPool.Slots && i < FontPoolSize; ++i) {
        FontSlot& slot = fontPool.Slots[i];
        if (slot.Font && slot.Uses == 0) {
            DeleteObject(slot.Font);
            slot = {};
        }
        empty = empty && !slot.Font;
    }
    if (empty)
        FreeAndClear(fontPool.Slots);
}

int PooledFontUses(HFONT font) noexcept
{
    const FontSlot* slot = font ? FindSlot(font) : nullptr;
    return slot ? slot->Uses : -1;
}
