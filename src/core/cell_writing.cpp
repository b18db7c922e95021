#include "core/cell_writing.h"

#include "core/cell_font.h"
#include "core/cell_property.h"
#include "core/cell_reading.h"
#include "core/clip_text.h"
#include "core/sort.h"
#include "core/upcalls.h"
#include "platform/com_ptr.h"
#include "platform/variant.h"

#include <algorithm>
#include <climits>
#include <cwchar>

namespace
{
// How the value of a setting is read.
enum class ValueForm : uint8_t {
    Refused,
    Text,
    Number,
    Checked, // a number, of which an automation True is 1
    Percent,
    Picture,
    Font,
    FontName,
    Points,
    Data,
    SourceCell,
    Refresh,
    Sort,
};

struct CellSetting {
    ValueForm Form = ValueForm::Refused;
    CellSelector Selector = CellSelector::Text;
    unsigned Largest = UINT_MAX; // of a number
};

// By CellPropertySettings.
constexpr CellSetting cellSettings[CellSettingCount] = {
    {ValueForm::Text, CellSelector::Text},
    {ValueForm::Number, CellSelector::TextStyle, lorvTextInsetLight},
    {ValueForm::Number, CellSelector::Alignment, lorvAlignGeneralBottom},
    {ValueForm::Picture, CellSelector::Picture},
    {ValueForm::Number, CellSelector::PictureAlignment, lorvPicAlignTile},
    {ValueForm::Checked, CellSelector::CheckState, lorvDisabledUnchecked},
    {ValueForm::Number, CellSelector::BackColor},
    {ValueForm::Number, CellSelector::ForeColor},
    {ValueForm::Percent, CellSelector::FloodPercent},
    {ValueForm::Number, CellSelector::FloodColor},
    {ValueForm::Font, CellSelector::Font},
    {ValueForm::FontName, CellSelector::FontName},
    {ValueForm::Points, CellSelector::FontSize},
    {ValueForm::Number, CellSelector::FontBold},
    {ValueForm::Number, CellSelector::FontItalic},
    {ValueForm::Number, CellSelector::FontUnderline},
    {ValueForm::Number, CellSelector::FontStrikethru},
    {ValueForm::Points, CellSelector::FontWidth},
    {}, // lorvcpValue
    {}, // lorvcpTextDisplay
    {ValueForm::Data, CellSelector::Data},
    {ValueForm::SourceCell, CellSelector::CopyFormat},
    {}, // lorvcpLeft
    {}, // lorvcpTop
    {}, // lorvcpWidth
    {}, // lorvcpHeight
    {}, // lorvcpVariantValue
    {ValueForm::Refresh, CellSelector::Refresh},
    {ValueForm::Sort},
};

// A value as text. A plain text is borrowed; one behind a reference is copied, since a handler may change
// the variable that it stands in.
class TextArgument
{
public:
    HRESULT Read(const VARIANT& given) noexcept
    {
        if (given.vt == VT_BSTR) {
            text_ = given.bstrVal;
            return S_OK;
        }
        HRESULT result =
            VariantChangeType(&converted_.Get(), const_cast<VARIANT*>(&FollowVariant(given)), 0, VT_BSTR);
        if (SUCCEEDED(result))
            text_ = converted_.Get().bstrVal;
        return result;
    }
    const wchar_t* Text() const noexcept { return text_ ? text_ : L""; }

private:
    OwnedVariant converted_;
    const wchar_t* text_ = nullptr;
};

// A counted object, the object behind a reference to one, or null for nothing. False for any other value.
bool ReadObject(const VARIANT& value, ComPtr<IDispatch>& object) noexcept
{
    if (value.vt == VT_DISPATCH)
        object = ComPtr<IDispatch>(value.pdispVal);
    else if (value.vt == (VT_BYREF | VT_DISPATCH))
        object = ComPtr<IDispatch>(*value.ppdispVal);
    else
        return value.vt == VT_EMPTY;
    return true;
}

// A range takes a text with separators apart; anything else goes to every cell as it is.
HRESULT WriteText(Grid& grid, const CellRange& range, const VARIANT& value)
{
    TextArgument text;
    if (HRESULT result = text.Read(value); FAILED(result))
        return result;
    ClipSeparatorPair separators = ClipSeparatorsOf(grid, false);
    bool spread = std::wcschr(text.Text(), separators.Col) || std::wcschr(text.Text(), separators.Row);
    if (spread && !range.IsSingleCell())
        return PutClip(grid, text.Text(), range.Row1, range.Col1, range.Row2, range.Col2, false);
    return SetCellPropertyRange(grid, range, CellSelector::Text, text.Text());
}

HRESULT WriteNumber(Grid& grid, const CellRange& range, const CellSetting& setting, long number)
{
    if (setting.Form == ValueForm::Checked && number == -1)
        number = lorvChecked;
    if (setting.Form == ValueForm::Percent)
        number = std::clamp(number, -100L, 100L);
    else if (static_cast<unsigned>(number) > setting.Largest)
        return LORV_E_VALUE;
    return SetCellPropertyRange(grid, range, setting.Selector, number);
}

HRESULT WritePicture(Grid& grid, const CellRange& range, const VARIANT& value)
{
    ComPtr<IPictureDisp> picture;
    ComPtr<IDispatch> object;
    TextArgument file;
    if (value.vt == VT_BSTR || value.vt == (VT_BYREF | VT_BSTR)) {
        if (HRESULT result = file.Read(value); FAILED(result))
            return result;
        if (*file.Text())
            if (HRESULT result = OleLoadPicturePath(const_cast<wchar_t*>(file.Text()), nullptr, 0, 0,
                                                    IID_IPictureDisp, picture.PutVoid());
                FAILED(result))
                return result;
    } else if (!ReadObject(value, object)) {
        return LORV_E_VALUE;
    } else if (object) {
        picture = QueryFor<IPictureDisp>(object.Get(), IID_IPictureDisp);
        if (!picture)
            return LORV_E_VALUE;
    }
    return SetCellPropertyRange(grid, range, CellSelector::Picture, picture.Get());
}

HRESULT WriteFont(Grid& grid, const CellRange& range, const VARIANT& value)
{
    ComPtr<IDispatch> object;
    if (!ReadObject(value, object))
        return LORV_E_VALUE;
    if (!object)
        return SetCellPropertyRange(grid, range, CellSelector::Font, nullptr);
    auto font = QueryFor<IFont>(object.Get(), IID_IFont);
    HFONT handle = nullptr;
    LOGFONTW description = {};
    if (!font || FAILED(font->get_hFont(&handle)) || !GetObjectW(handle, sizeof(description), &description))
        return LORV_E_VALUE;
    return SetCellPropertyRange(grid, range, CellSelector::Font, &description);
}

HRESULT WriteFontName(Grid& grid, const CellRange& range, const VARIANT& value)
{
    TextArgument name;
    HRESULT result = name.Read(value);
    return SUCCEEDED(result) ? SetCellPropertyRange(grid, range, CellSelector::FontName, name.Text())
                             : result;
}

HRESULT WritePoints(Grid& grid, const CellRange& range, CellSelector selector, const VARIANT& value)
{
    OwnedVariant points;
    HRESULT result = VariantChangeType(&points.Get(), const_cast<VARIANT*>(&value), 0, VT_R4);
    return SUCCEEDED(result) ? SetCellPropertyRange(grid, range, selector, points.Get().fltVal) : result;
}

// The cells copy a value of our own: the host's can change while they do.
HRESULT WriteData(Grid& grid, const CellRange& range, const VARIANT& value)
{
    OwnedVariant data;
    HRESULT result = VariantCopyInd(&data.Get(), const_cast<VARIANT*>(&value));
    return SUCCEEDED(result) ? SetCellPropertyRange(grid, range, CellSelector::Data, &data.Get()) : result;
}

bool IsDigit(wchar_t unit) noexcept
{
    return unit >= L'0' && unit <= L'9';
}

// The cell that a text like "3,4" names: a row, any digits, blanks and periods, one character, a column.
bool ReadSourceCell(const VARIANT& value, CellPos& cell) noexcept
{
    if (value.vt != VT_BSTR && value.vt != (VT_BYREF | VT_BSTR))
        return false;
    const wchar_t* text = value.vt == VT_BSTR ? value.bstrVal : *value.pbstrVal;
    if (!text || !IsDigit(*text))
        return false;
    const wchar_t* column = text + std::wcsspn(text, L"0123456789 .");
    if (!*column++)
        return false;
    column += std::wcsspn(column, L" ");
    if (!IsDigit(*column))
        return false;
    cell = {static_cast<int>(std::wcstol(text, nullptr, 10)),
            static_cast<int>(std::wcstol(column, nullptr, 10))};
    return true;
}

// A format of our own, like a cell's but for its data. The cell's may go while the copies are made.
class FormatSnapshot
{
public:
    explicit FormatSnapshot(const CellFormat& source) noexcept : format_(source)
    {
        format_.Data = nullptr;
        format_.Font = AcquireFontLike(source.Font);
        if (format_.Picture)
            format_.Picture->AddRef();
    }
    FormatSnapshot(const FormatSnapshot&) = delete;
    FormatSnapshot& operator=(const FormatSnapshot&) = delete;
    ~FormatSnapshot() { ReleaseCellFormat(format_); }
    const CellFormat* Get() const noexcept { return &format_; }

private:
    CellFormat format_;
};

HRESULT WriteFormat(Grid& grid, const CellRange& range, const VARIANT& value)
{
    CellPos source = {};
    bool named = ReadSourceCell(value, source) && IsCell(grid, source.Row, source.Col);
    const CellFormat* format = named ? CellFormatOf(grid, source.Row, source.Col) : nullptr;
    const CellFormat* none = nullptr;
    if (!format)
        return SetCellPropertyRange(grid, range, CellSelector::CopyFormat, none);
    FormatSnapshot snapshot(*format);
    return SetCellPropertyRange(grid, range, CellSelector::CopyFormat, snapshot.Get());
}

HRESULT SortCells(Grid& grid, const CellRange& range, long order)
{
    HRESULT result = SortRange(grid, order, range.Row1, range.Row2, range.Col1, range.Col2);
    RepaintGrid(grid);
    return result;
}
} // namespace

HRESULT WriteCell(Grid& grid, int setting, const CellRange& range, const VARIANT& given)
{
    if (static_cast<unsigned>(setting) >= CellSettingCount)
        return LORV_E_VALUE;
    const CellSetting& cellSetting = cellSettings[setting];
    const VARIANT& value = FollowVariant(given);
    if (IsNullReference(value))
        return E_INVALIDARG;
    switch (cellSetting.Form) {
    case ValueForm::Text:
        return WriteText(grid, range, given);
    case ValueForm::Number:
    case ValueForm::Checked:
    case ValueForm::Percent:
        return WriteNumber(grid, range, cellSetting, VariantToLong(value, 0));
    case ValueForm::Picture:
        return WritePicture(grid, range, value);
    case ValueForm::Font:
        return WriteFont(grid, range, value);
    case ValueForm::FontName:
        return WriteFontName(grid, range, value);
    case ValueForm::Points:
        return WritePoints(grid, range, cellSetting.Selector, value);
    case ValueForm::Data:
        return WriteData(grid, range, value);
    case ValueForm::SourceCell:
        return WriteFormat(grid, range, value);
    case ValueForm::Refresh:
        return SetCellPropertyRange(grid, range, CellSelector::Refresh, nullptr);
    case ValueForm::Sort:
        return SortCells(grid, range, VariantToLong(value, 0));
    case ValueForm::Refused:
        break;
    }
    return LORV_E_VALUE;
}
