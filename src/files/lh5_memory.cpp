#include "files/lh5_memory.h"

#include <initializer_list>

void Lh5Memory::TakeItems() noexcept
{
    for (ItemsSize = LargestItems; ItemsSize >= SmallestItems; ItemsSize = ItemsSize * 9 / 10)
        if ((Items = Take<uint8_t>(ItemsSize)))
            return;
}

bool Lh5Memory::Allocate() noexcept
{
    TakeItems();
    if (!Items)
        return false;
    Text = Take<uint8_t>(TextSize);
    Level = Take<uint8_t>(NodeCount);
    Children = Take<uint8_t>(NodeCount);
    Position = Take<uint16_t>(NodeCount);
    Parent = Take<uint16_t>(LinkCount);
    Previous = Take<uint16_t>(LinkCount);
    Next = Take<uint16_t>(NextCount);
    return Text && Level && Children && Position && Parent && Previous && Next;
}

Lh5Memory::~Lh5Memory()
{
    for (void* block : {static_cast<void*>(Items), static_cast<void*>(Text), static_cast<void*>(Level),
                        static_cast<void*>(Children), static_cast<void*>(Position),
                        static_cast<void*>(Parent), static_cast<void*>(Previous), static_cast<void*>(Next)})
        heap_.Free(block);
}
