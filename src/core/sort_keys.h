#pragma once
// Keys made once per row, so that a sort need not convert or collate a text at every comparison.

#include "core/grid_object.h"

#include <cstddef>
#include <cstdint>

// The collation key of a text, as LCMapStringW makes it: comparing keys byte by byte gives the order that
// CompareStringW gives the texts.
struct CollationKey {
    uint64_t Prefix; // the first eight bytes, so that most comparisons end here
    size_t Offset;   // of the rest, in the arena
    uint32_t Length; // of the rest
};

// What a sort run has computed ahead, one entry per row of the run, in the order of the rows. Each array is
// null when it is not used or there was no memory for it.
struct RowKeys {
    RowKeys() noexcept = default;
    RowKeys(const RowKeys&) = delete;
    RowKeys& operator=(const RowKeys&) = delete;
    ~RowKeys();

    void Swap(int a, int b) noexcept;

    int* OriginalIndex = nullptr;
    double* Numbers = nullptr;
    CollationKey* Texts = nullptr;
    uint8_t* Arena = nullptr;
};

// Each fills its array for rows `first` to `last`; without memory the array stays null.
void MakeOriginalIndex(RowKeys& keys, int first, int last) noexcept;
// Numbers or dates of a column; an empty cell gets the smallest key.
void MakeNumberKeys(RowKeys& keys, Grid& grid, int first, int last, int col, bool dates) noexcept;
void MakeCollationKeys(RowKeys& keys, Grid& grid, int first, int last, int col, DWORD flags) noexcept;

int CompareCollationKeys(const RowKeys& keys, int a, int b) noexcept;

// The places of `count` rows (counted from the first of the run) in the order of their number or text keys,
// the present order between equal ones; `direction` is 1 or -1. Null without keys or memory, and when a key
// is not a number, since such keys have no order. The caller frees it with FreeBlock.
int* OrderByKeys(const RowKeys& keys, int count, int direction) noexcept;
