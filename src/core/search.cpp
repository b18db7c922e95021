#include "core/search.h"

#include "core/cell_store.h"
#include "core/events.h"
#include "core/upcalls.h"
#include "platform/bstr.h"
#include "platform/com_ptr.h"
#include "platform/variant.h"

#include <cstring>
#include <cwchar>

namespace
{
DWORD CaseFlags(bool caseSensitive) noexcept
{
    return caseSensitive ? 0 : NORM_IGNORECASE;
}

int FindRowData(const Grid& grid, const VARIANT& item, const FindOptions& options) noexcept
{
    for (int row = options.Row < 0 ? 0 : options.Row; row < grid.Rows; ++row)
        if (const VARIANT* data = grid.RowTable[row].RowData)
            if (CompareVariants(item, *data, options.CaseSensitive, options.FullMatch))
                return row;
    return -1;
}

int FindText(Grid& grid, const Bstr& item, const FindOptions& options)
{
    int length = options.FullMatch ? -1 : static_cast<int>(item.Length());
    DWORD flags = CaseFlags(options.CaseSensitive);
    for (int row = options.Row < 0 ? 0 : options.Row; row < grid.Rows; ++row) {
        if (options.Col >= grid.Cols)
            break; // a text source took columns away
        const wchar_t* text = GetCellText(grid, row, options.Col);
        if (!text || !*text || (length > 0 && wcsnlen(text, length) < static_cast<size_t>(length)))
            continue;
        if (CompareStringW(LOCALE_USER_DEFAULT, flags, item.Text(), length, text, length) == CSTR_EQUAL)
            return row;
    }
    return -1;
}

bool TextOf(const VARIANT& item, Bstr& text) noexcept
{
    const VARIANT& end = FollowVariant(item);
    OwnedVariant converted;
    if (IsNullReference(end) ||
        FAILED(VariantChangeType(&converted.Get(), const_cast<VARIANT*>(&end), 0, VT_BSTR)))
        return false;
    *text.Put() = converted.Get().bstrVal;
    converted.Get().vt = VT_EMPTY;
    return true;
}
} // namespace

HRESULT FindRow(Grid& grid, const VARIANT& item, const FindOptions& options, int& found)
{
    found = -1;
    KeepAlive alive(grid); // objects among the values are foreign code
    if (options.Col < 0) {
        found = FindRowData(grid, item, options);
        return S_OK;
    }
    if (options.Col >= grid.Cols)
        return LORV_E_INDEX;
    Bstr text;
    if (TextOf(item, text) && !text.Empty())
        found = FindText(grid, text, options);
    return S_OK;
}

void EndAutoSearch(Grid& grid)
{
    if (!grid.IsSearching)
        return;
    RepaintCell(grid, grid.Row, grid.Col); // takes the mark of the typed text away
    grid.IsSearching = 0;
    event::EndAutoSearch(grid);
}

namespace
{
bool CompareTexts(BSTR item, BSTR value, bool caseSensitive, bool fullMatch) noexcept
{
    if (caseSensitive && fullMatch) {
        UINT bytes = SysStringByteLen(item);
        return bytes == SysStringByteLen(value) && (bytes == 0 || std::memcmp(item, value, bytes) == 0);
    }
    UINT itemLength = SysStringLen(item), valueLength = SysStringLen(value);
    if (itemLength == 0 && valueLength == 0)
        return true;
    int length = fullMatch ? -1 : static_cast<int>(itemLength);
    if (length > 0 && valueLength < itemLength)
        return false;
    if (length == 0)
        return true;
    return CompareStringW(LOCALE_USER_DEFAULT, CaseFlags(caseSensitive), item ? item : L"", length,
                          value ? value : L"", length) == CSTR_EQUAL;
}

bool CopyByValue(OwnedVariant& copy, const VARIANT& value) noexcept
{
    const VARIANT& end = FollowVariant(value);
    return !IsNullReference(end) && SUCCEEDED(VariantCopyInd(&copy.Get(), const_cast<VARIANT*>(&end)));
}

bool SameDecimal(const DECIMAL& a, const DECIMAL& b) noexcept
{
    return a.signscale == b.signscale && a.Hi32 == b.Hi32 && a.Lo64 == b.Lo64;
}
} // namespace

bool CompareVariants(const VARIANT& item, const VARIANT& value, bool caseSensitive, bool fullMatch) noexcept
{
    OwnedVariant first, second;
    if (!CopyByValue(first, item) || !CopyByValue(second, value))
        return false;
    const VARIANT& a = first.Get();
    const VARIANT& b = second.Get();
    if (a.vt != b.vt)
        return false;
    switch (a.vt) {
    case VT_BSTR:
        return CompareTexts(a.bstrVal, b.bstrVal, caseSensitive, fullMatch);
    case VT_I2:
    case VT_BOOL:
        return a.iVal == b.iVal;
    case VT_I4:
    case VT_ERROR:
        return a.lVal == b.lVal;
    case VT_R4:
        return a.fltVal == b.fltVal;
    case VT_R8:
    case VT_DATE:
        return a.dblVal == b.dblVal;
    case VT_CY:
        return a.cyVal.int64 == b.cyVal.int64;
    case VT_DISPATCH:
    case VT_UNKNOWN:
        return a.punkVal == b.punkVal;
    case VT_DECIMAL:
        return SameDecimal(a.decVal, b.decVal);
    case VT_UI1:
        return a.bVal == b.bVal;
    default:
        return false;
    }
}

namespace
{
// A regular expression engine behind its dispatch interface: a pattern to set, a test to call.
class ScriptRegex
{
public:
    HRESULT Create() noexcept
    {
        CLSID classId;
        HRESULT result = CLSIDFromString(L"VBScript.RegExp", &classId);
        if (SUCCEEDED(result))
            result = CoCreateInstance(classId, nullptr,
                                      CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER | CLSCTX_REMOTE_SERVER,
                                      IID_IDispatch, engine_.PutVoid());
        if (SUCCEEDED(result))
            result = IdOf(L"Test", testId_);
        return result;
    }

    // A pattern that the engine refuses shows at the first test.
    HRESULT SetPattern(BSTR pattern) noexcept
    {
        DISPID id;
        if (HRESULT result = IdOf(L"Pattern", id); FAILED(result))
            return result;
        VARIANTARG value = {};
        value.vt = VT_BSTR;
        value.bstrVal = pattern;
        DISPID put = DISPID_PROPERTYPUT;
        DISPPARAMS parameters = {&value, &put, 1, 1};
        engine_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUT, &parameters, nullptr,
                        nullptr, nullptr);
        return S_OK;
    }

    HRESULT Test(const wchar_t* text, bool& matches) noexcept
    {
        OwnedVariant argument, answer;
        argument.Get().vt = VT_BSTR;
        argument.Get().bstrVal = SysAllocString(text);
        if (!argument.Get().bstrVal)
            return E_OUTOFMEMORY;
        DISPPARAMS parameters = {&argument.Get(), nullptr, 1, 0};
        HRESULT result = engine_->Invoke(testId_, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters,
                                         &answer.Get(), nullptr, nullptr);
        matches = SUCCEEDED(result) && answer.Type() == VT_BOOL && answer.Get().boolVal != VARIANT_FALSE;
        return result;
    }

private:
    HRESULT IdOf(const wchar_t* name, DISPID& id) noexcept
    {
        auto* writable = const_cast<wchar_t*>(name);
        return engine_->GetIDsOfNames(IID_NULL, &writable, 1, LOCALE_USER_DEFAULT, &id);
    }

    ComPtr<IDispatch> engine_;
    DISPID testId_ = DISPID_UNKNOWN;
};
} // namespace

HRESULT FindRowRegex(Grid& grid, BSTR pattern, int row, int col, int& found)
{
    found = -1;
    if (!IsCol(grid, col))
        return LORV_E_INDEX;
    if (!IsRow(grid, row))
        row = grid.FixedRows;
    KeepAlive alive(grid);
    ScriptRegex regex;
    HRESULT result = regex.Create();
    if (SUCCEEDED(result))
        result = regex.SetPattern(pattern);
    for (; SUCCEEDED(result) && found < 0 && IsCell(grid, row, col); ++row) {
        const wchar_t* text = GetCellText(grid, row, col);
        bool matches = false;
        if (text && *text)
            result = regex.Test(text, matches);
        if (matches)
            found = row;
    }
    return result;
}
