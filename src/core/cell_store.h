#pragma once
// Cell texts and formats: what hangs off the rows. An unused row has no cells, an unused cell no text and
// no format.

#include "core/errors.h"
#include "core/grid_object.h"

// Longest text that passes the scratch buffer, in UTF-16 units without the terminator.
constexpr int ScratchCapacity = 65536;

// The process-wide buffers through which bound and formatted text are returned. A pointer into the first
// stays good until the next text request. The second holds a text while another one is asked for.
wchar_t* ScratchText() noexcept;
wchar_t* SecondScratchText() noexcept;
// Copies `text` (null: empty) into the buffer, cut at ScratchCapacity. The text may lie in the buffer itself.
wchar_t* CopyToScratch(const wchar_t* text) noexcept;
wchar_t* CopyToSecondScratch(const wchar_t* text) noexcept;

// The slow branch of GetCellText.
const wchar_t* GetSourceText(Grid& grid, int row, int col) noexcept;

// The cell's text or null. No range check. The pointer is borrowed and may be the scratch buffer.
inline const wchar_t* GetCellText(Grid& grid, int row, int col) noexcept
{
    if (grid.BoundKind != BoundNone || grid.LorvDataSource) [[unlikely]]
        return GetSourceText(grid, row, col);
    const CellRecord* cells = grid.RowTable[row].Cells;
    return cells ? cells[col].Text : nullptr;
}

// Where the text of a cell lives.
enum class TextSource { OwnStore, Custom, OtherGrid, Array };
TextSource TextSourceOf(const Grid& grid, int row, int col) noexcept;

// Stores the first `length` characters of `text` (all of it when negative, nothing when 0 or null), fires
// CellChanged when that changed something. No repaint. LORV_E_INDEX, LORV_E_MEMORY (the cell is then
// empty), or the code of the text source.
HRESULT SetCellText(Grid& grid, int row, int col, const wchar_t* text, int length = -1);

// Allocates the row's cells if it has none; 0 or LORV_E_MEMORY.
HRESULT EnsureRowCells(Grid& grid, int row) noexcept;
// The cell's format, made if it has none; null when there is no memory.
CellFormat* EnsureCellFormat(Grid& grid, int row, int col) noexcept;
// Null when the cell has none. No range check.
inline CellFormat* CellFormatOf(const Grid& grid, int row, int col) noexcept
{
    const CellRecord* cells = grid.RowTable[row].Cells;
    return cells ? cells[col].Format : nullptr;
}

// Frees what a ClearWhatSettings value names.
void FreeCellContents(Grid& grid, int row, int col, int what) noexcept;
// Empties a format record: its font goes back to the pool, its picture and data are released.
void ReleaseCellFormat(CellFormat& format) noexcept;

// Stores a copy of `value`, by-reference values followed, in a heap variant made at first use.
// LORV_E_MEMORY or the code of VariantCopy.
HRESULT StoreHeapVariant(VARIANT*& slot, const VARIANT& value) noexcept;
void FreeHeapVariant(VARIANT*& slot) noexcept;
// Replaces an owned text by a copy of `text`; a null or empty text clears it. 0 or LORV_E_MEMORY.
HRESULT ReplaceText(wchar_t*& slot, const wchar_t* text) noexcept;
