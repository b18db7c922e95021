#include "files/lh5_encoder.h"

#include "files/crc16.h"
#include "files/lh5_block.h"
#include "files/lh5_tree.h"

#include <algorithm>
#include <cstring>

using namespace lh5;

namespace
{
class Encoder
{
public:
    Encoder(ByteReader& source, ByteWriter& output, uint64_t limit, Lh5Memory& memory) noexcept
        : source_(source), text_(memory.Text), tree_(memory), block_(memory, output, limit)
    {
    }

    Lh5Encoded Run() noexcept
    {
        std::memset(text_, 0, Lh5Memory::TextSize);
        Read(text_ + position_, Window + LongestMatch);
        tree_.Insert(position_);
        CapMatch();
        while (remaining_ > 0 && !block_.Full() && !block_.Failed())
            PutNextItem();
        block_.Finish();
        result_.PackedSize = block_.Written();
        result_.Full = block_.Full();
        result_.Failed = block_.Failed();
        return result_;
    }

private:
    void Read(uint8_t* to, int size) noexcept
    {
        size_t got = source_.Read(to, static_cast<size_t>(size));
        result_.Crc = UpdateCrc16(result_.Crc, to, got);
        result_.SourceSize += got;
        remaining_ += static_cast<int>(got);
    }

    // A match found here may be longer than what is left of the source.
    void CapMatch() noexcept { tree_.MatchLength = std::min(tree_.MatchLength, remaining_); }

    void MoveWindow() noexcept
    {
        std::memmove(text_, text_ + Window, Window + LongestMatch);
        Read(text_ + Window + LongestMatch, Window);
        position_ = Window;
    }

    void Advance() noexcept
    {
        --remaining_;
        if (++position_ == 2 * Window)
            MoveWindow();
        tree_.Remove(position_);
        tree_.Insert(position_);
    }

    // A match is put only if the one that begins a byte later is not longer.
    void PutNextItem() noexcept
    {
        int length = tree_.MatchLength, match = tree_.MatchPosition;
        Advance();
        CapMatch();
        if (tree_.MatchLength > length || length < ShortestMatch) {
            block_.PutLiteral(text_[position_ - 1]);
            return;
        }
        block_.PutMatch(length, static_cast<unsigned>(position_ - match - 2) & (Window - 1));
        for (int left = length - 1; left > 0; --left)
            Advance();
        CapMatch();
    }

    ByteReader& source_;
    uint8_t* text_; // the window, the position in the middle of it, what is read ahead
    Lh5Tree tree_;
    Lh5BlockWriter block_;
    int position_ = Window;
    int remaining_ = 0; // bytes of the source from the position on
    Lh5Encoded result_;
};
} // namespace

Lh5Encoded EncodeLh5(ByteReader& source, ByteWriter& output, uint64_t limit, Lh5Memory& memory) noexcept
{
    return Encoder(source, output, limit, memory).Run();
}
