#include "core/property_frame.h"

#include "core/events.h"
#include "core/row_col.h"
#include "core/upcalls.h"
#include "platform/bstr.h"
#include "platform/com_ptr.h"
#include "platform/module.h"
#include "platform/variant.h"

void MarkDirtyAndNotify(Grid& grid, DISPID dispid)
{
    KeepAlive alive(grid);
    grid.RequiresSave = true;
    int slots = grid.PropertySinks.Size();
    for (int slot = 0; slot < slots; ++slot)
        if (ComPtr<IPropertyNotifySink> sink(static_cast<IPropertyNotifySink*>(grid.PropertySinks.At(slot)));
            sink)
            sink->OnChanged(dispid);
}

void RunSetterSteps(Grid& grid, unsigned steps)
{
    KeepAlive alive(grid); // the layout may fire scroll events
    if (steps & StepMergeStale)
        MarkMergeStale(grid);
    if (steps & StepRestyle)
        ApplyBorderStyle(grid);
    if (steps & StepLayout)
        RecalculateLayout(grid);
    if (steps & StepRepaint)
        RepaintGrid(grid);
    if (steps & StepRepaintCurrentCell)
        RepaintCell(grid, grid.Row, grid.Col);
}

void FinishProperty(Grid& grid, DISPID dispid, unsigned steps)
{
    KeepAlive alive(grid);
    RunSetterSteps(grid, steps);
    MarkDirtyAndNotify(grid, dispid);
}

bool ReadAmbient(Grid& grid, DISPID dispid, VARIANT& value) noexcept
{
    ComPtr<IDispatch> ambient(grid.AmbientProperties);
    DISPPARAMS none = {};
    return ambient && SUCCEEDED(ambient->Invoke(dispid, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET,
                                                &none, &value, nullptr, nullptr));
}

bool IsDesignMode(Grid& grid)
{
    if (grid.DesignModeCache >= 0)
        return grid.DesignModeCache != 0;
    KeepAlive alive(grid);
    OwnedVariant userMode;
    if (ReadAmbient(grid, DISPID_AMBIENT_USERMODE, userMode.Get()) && userMode.Type() == VT_BOOL)
        grid.DesignModeCache = userMode.Get().boolVal == VARIANT_FALSE;
    return grid.DesignModeCache > 0;
}

HRESULT GuardRows(Grid& grid)
{
    if (grid.LorvDataSource || IsDesignMode(grid) || grid.BoundKind == BoundNone)
        return S_OK;
    return ReportError(grid, LORV_E_BOUND);
}

HRESULT GuardCols(Grid& grid)
{
    return grid.BoundKind == BoundNone ? S_OK : ReportError(grid, LORV_E_BOUND);
}

HRESULT GuardRowContents(Grid& grid)
{
    if (IsDesignMode(grid) || (grid.BoundKind == BoundNone && !grid.LorvDataSource))
        return S_OK;
    return ReportError(grid, LORV_E_BOUND);
}

namespace
{
constexpr UINT FirstErrorText = 126; // string resource of LORV_E_BOUND; the others follow

UINT ErrorTextId(HRESULT code) noexcept
{
    return static_cast<UINT>(code - LORV_E_BOUND) + FirstErrorText;
}

HWND ErrorBoxOwner(Grid& grid) noexcept
{
    HWND owner = grid.Window;
    if (!owner && grid.InPlaceSite)
        grid.InPlaceSite->GetWindow(&owner);
    return owner;
}

// The event carries the number of the text, not the code.
void AskHostToShow(Grid& grid, HRESULT code)
{
    if (!event::Error(grid, static_cast<int>(ErrorTextId(code))))
        return;
    wchar_t text[ErrorTextCapacity];
    MessageBoxW(ErrorBoxOwner(grid), LoadErrorText(code, text), nullptr, MB_ICONEXCLAMATION);
}

void PublishErrorInfo(const wchar_t* text) noexcept
{
    ComPtr<ICreateErrorInfo> info;
    if (FAILED(CreateErrorInfo(info.Put())))
        return;
    wchar_t* source = nullptr;
    info->SetGUID(IID_ILorvGrid);
    if (SUCCEEDED(ProgIDFromCLSID(CLSID_LorvGridL, &source)))
        info->SetSource(source);
    CoTaskMemFree(source);
    info->SetDescription(Bstr(text).Get());
    if (auto published = QueryFor<IErrorInfo>(info.Get(), IID_IErrorInfo))
        SetErrorInfo(0, published.Get());
}
} // namespace

const wchar_t* LoadErrorText(HRESULT code, wchar_t (&buffer)[ErrorTextCapacity]) noexcept
{
    return LoadStringW(ModuleInstance(), ErrorTextId(code), buffer, ErrorTextCapacity) > 0 ? buffer
                                                                                           : L"Unknown Error";
}

HRESULT ReportError(Grid& grid, HRESULT code)
{
    if (code < LORV_E_BOUND || code > LORV_E_SAFETY)
        return code;
    KeepAlive alive(grid);
    if (code == LORV_E_CANNOTUPDATE || code == LORV_E_FIELDVALUE)
        AskHostToShow(grid, code);
    wchar_t text[ErrorTextCapacity];
    PublishErrorInfo(LoadErrorText(code, text));
    return code;
}

namespace
{
wchar_t defaultFontName[] = L"MS Sans Serif";
} // namespace

IFont* GridFont(Grid& grid) noexcept
{
    if (!grid.Font) {
        FONTDESC description = {sizeof(FONTDESC),
                                defaultFontName,
                                {.int64 = 80000},
                                FW_NORMAL,
                                DEFAULT_CHARSET,
                                FALSE,
                                FALSE,
                                FALSE};
        void* font = nullptr;
        if (SUCCEEDED(OleCreateFontIndirect(&description, IID_IFont, &font)))
            grid.Font = static_cast<IFont*>(font);
    }
    return grid.Font;
}

HFONT GridFontHandle(Grid& grid) noexcept
{
    if (!grid.FontHandle)
        if (IFont* font = GridFont(grid))
            font->get_hFont(&grid.FontHandle);
    return grid.FontHandle;
}

void FontChanged(Grid& grid)
{
    grid.FontHandle = nullptr;
    RecalcDefaultRowHeight(grid);
}

namespace
{
// The source re-reads its counts, so that `Rows` becomes its record count and the fixed rows; it notifies
// in its own name.
HRESULT SetFixedRowsOfSource(Grid& grid, int count)
{
    ComPtr<ILorvDataSource> alive(grid.LorvDataSource);
    SetFixedCounts(grid, count, -1, -1, -1);
    return ReassignDataSource(grid);
}

void FinishCountChange(Grid& grid, DISPID dispid)
{
    RecalculateLayout(grid);
    MarkMergeStale(grid); // a scroll event of the layout may have brought the links up to date
    RepaintGrid(grid);
    MarkDirtyAndNotify(grid, dispid);
}
} // namespace

HRESULT SetFixedRows(Grid& grid, int count)
{
    KeepAlive alive(grid);
    if (count < 0 || count > grid.Rows)
        return LORV_E_VALUE;
    if (HRESULT result = GuardRows(grid); FAILED(result))
        return result;
    if (!CommitEdit(grid))
        return S_OK;
    if (grid.LorvDataSource)
        return SetFixedRowsOfSource(grid, count);
    SetFixedCounts(grid, count, -1, -1, -1);
    FinishCountChange(grid, 11);
    return S_OK;
}

HRESULT SetFixedCols(Grid& grid, int count)
{
    KeepAlive alive(grid);
    if (count < 0 || count > grid.Cols)
        return LORV_E_VALUE;
    if (HRESULT result = GuardRows(grid); FAILED(result))
        return result;
    if (!CommitEdit(grid))
        return S_OK;
    SetFixedCounts(grid, -1, count, -1, -1);
    FinishCountChange(grid, 12);
    return S_OK;
}

HRESULT SetFrozenRows(Grid& grid, int count)
{
    KeepAlive alive(grid);
    if (count < 0 || count > grid.Rows - grid.FixedRows)
        return LORV_E_VALUE;
    if (count == grid.FrozenRows)
        return S_OK;
    grid.TopRow = 0;
    SetFixedCounts(grid, -1, -1, count, -1);
    FinishCountChange(grid, 188);
    return S_OK;
}

HRESULT SetFrozenCols(Grid& grid, int count)
{
    KeepAlive alive(grid);
    if (count < 0 || count > grid.Cols - grid.FixedCols)
        return LORV_E_VALUE;
    if (count == grid.FrozenCols)
        return S_OK;
    grid.LeftCol = 0;
    SetFixedCounts(grid, -1, -1, -1, count);
    FinishCountChange(grid, 189);
    return S_OK;
}

HRESULT SetRedraw(Grid& grid, int value)
{
    grid.Redraw = value >= lorvRDNone && value <= lorvRDBuffered ? value : lorvRDDirect;
    unsigned steps = StepNone;
    if (grid.Redraw != lorvRDNone)
        steps = StepLayout | StepRepaint;
    FinishProperty(grid, 31, steps);
    return S_OK;
}
