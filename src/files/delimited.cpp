#include "files/delimited.h"

#include "core/cell_store.h"
#include "core/events.h"
#include "core/row_col.h"
#include "core/value_format.h"
#include "files/delimited_reader.h"
#include "files/delimited_writer.h"
#include "files/grid_file.h"
#include "view/auto_size.h"

#include <algorithm>
#include <memory>
#include <new>
#include <utility>

namespace
{
// One character alone separates columns, and the unit 0 then separates rows.
DelimitedFormat FormatOf(const Grid& grid, int kind) noexcept
{
    const wchar_t* chosen = kind == lorvFileCustomText ? grid.ClipSeparators : nullptr;
    if (chosen && chosen[0] && chosen[0] != chosen[1])
        return {chosen[0], chosen[1]};
    return {kind == lorvFileCommaText ? L',' : L'\t', L'\r'};
}

struct CellStart {
    int Row, Col;
};
CellStart FirstCell(const Grid& grid, unsigned flags) noexcept
{
    return flags & DelimitedIncludeFixed ? CellStart{0, 0} : CellStart{grid.FixedRows, grid.FixedCols};
}

// What a row shows is asked of its text source, which can change the grid.
void SaveRow(Grid& grid, DelimitedWriter& out, int row, int firstCol, bool visibleOnly)
{
    for (int col = firstCol; IsCell(grid, row, col); ++col) {
        if (visibleOnly && (grid.ColTable[col].ColFlags & ColFlagHidden))
            continue;
        out.Field(GetDisplayText(grid, row, col));
        if (col + 1 < grid.Cols)
            out.ColSeparator();
    }
}
} // namespace

// Separators follow the grid's own last row and column, so that hidden ones at the end leave theirs.
HRESULT SaveDelimitedText(Grid& grid, ByteWriter& target, int kind, unsigned flags)
{
    KeepAlive alive(grid);
    DelimitedFormat format = FormatOf(grid, kind);
    std::unique_ptr<DelimitedWriter> out(new (std::nothrow) DelimitedWriter(
        target, (flags & DelimitedUtf16) != 0, format.ColSeparator, format.RowSeparator));
    if (!out)
        return E_OUTOFMEMORY;
    bool visibleOnly = (flags & DelimitedVisibleOnly) != 0;
    CellStart first = FirstCell(grid, flags);
    for (int row = first.Row; row < grid.Rows; ++row) {
        if (visibleOnly && (grid.RowTable[row].Flags & RowFlagHidden))
            continue;
        SaveRow(grid, *out, row, first.Col, visibleOnly);
        if (row + 1 < grid.Rows)
            out->RowEnd();
    }
    return out->Finish() ? S_OK : LORV_E_CANNOTWRITE;
}

namespace
{
// Nothing is laid out or painted meanwhile.
class RedrawOff
{
public:
    explicit RedrawOff(Grid& grid) noexcept
        : grid_(grid), redraw_(std::exchange(grid.Redraw, static_cast<int32_t>(lorvRDNone)))
    {
    }
    RedrawOff(const RedrawOff&) = delete;
    RedrawOff& operator=(const RedrawOff&) = delete;
    ~RedrawOff() { grid_.Redraw = redraw_; }

private:
    Grid& grid_;
    int32_t redraw_;
};

// Columns are added one by one as far as tables usually go. Beyond that a column more costs a copy of all, so
// that they are added in larger steps, and those too many taken away in the end.
constexpr int ColsAddedSingly = 1000;

class DelimitedLoader
{
public:
    DelimitedLoader(Grid& grid, ByteReader& source, int kind, unsigned flags, const bool* leadBytes) noexcept
        : grid_(grid), first_(FirstCell(grid, flags)), row_(first_.Row), col_(first_.Col), lastCol_(-1),
          fewestCols_(grid.Cols),
          fields_(source, (flags & DelimitedUtf16) != 0, FormatOf(grid, kind), leadBytes)
    {
    }

    HRESULT Load()
    {
        HRESULT result = S_OK;
        for (bool more = true; more && SUCCEEDED(result);) {
            FieldEnd end = fields_.Next();
            if (end != FieldEnd::Empty)
                result = Store();
            more = Advance(end);
        }
        TrimRows(grid_);
        if (int needed = std::max(fewestCols_, lastCol_ + 1); stepped_ && grid_.Cols > needed)
            ResizeCols(grid_, needed);
        return result;
    }

    int FirstCol() const noexcept { return first_.Col; }
    int LastCol() const noexcept { return lastCol_; }

private:
    HRESULT GrowRowsTo(int count)
    {
        if (count > grid_.RowCapacity)
            ReserveRows(grid_, grid_.RowCapacity + grid_.RowCapacity / 2);
        return ResizeRows(grid_, count);
    }

    HRESULT GrowColsTo(int count)
    {
        int step = count > ColsAddedSingly ? count / 4 : 0;
        stepped_ |= step != 0;
        return ResizeCols(grid_, count + step);
    }

    HRESULT Store()
    {
        HRESULT result = row_ >= grid_.Rows ? GrowRowsTo(row_ + 1) : S_OK;
        if (SUCCEEDED(result) && col_ >= grid_.Cols)
            result = GrowColsTo(col_ + 1);
        if (FAILED(result))
            return result;
        result = SetCellText(grid_, row_, col_, fields_.Text(), fields_.Length());
        lastCol_ = std::max(lastCol_, col_);
        return result == LORV_E_MEMORY ? result : S_OK;
    }

    // False at the end of the text.
    bool Advance(FieldEnd end)
    {
        switch (end) {
        case FieldEnd::Col:
            ++col_;
            return true;
        case FieldEnd::Row:
            ++row_;
            col_ = first_.Col;
            if (grid_.Rows == FirstScreenRows && !std::exchange(shown_, true))
                ShowFirstScreen(grid_);
            return true;
        default:
            return end == FieldEnd::Cut;
        }
    }

    Grid& grid_;
    const CellStart first_;
    int row_, col_, lastCol_;
    int fewestCols_;
    bool stepped_ = false;
    bool shown_ = false;
    DelimitedReader fields_;
};
} // namespace

HRESULT LoadDelimitedText(Grid& grid, ByteReader& source, int kind, unsigned flags)
{
    KeepAlive alive(grid);
    bool leadBytes[256];
    for (int byte = 0; byte < 256; ++byte)
        leadBytes[byte] = IsDBCSLeadByte(static_cast<BYTE>(byte)) != FALSE;
    std::unique_ptr<DelimitedLoader> loader(new (std::nothrow)
                                                DelimitedLoader(grid, source, kind, flags, leadBytes));
    if (!loader)
        return E_OUTOFMEMORY;
    HRESULT result = S_OK;
    {
        RedrawOff off(grid);
        result = loader->Load();
    }
    if (HasOption(grid, OptionAutoResize) && loader->LastCol() >= loader->FirstCol())
        AutoSizeRange(grid, loader->FirstCol(), std::min(loader->LastCol(), grid.Cols - 1), false, 0,
                      AutoSizeByProperty);
    return result;
}
