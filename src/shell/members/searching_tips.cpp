// Members of the grid: auto-search, tips and the explorer bar.
#include "core/events.h"
#include "edit/tips.h"
#include "platform/memory.h"
#include "shell/members/members.h"
#include "shell/members/property_setters.h"
#include "view/auto_size.h"

#include <utility>

namespace
{
constexpr DISPID DispidExplorerBar = 111;
constexpr DISPID DispidScrollTips = 169;
constexpr DISPID DispidAutoSearchDelay = 199;

constexpr WordProperty autoSearch = {110, &Grid::AutoSearch, lorvSearchFromCursor};

// Four bits that are kept as they come, beside those that say what the user may do.
constexpr unsigned KeptExplorerBits = 0xF000;
constexpr unsigned LargestExplorerBar = 15;

// Either property makes the window that both share, and either destroys it.
void SetTips(Grid& grid, TipOption option, bool on)
{
    if (!IsDesignMode(grid)) {
        if (!on)
            DestroyTipWindow(grid);
        else if (!grid.TipWindow)
            CreateTipWindow(grid);
    }
    grid.TipOptions = on ? grid.TipOptions | option : grid.TipOptions & ~static_cast<uint32_t>(option);
}

HRESULT ReturnTipText(Grid& grid, BSTR* result, const wchar_t* text)
{
    HRESULT guard = GuardRunTime(grid, result);
    return SUCCEEDED(guard) ? ReturnText(result, text) : guard;
}

HRESULT SetTipText(wchar_t*& field, BSTR value) noexcept
{
    wchar_t* copy = value ? DuplicateText(value) : nullptr;
    if (value && !copy)
        return LORV_E_MEMORY;
    FreeBlock(std::exchange(field, copy));
    return S_OK;
}

void FitOutline(Grid& grid)
{
    if (IsDesignMode(grid) || grid.OutlineBar == 0)
        return;
    RebuildOutlineLevels(grid);
    if (grid.OutlineLevelCount != 0)
        AutoSizeRange(grid, grid.OutlineCol, grid.OutlineCol, false, 0, AutoSizeByProperty);
}
} // namespace

HRESULT STDMETHODCALLTYPE GridMembers::get_AutoSearch(AutoSearchSettings* result)
{
    return Return(result, AutoSearch);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_AutoSearch(AutoSearchSettings value)
{
    return SetEnum(*this, autoSearch, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ExplorerBar(ExplorerBarSettings* result)
{
    return Return(result, static_cast<uint16_t>(ExplorerBar));
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ExplorerBar(ExplorerBarSettings value)
{
    if ((static_cast<unsigned>(value) & ~KeptExplorerBits) > LargestExplorerBar)
        return LORV_E_VALUE;
    KeepAlive alive(*this);
    ExplorerBar = static_cast<int16_t>(value);
    SortIndicatorCol = -1;
    MarkMergeStale(*this);
    FitOutline(*this);
    FinishProperty(*this, DispidExplorerBar, StepRepaint);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_IsSearching(VARIANT_BOOL* result)
{
    return ReturnFlag(result, IsSearching != 0);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ScrollTips(VARIANT_BOOL* result)
{
    return ReturnFlag(result, TipOptions & TipOptionScrollTips);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ScrollTips(VARIANT_BOOL value)
{
    SetTips(*this, TipOptionScrollTips, value & 1);
    MarkDirtyAndNotify(*this, DispidScrollTips);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ScrollTipText(BSTR* result)
{
    return ReturnTipText(*this, result, ScrollTipText);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ScrollTipText(BSTR value)
{
    return SetTipText(ScrollTipText, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_AutoSearchDelay(FLOAT* result)
{
    return Return(result, AutoSearchDelay);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_AutoSearchDelay(FLOAT value)
{
    if (!(value >= 0)) // nor what is no number
        return LORV_E_VALUE;
    AutoSearchDelay = value;
    MarkDirtyAndNotify(*this, DispidAutoSearchDelay);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ToolTips(VARIANT_BOOL* result)
{
    return ReturnFlag(result, TipOptions & TipOptionToolTips);
}

// Unlike ScrollTips, this one is not stored with a form, and nobody is told.
HRESULT STDMETHODCALLTYPE GridMembers::put_ToolTips(VARIANT_BOOL value)
{
    SetTips(*this, TipOptionToolTips, value & 1);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ToolTipText(BSTR* result)
{
    return ReturnTipText(*this, result, ToolTipText);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ToolTipText(BSTR value)
{
    return SetTipText(ToolTipText, value);
}
