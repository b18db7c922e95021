#include "files/lh5_tree.h"

#include <algorithm>
#include <bit>
#include <cstring>

using namespace lh5;

namespace
{
// The real place of a position that is kept as one in the upper half of the text.
int Behind(int kept, int position) noexcept
{
    return kept >= position ? kept - Window : kept;
}
} // namespace

Lh5Tree::Lh5Tree(Lh5Memory& memory) noexcept : m_(memory)
{
    for (int root = Window; root < Window + Literals; ++root) {
        m_.Level[root] = 1;
        m_.Position[root] = None;
    }
    std::fill(m_.Parent + Window, m_.Parent + 2 * Window, None);
    std::fill(m_.Next + 2 * Window, m_.Next + Lh5Memory::NextCount, None);
    unused_ = 1;
    for (int node = 1; node < Window; ++node)
        m_.Next[node] = static_cast<Node>(node + 1 < Window ? node + 1 : None);
}

Lh5Tree::Node Lh5Tree::Child(Node parent, uint8_t byte) noexcept
{
    Node node = m_.Next[Hash(parent, byte)];
    m_.Parent[None] = parent; // ends the walk
    while (m_.Parent[node] != parent)
        node = m_.Next[node];
    return node;
}

void Lh5Tree::Link(Node node, Node parent, uint8_t byte) noexcept
{
    Node head = Hash(parent, byte);
    Node next = m_.Next[head];
    m_.Next[head] = node;
    m_.Next[node] = next;
    m_.Previous[next] = node;
    m_.Previous[node] = head;
    m_.Parent[node] = parent;
    ++m_.Children[parent];
}

void Lh5Tree::Unlink(Node node) noexcept
{
    Node previous = m_.Previous[node], next = m_.Next[node];
    m_.Next[previous] = next;
    m_.Previous[next] = previous;
}

// `node` becomes the child that `old` was.
void Lh5Tree::TakePlaceOf(Node old, Node node) noexcept
{
    Node previous = m_.Previous[old], next = m_.Next[old];
    m_.Next[previous] = node;
    m_.Previous[node] = previous;
    m_.Next[node] = next;
    m_.Previous[next] = node;
    m_.Parent[node] = m_.Parent[old];
    m_.Parent[old] = None;
}

void Lh5Tree::AddLeaf(Node parent, uint8_t byte, int position) noexcept
{
    Link(static_cast<Node>(position), parent, byte);
}

// The string at `position` and those under `node` part at MatchLength.
void Lh5Tree::Split(Node node, int position) noexcept
{
    Node fork = unused_;
    unused_ = m_.Next[fork];
    m_.Children[fork] = 0;
    TakePlaceOf(node, fork);
    m_.Level[fork] = static_cast<uint8_t>(MatchLength);
    m_.Position[fork] = static_cast<uint16_t>(position);
    Link(node, fork, m_.Text[MatchPosition + MatchLength]);
    Link(static_cast<Node>(position), fork, m_.Text[position + MatchLength]);
}

// The strings are the same as far as a match can be: only the newer one is kept. The old leaf leads to it.
void Lh5Tree::Replace(Node leaf, int position) noexcept
{
    TakePlaceOf(leaf, static_cast<Node>(position));
    m_.Next[leaf] = static_cast<Node>(position);
}

// What matched before, less its first byte, matches again: the node to go on from.
Lh5Tree::Node Lh5Tree::StartFromLastMatch(int position) noexcept
{
    --MatchLength;
    auto node = static_cast<Node>((MatchPosition + 1) | Window);
    while (m_.Parent[node] == None)
        node = m_.Next[node];
    while (m_.Level[m_.Parent[node]] >= MatchLength)
        node = m_.Parent[node];
    Refresh(m_.Parent[node], position);
    return node;
}

// Every second visit of a node is passed on to its parent, so that no node is ever left with a position that
// has gone from the window.
void Lh5Tree::Refresh(Node node, int position) noexcept
{
    for (; m_.Position[node] & Fresh; node = m_.Parent[node])
        m_.Position[node] = static_cast<uint16_t>(position);
    if (IsInner(node))
        m_.Position[node] = static_cast<uint16_t>(position | Fresh);
}

void Lh5Tree::ExtendMatch(int position, int limit) noexcept
{
    const uint8_t* text = m_.Text + position;
    const uint8_t* match = m_.Text + MatchPosition;
    int length = MatchLength;
    for (; length + 8 <= limit; length += 8) {
        uint64_t x, y;
        std::memcpy(&x, text + length, sizeof x);
        std::memcpy(&y, match + length, sizeof y);
        if (x != y) {
            MatchLength = length + std::countr_zero(x ^ y) / 8;
            return;
        }
    }
    while (length < limit && text[length] == match[length])
        ++length;
    MatchLength = length;
}

void Lh5Tree::Insert(int position) noexcept
{
    const uint8_t* text = m_.Text + position;
    Node node;
    if (MatchLength > ShortestMatch) {
        node = StartFromLastMatch(position);
    } else {
        auto root = static_cast<Node>(text[0] + Window);
        node = Child(root, text[1]);
        if (node == None) {
            AddLeaf(root, text[1], position);
            MatchLength = 1;
            return;
        }
        MatchLength = 2;
    }
    for (;;) {
        int level = IsInner(node) ? m_.Level[node] : LongestMatch;
        MatchPosition = Behind(IsInner(node) ? m_.Position[node] & ~Fresh : node, position);
        ExtendMatch(position, level);
        if (MatchLength < level) {
            Split(node, position);
            return;
        }
        if (MatchLength >= LongestMatch) {
            Replace(node, position);
            return;
        }
        m_.Position[node] = static_cast<uint16_t>(position);
        uint8_t byte = text[MatchLength];
        Node child = Child(node, byte);
        if (child == None) {
            AddLeaf(node, byte, position);
            return;
        }
        node = child;
        ++MatchLength;
    }
}

// Tells the parents of a node that goes of its visit.
void Lh5Tree::PassVisitUp(Node node, int visit, int position) noexcept
{
    auto newer = [&](Node parent) {
        visit = std::max(visit, Behind(m_.Position[parent] & ~Fresh, position));
        return static_cast<uint16_t>(visit | Window);
    };
    Node parent = m_.Parent[node];
    for (; m_.Position[parent] & Fresh; parent = m_.Parent[parent])
        m_.Position[parent] = newer(parent);
    if (IsInner(parent))
        m_.Position[parent] = newer(parent) | Fresh;
}

// A node with one child left gives its place to the child.
void Lh5Tree::MergeIntoChild(Node node, int position) noexcept
{
    int visit = Behind(m_.Position[node] & ~Fresh, position);
    PassVisitUp(node, visit, position);
    Node child = Child(node, m_.Text[visit + m_.Level[node]]);
    Unlink(child);
    TakePlaceOf(node, child);
    m_.Next[node] = unused_;
    unused_ = node;
}

void Lh5Tree::Remove(int position) noexcept
{
    auto leaf = static_cast<Node>(position);
    Node parent = m_.Parent[leaf];
    if (parent == None)
        return;
    Unlink(leaf);
    m_.Parent[leaf] = None;
    if (IsInner(parent) && --m_.Children[parent] <= 1)
        MergeIntoChild(parent, position);
}
