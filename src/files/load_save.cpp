#include "files/load_save.h"

#include "core/events.h"
#include "core/property_frame.h"
#include "core/upcalls.h"
#include "files/delimited.h"
#include "files/file_stream.h"
#include "files/grid_file.h"
#include "platform/variant.h"

namespace
{
constexpr int UnnamedTextKind = 7;

bool IsKnownKind(int kind) noexcept
{
    return static_cast<unsigned>(kind) <= LastFileKind;
}

bool IsBinaryKind(int kind) noexcept
{
    return kind <= lorvFileFormat;
}

// The text of an option, or null; also behind a reference.
const wchar_t* OptionText(const VARIANT& option) noexcept
{
    if (option.vt == VT_BSTR)
        return option.bstrVal ? option.bstrVal : L"";
    if (option.vt == (VT_BYREF | VT_BSTR) && option.pbstrVal)
        return *option.pbstrVal ? *option.pbstrVal : L"";
    return nullptr;
}

unsigned FlagOfLetter(wchar_t letter) noexcept
{
    switch (letter) {
    case 'F':
    case 'f':
        return DelimitedIncludeFixed;
    case 'V':
    case 'v':
        return DelimitedVisibleOnly;
    case 'U':
    case 'u':
        return DelimitedUtf16;
    default:
        return 0;
    }
}

// Letters, or a number: any but 0 means the fixed cells and nothing else.
unsigned FlagsForSave(const VARIANT& options, int kind)
{
    unsigned flags = 0;
    if (const wchar_t* letters = OptionText(FollowVariant(options)))
        for (; *letters; ++letters)
            flags |= FlagOfLetter(*letters);
    else if (VariantToLong(options, 0) != 0)
        flags = DelimitedIncludeFixed;
    return kind == UnnamedTextKind ? flags | DelimitedUtf16 : flags;
}

// Only bit 0 of a number counts; letters mean nothing here.
unsigned FlagsForLoad(const VARIANT& options)
{
    return (VariantToLong(options, 0) & 1) * DelimitedIncludeFixed;
}

HRESULT LoadText(Grid& grid, ByteReader& file, int kind, const VARIANT& options)
{
    unsigned flags = FlagsForLoad(options);
    uint8_t mark[2] = {};
    bool utf16 = file.Read(mark, sizeof mark) == sizeof mark && mark[0] == 0xFF && mark[1] == 0xFE;
    if (utf16)
        flags |= DelimitedUtf16;
    else if (!file.Seek(0))
        return LORV_E_NOTFOUND;
    return LoadDelimitedText(grid, file, kind, flags);
}

// What is new in the grid counts as saved, and the first cell is the current one. Nothing is reported.
void FinishLoad(Grid& grid)
{
    for (int row = 0; row < grid.Rows; ++row)
        if (grid.RowTable[row].Status <= lorvrsDeleted)
            grid.RowTable[row].Status = lorvrsUpdated;
    grid.Row = grid.RowSel = grid.FixedRows;
    grid.Col = grid.ColSel = grid.FixedCols;
    grid.TopRow = FrozenEndRow(grid);
    grid.LeftCol = FrozenEndCol(grid);
    RebuildOutlineLevels(grid);
    MarkMergeStale(grid);
    RecalculateLayout(grid);
    RepaintGrid(grid);
}
} // namespace

HRESULT SaveGridFile(Grid& grid, const wchar_t* name, int kind, const VARIANT& options)
{
    if (!IsKnownKind(kind))
        return LORV_E_VALUE;
    if (kind == lorvFileExcel)
        return E_NOTIMPL;
    KeepAlive alive(grid);
    unsigned flags = IsBinaryKind(kind) ? 0 : FlagsForSave(options, kind);
    FileWriter file(name);
    if (!file.IsOpen())
        return LORV_E_CANNOTWRITE;
    if (IsBinaryKind(kind))
        return SaveBinaryGrid(grid, file, static_cast<GridFileKind>(kind));
    return SaveDelimitedText(grid, file, kind == UnnamedTextKind ? lorvFileCustomText : kind, flags);
}

HRESULT LoadGridFile(Grid& grid, const wchar_t* name, int kind, const VARIANT& options)
{
    if (!IsKnownKind(kind))
        return LORV_E_VALUE;
    if (kind == lorvFileExcel)
        return E_NOTIMPL;
    KeepAlive alive(grid);
    HRESULT result = S_OK;
    {
        FileReader file(name);
        if (!file.IsOpen())
            return LORV_E_NOTFOUND;
        result = IsBinaryKind(kind) ? LoadBinaryGrid(grid, file, static_cast<GridFileKind>(kind))
                                    : LoadText(grid, file, kind, options);
    }
    FinishLoad(grid);
    return result;
}

HRESULT GuardLoad(Grid& grid, int kind)
{
    if (!IsKnownKind(kind))
        return LORV_E_VALUE;
    bool bound = grid.BoundKind != BoundNone || grid.LorvDataSource;
    if (kind == lorvFileFormat || !bound || IsDesignMode(grid))
        return S_OK;
    return ReportError(grid, LORV_E_BOUND);
}
