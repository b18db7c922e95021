#pragma once

#include "files/lh5_memory.h"

// Finds the longest match of the text at a position among the strings that began in the window before it.
//
// A PATRICIA tree of the window's strings. A leaf is the position of a string, in the upper half of the
// text; an inner node (1 to Window - 1) is where strings part, at its level, and remembers the position of
// its most recent visit; the roots (Window and up, one per first byte) are parents only. The child of a
// parent under a byte is found through a hash.
class Lh5Tree
{
public:
    // Empties the tree of the text in `memory`, which is not looked at yet.
    explicit Lh5Tree(Lh5Memory& memory) noexcept;

    // Enters the string at `position`, in the upper half of the text, and finds its match. The string that
    // this position held before must have been removed.
    void Insert(int position) noexcept;
    // Removes the string that is a window behind `position`.
    void Remove(int position) noexcept;

    // The match of the last string entered; 0 to 2 bytes are none.
    int MatchLength = 0;
    int MatchPosition = 0;

private:
    using Node = uint16_t;
    static constexpr Node None = 0;
    // On the position of an inner node: its parents have not been told of the visit.
    static constexpr uint16_t Fresh = 0x8000;

    static bool IsInner(Node node) noexcept { return node < lh5::Window; }
    static Node Hash(Node parent, uint8_t byte) noexcept
    {
        return static_cast<Node>(parent + (byte << Lh5Memory::HashShift) + 2 * lh5::Window);
    }
    Node Child(Node parent, uint8_t byte) noexcept;
    void Link(Node node, Node parent, uint8_t byte) noexcept;
    void Unlink(Node node) noexcept;
    void TakePlaceOf(Node old, Node node) noexcept;
    void AddLeaf(Node parent, uint8_t byte, int position) noexcept;
    void Split(Node node, int position) noexcept;
    void Replace(Node leaf, int position) noexcept;
    Node StartFromLastMatch(int position) noexcept;
    void Refresh(Node node, int position) noexcept;
    void PassVisitUp(Node node, int visit, int position) noexcept;
    void MergeIntoChild(Node node, int position) noexcept;
    // How far the text at `position` and at the match agree, up to `limit`.
    void ExtendMatch(int position, int limit) noexcept;

    Lh5Memory& m_;
    Node unused_ = None; // the first free inner node; the others follow by Next
};
