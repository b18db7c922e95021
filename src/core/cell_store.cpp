#include "core/cell_store.h"

#include "core/events.h"
#include "core/font_pool.h"
#include "core/upcalls.h"
#include "platform/memory.h"
#include "platform/variant.h"

#include <algorithm>
#include <cwchar>
#include <utility>

namespace
{
// Process-wide, safe because every grid of the process lives on one thread.
struct CellStoreState {
    wchar_t Scratch[ScratchCapacity + 1];
    wchar_t SecondScratch[ScratchCapacity + 1];
    bool CellChangedRunning;
};
CellStoreState cellStore;

wchar_t* CopyCapped(wchar_t* buffer, const wchar_t* text, int limit = ScratchCapacity) noexcept
{
    size_t length = text ? wcsnlen(text, std::min(limit, ScratchCapacity)) : 0;
    if (length)
        std::wmemmove(buffer, text, length);
    buffer[length] = 0;
    return buffer;
}

bool IsEmpty(const wchar_t* text, int length = -1) noexcept
{
    return !text || length == 0 || !*text;
}

// What `lstrcmpW` says of two texts of which the second ends after `length` characters.
bool SameText(const wchar_t* present, const wchar_t* text, int length) noexcept
{
    size_t presentLength = std::wcslen(present);
    size_t textLength = length < 0 ? std::wcslen(text) : wcsnlen(text, length);
    if (presentLength == textLength && std::wmemcmp(present, text, textLength) == 0)
        return true;
    return CompareStringW(LOCALE_USER_DEFAULT, 0, present, static_cast<int>(presentLength), text,
                          static_cast<int>(textLength)) == CSTR_EQUAL;
}

HRESULT StoreOwnText(Grid& grid, int row, int col, const wchar_t* text, int length) noexcept
{
    wchar_t* copy = nullptr;
    HRESULT result = S_OK;
    if (!IsEmpty(text, length)) {
        result = EnsureRowCells(grid, row);
        if (SUCCEEDED(result)) {
            copy = DuplicateText(text, length < 0 ? std::wcslen(text) : wcsnlen(text, length));
            result = copy ? S_OK : LORV_E_MEMORY;
        }
    }
    if (CellRecord* cells = grid.RowTable[row].Cells) {
        FreeBlock(cells[col].Text); // after the copy: `text` may point into it
        cells[col].Text = copy;
    }
    return result;
}

HRESULT StoreSourceText(Grid& grid, TextSource source, int row, int col, const wchar_t* text, int length)
{
    if (length >= 0)
        text = CopyCapped(cellStore.SecondScratch, text, length);
    switch (source) {
    case TextSource::Custom:
        return WriteCustomSource(grid, row, col, text);
    case TextSource::Array:
        return WriteBoundArray(grid, row, col, text);
    default:
        return grid.BoundGrid ? SetCellText(*grid.BoundGrid, row, col, text) : LORV_E_INDEX;
    }
}

void ReportCellChanged(Grid& grid, int row, int col)
{
    if (cellStore.CellChangedRunning || grid.EventSinks.Size() == 0)
        return;
    cellStore.CellChangedRunning = true;
    event::CellChanged(grid, row, col);
    cellStore.CellChangedRunning = false;
}
} // namespace

wchar_t* ScratchText() noexcept
{
    return cellStore.Scratch;
}
wchar_t* SecondScratchText() noexcept
{
    return cellStore.SecondScratch;
}
wchar_t* CopyToScratch(const wchar_t* text) noexcept
{
    return CopyCapped(cellStore.Scratch, text);
}
wchar_t* CopyToSecondScratch(const wchar_t* text) noexcept
{
    return CopyCapped(cellStore.SecondScratch, text);
}

TextSource TextSourceOf(const Grid& grid, int row, int col) noexcept
{
    if (grid.LorvDataSource && row >= grid.FixedRows)
        return TextSource::Custom;
    if (grid.BoundKind == BoundToGrid)
        return TextSource::OtherGrid;
    if (grid.BoundKind != BoundNone && !IsFixedCell(grid, row, col))
        return TextSource::Array;
    return TextSource::OwnStore;
}

const wchar_t* GetSourceText(Grid& grid, int row, int col) noexcept
{
    switch (TextSourceOf(grid, row, col)) {
    case TextSource::Custom:
        return grid.Closing ? nullptr : ReadCustomSource(grid, row, col);
    case TextSource::OtherGrid:
        return grid.BoundGrid && IsCell(*grid.BoundGrid, row, col) ? GetCellText(*grid.BoundGrid, row, col)
                                                                   : nullptr;
    case TextSource::Array:
        return ReadBoundArray(grid, row, col);
    case TextSource::OwnStore:
        break;
    }
    const CellRecord* cells = grid.RowTable[row].Cells;
    return cells ? cells[col].Text : nullptr;
}

namespace
{
bool IsChange(const wchar_t* present, const wchar_t* text, int length) noexcept
{
    if (present == text)
        return false;
    if (IsEmpty(present))
        return !IsEmpty(text, length);
    return IsEmpty(text, length) || !SameText(present, text, length);
}

void BeginChange(Grid& grid, int row) noexcept
{
    if (grid.RowTable[row].Status == lorvrsNew)
        grid.RowTable[row].Status = lorvrsUpdated;
    MarkMergeStale(grid);
}

void FinishChange(Grid& grid, int row, int col, HRESULT result)
{
    if (grid.ColTable[col].ColDataType == lorvDTBoolean && row >= grid.FixedRows)
        if (CellRecord* cells = grid.RowTable[row].Cells)
            cells[col].State &= MergeLinkMask;
    if (result == S_OK)
        ReportCellChanged(grid, row, col);
}

// A source can change the grid, at reading too.
HRESULT SetSourceText(Grid& grid, int row, int col, const wchar_t* text, int length)
{
    KeepAlive alive(grid);
    if (!IsChange(GetCellText(grid, row, col), text, length) || !IsCell(grid, row, col))
        return S_OK;
    BeginChange(grid, row);
    TextSource source = TextSourceOf(grid, row, col);
    HRESULT result = source == TextSource::OwnStore ? StoreOwnText(grid, row, col, text, length)
                                                    : StoreSourceText(grid, source, row, col, text, length);
    if (IsCell(grid, row, col))
        FinishChange(grid, row, col, result);
    return result;
}
} // namespace

// In the own store no foreign code runs before the event, and nothing is looked at after it.
HRESULT SetCellText(Grid& grid, int row, int col, const wchar_t* text, int length)
{
    if (!IsCell(grid, row, col))
        return LORV_E_INDEX;
    if (TextSourceOf(grid, row, col) != TextSource::OwnStore) [[unlikely]]
        return SetSourceText(grid, row, col, text, length);
    const CellRecord* cells = grid.RowTable[row].Cells;
    if (!IsChange(cells ? cells[col].Text : nullptr, text, length))
        return S_OK;
    BeginChange(grid, row);
    HRESULT result = StoreOwnText(grid, row, col, text, length);
    FinishChange(grid, row, col, result);
    return result;
}

HRESULT EnsureRowCells(Grid& grid, int row) noexcept
{
    RowRecord& record = grid.RowTable[row];
    if (!record.Cells && grid.Cols > 0)
        record.Cells = static_cast<CellRecord*>(AllocateZeroed(grid.Cols, sizeof(CellRecord)));
    return record.Cells ? S_OK : LORV_E_MEMORY;
}

CellFormat* EnsureCellFormat(Grid& grid, int row, int col) noexcept
{
    if (FAILED(EnsureRowCells(grid, row)))
        return nullptr;
    CellFormat*& format = grid.RowTable[row].Cells[col].Format;
    if (!format) {
        format = static_cast<CellFormat*>(AllocateZeroed(1, sizeof(CellFormat)));
        if (format)
            format->Alignment = format->TextStyle = format->PictureAlignment = Unset;
    }
    return format;
}

void ReleaseCellFormat(CellFormat& format) noexcept
{
    ReleasePooledFont(format.Font);
    if (format.Picture)
        format.Picture->Release();
    FreeHeapVariant(format.Data);
    format = {};
    format.Alignment = format.TextStyle = format.PictureAlignment = Unset;
}

namespace
{
// lorvClearData unchecks a box but leaves it there.
uint8_t Unchecked(uint8_t state) noexcept
{
    switch (state >> CheckStateShift) {
    case lorvChecked:
        return (state & MergeLinkMask) | lorvUnchecked << CheckStateShift;
    case lorvTSChecked:
    case lorvTSGrayed:
        return (state & MergeLinkMask) | lorvTSUnchecked << CheckStateShift;
    default:
        return state;
    }
}

// A cell with data keeps it, in a format that is new but for a back colour of 0 that counts as set: hosts
// see that colour. Releasing a picture can run foreign code, so the record is off the grid meanwhile.
void ClearFormatting(Grid& grid, int row, int col) noexcept
{
    CellFormat* format = std::exchange(grid.RowTable[row].Cells[col].Format, nullptr);
    VARIANT* data = std::exchange(format->Data, nullptr);
    ReleaseCellFormat(*format);
    bool stillThere = IsCell(grid, row, col) && grid.RowTable[row].Cells && !CellFormatOf(grid, row, col);
    if (!data || !stillThere) {
        FreeHeapVariant(data);
        FreeBlock(format);
        return;
    }
    format->BackColorSet = 1;
    format->Data = data;
    grid.RowTable[row].Cells[col].Format = format;
    RepaintCell(grid, row, col);
}

void FreeFormat(CellFormat*& slot) noexcept
{
    CellFormat* format = std::exchange(slot, nullptr);
    ReleaseCellFormat(*format);
    FreeBlock(format);
}
} // namespace

void FreeCellContents(Grid& grid, int row, int col, int what) noexcept
{
    CellRecord* cells = grid.RowTable[row].Cells;
    if (!cells)
        return;
    CellRecord& cell = cells[col];
    if (what == lorvClearEverything || what == lorvClearText)
        FreeAndClear(cell.Text);
    if (what == lorvClearEverything)
        cell.State &= MergeLinkMask;
    else if (what == lorvClearData)
        cell.State = Unchecked(cell.State);
    if (!cell.Format)
        return;
    if (what == lorvClearEverything)
        FreeFormat(cell.Format);
    else if (what == lorvClearData)
        FreeHeapVariant(cell.Format->Data);
    else if (what == lorvClearFormatting)
        ClearFormatting(grid, row, col);
}

HRESULT StoreHeapVariant(VARIANT*& slot, const VARIANT& value) noexcept
{
    const VARIANT& end = FollowVariant(value);
    if ((end.vt & VT_BYREF) && !end.byref)
        return E_INVALIDARG;
    OwnedVariant copy;
    HRESULT result = VariantCopyInd(&copy.Get(), const_cast<VARIANT*>(&end));
    if (FAILED(result))
        return result;
    if (!slot)
        slot = static_cast<VARIANT*>(AllocateZeroed(1, sizeof(VARIANT)));
    if (!slot)
        return LORV_E_MEMORY;
    std::swap(*slot, copy.Get()); // the old value goes last: releasing it can run foreign code
    return S_OK;
}

void FreeHeapVariant(VARIANT*& slot) noexcept
{
    if (VARIANT* value = std::exchange(slot, nullptr)) {
        VariantClear(value);
        FreeBlock(value);
    }
}

HRESULT ReplaceText(wchar_t*& slot, const wchar_t* text) noexcept
{
    wchar_t* copy = IsEmpty(text) ? nullptr : DuplicateText(text);
    FreeBlock(slot);
    slot = copy;
    return copy || IsEmpty(text) ? S_OK : LORV_E_MEMORY;
}
