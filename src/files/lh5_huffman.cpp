#include "files/lh5_huffman.h"

#include <algorithm>

using namespace lh5;

namespace
{
struct HeapEntry {
    unsigned Frequency;
    uint16_t Node; // a symbol, or an inner node behind the symbols
};

bool IsRarer(const HeapEntry& x, const HeapEntry& y) noexcept
{
    return x.Frequency > y.Frequency || (x.Frequency == y.Frequency && x.Node > y.Node);
}

class CodeBuilder
{
public:
    CodeBuilder(const uint16_t* frequency, int count, HuffmanCode& code) noexcept : count_(count), code_(code)
    {
        for (int symbol = 0; symbol < count; ++symbol)
            if (frequency[symbol])
                heap_[size_++] = {frequency[symbol], static_cast<uint16_t>(symbol)};
    }

    void Run() noexcept
    {
        std::fill_n(code_.Length, count_, uint8_t{0});
        if (size_ < 2) {
            code_.Single = size_ ? heap_[0].Node : 0;
            code_.Total = size_ ? heap_[0].Frequency : 0;
            return;
        }
        code_.Single = HuffmanCode::Several;
        JoinRarest();
        CountDepths();
        RepairOverflow();
        GiveLengths();
        GiveCodes();
    }

private:
    HeapEntry Pop() noexcept
    {
        std::pop_heap(heap_, heap_ + size_, IsRarer);
        HeapEntry rarest = heap_[--size_];
        if (rarest.Node < count_)
            byRarity_[leaves_++] = rarest.Node;
        return rarest;
    }

    // Joins the two rarest nodes until one is left.
    void JoinRarest() noexcept
    {
        std::make_heap(heap_, heap_ + size_, IsRarer);
        while (size_ > 1) {
            HeapEntry first = Pop(), second = Pop();
            auto node = static_cast<uint16_t>(count_ + inner_);
            children_[inner_][0] = first.Node;
            children_[inner_][1] = second.Node;
            ++inner_;
            heap_[size_++] = {first.Frequency + second.Frequency, node};
            std::push_heap(heap_, heap_ + size_, IsRarer);
        }
        code_.Total = heap_[0].Frequency;
    }

    // How many leaves there are at each depth; deeper ones count at the longest code.
    void CountDepths() noexcept
    {
        uint8_t depth[ItemCodes];
        depth[inner_ - 1] = 0;
        for (int node = inner_ - 1; node >= 0; --node) // an inner node is younger than its children
            for (uint16_t child : children_[node]) {
                auto below = static_cast<uint8_t>(depth[node] + 1);
                if (child >= count_)
                    depth[child - count_] = below;
                else
                    ++leavesAt_[std::min<int>(below, LongestCode)];
            }
    }

    // Codes that were cut short claim too much room: leaves move down until it is just enough.
    void RepairOverflow() noexcept
    {
        unsigned room = 0;
        for (int length = 1; length <= LongestCode; ++length)
            room += static_cast<unsigned>(leavesAt_[length]) << (LongestCode - length);
        for (; room > 1u << LongestCode; --room) {
            --leavesAt_[LongestCode];
            int length = LongestCode - 1;
            while (!leavesAt_[length])
                --length;
            --leavesAt_[length];
            leavesAt_[length + 1] += 2;
        }
    }

    // The rarest symbols get the longest codes.
    void GiveLengths() noexcept
    {
        int next = 0;
        for (int length = LongestCode; length > 0; --length)
            for (int i = 0; i < leavesAt_[length]; ++i)
                code_.Length[byRarity_[next++]] = static_cast<uint8_t>(length);
    }

    void GiveCodes() noexcept
    {
        unsigned start[LongestCode + 1] = {};
        for (int length = 1; length < LongestCode; ++length)
            start[length + 1] = (start[length] + static_cast<unsigned>(leavesAt_[length])) << 1;
        for (int symbol = 0; symbol < count_; ++symbol)
            code_.Code[symbol] = static_cast<uint16_t>(start[code_.Length[symbol]]++);
    }

    int count_;
    HuffmanCode& code_;
    HeapEntry heap_[ItemCodes];
    int size_ = 0;
    uint16_t children_[ItemCodes][2];
    int inner_ = 0;
    uint16_t byRarity_[ItemCodes];
    int leaves_ = 0;
    int leavesAt_[LongestCode + 1] = {};
};
} // namespace

int HuffmanCode::UsedCount(int count) const noexcept
{
    while (count > 0 && !Length[count - 1])
        --count;
    return count;
}

void BuildHuffmanCode(const uint16_t* frequency, int count, HuffmanCode& code) noexcept
{
    CodeBuilder(frequency, count, code).Run();
}
