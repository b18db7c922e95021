#include "core/cell_font.h"
#include "core/cell_property.h"
#include "core/row_col.h"
#include "core/upcalls.h"
#include "platform/bstr.h"
#include "platform/com_ptr.h"
#include "platform/dpi.h"
#include "support/fakes.h"
#include "support/member_grid.h"

#include <climits>
#include <string>

namespace
{
HRESULT Write(MemberGrid& grid, CellPropertySettings setting, int row, int col, const Value& value)
{
    return grid.put_Cell(setting, Value(row), Value(col), missing, missing, value);
}

HRESULT WriteRange(MemberGrid& grid, CellPropertySettings setting, const CellRange& range, const Value& value)
{
    return grid.put_Cell(setting, Value(range.Row1), Value(range.Col1), Value(range.Row2), Value(range.Col2),
                         value);
}

HRESULT Read(MemberGrid& grid, CellPropertySettings setting, int row, int col, OwnedVariant& result)
{
    return grid.get_Cell(setting, Value(row), Value(col), missing, missing, result.Put());
}

std::wstring ReadAs(MemberGrid& grid, CellPropertySettings setting, int row, int col)
{
    OwnedVariant result;
    HRESULT read = Read(grid, setting, row, col, result);
    EXPECT_TRUE(SUCCEEDED(read) || result.Type() == VT_EMPTY) << "a failure leaves nothing behind";
    return SUCCEEDED(read) ? Describe(result.Get()) : L"failed";
}

std::wstring TextAt(Grid& grid, int row, int col)
{
    const wchar_t* text = GetCellText(grid, row, col);
    return text ? text : L"(none)";
}

// Cell

TEST(CellMember, RefusesASettingPastTheLastBeforeAnythingElse)
{
    MemberGrid grid;
    OwnedVariant result;
    for (int setting : {29, 1000, INT_MAX, -1}) {
        auto unknown = static_cast<CellPropertySettings>(setting);
        EXPECT_EQ(Read(grid, unknown, 1, 1, result), LORV_E_VALUE);
        EXPECT_EQ(Write(grid, unknown, 1, 1, 1), LORV_E_VALUE);
    }
    EXPECT_EQ(grid.get_Cell(lorvcpText, missing, missing, missing, missing, nullptr), E_POINTER);
}

TEST(CellMember, TakesItsRangeFromWhateverConvertsToANumber)
{
    MemberGrid grid;
    grid.Row = 7, grid.Col = 8;
    VARIANT three;
    three.vt = VT_I4, three.lVal = 3;
    FakeDispatch object;
    struct Case {
        Value Argument;
        int Expected; // as a row; -1 for the current one
    };
    const Case cases[] = {
        {Value(3), 3},
        {Value(3.0), 3},
        {Value(2.6), 3},
        {Value(L"3"), 3},
        {Value(false), 0},
        {Value::To(three), 3},
        {Value(), 0}, // Empty is a number
        {Value::Missing(), -1},
        {Value(L"three"), -1},
        {Value::OfType(VT_NULL), -1},
        {Value::OfType(VT_BYREF | VT_VARIANT), -1},
        {Value::OfType(VT_BYREF | VT_I4), -1},
        {Value(&object), -1},
    };
    for (const Case& each : cases) {
        int row = each.Expected < 0 ? 7 : each.Expected;
        SetCellText(grid, row, 8, L"here");
        Value result;
        ASSERT_EQ(grid.get_Cell(lorvcpText, each.Argument, missing, missing, missing, &result.Get()), S_OK);
        EXPECT_EQ(Describe(result.Get()), L"BSTR here") << each.Argument.Type();
        ASSERT_EQ(grid.put_Cell(lorvcpText, each.Argument, missing, missing, missing, Value(L"written")),
                  S_OK);
        EXPECT_EQ(TextAt(grid, row, 8), L"written") << each.Argument.Type();
        SetCellText(grid, row, 8, nullptr);
    }
}

// Programs with typed variables pass references to them.
TEST(CellMember, TakesReferencesToTypedVariables)
{
    LONG row = 3;
    SHORT col = 2;
    double lastRow = 4.0;
    Bstr lastCol(L"5");
    auto reference = [](VARTYPE type, void* target) {
        Value value = Value::OfType(VT_BYREF | type);
        value.Get().byref = target;
        return value;
    };
    BSTR text = lastCol.Get();
    Value row1 = reference(VT_I4, &row), col1 = reference(VT_I2, &col);
    Value row2 = reference(VT_R8, &lastRow), col2 = reference(VT_BSTR, &text);
    MemberGrid grid;
    ASSERT_EQ(grid.put_Cell(lorvcpText, row1, col1, row2, col2, reference(VT_BSTR, &text)), S_OK);
    ASSERT_EQ(
        grid.put_Cell(lorvcpAlignment, row1, col1, Value::To(row2.Get()), col2, reference(VT_R8, &lastRow)),
        S_OK);
    ASSERT_EQ(grid.put_Cell(lorvcpFontSize, row1, col1, row2, col2, reference(VT_I4, &row)), S_OK);
    ASSERT_EQ(grid.put_Cell(lorvcpData, row1, col1, row2, col2, reference(VT_I2, &col)), S_OK);
    for (int r = 2; r <= 5; ++r)
        for (int c = 1; c <= 6; ++c)
            EXPECT_EQ(TextAt(grid, r, c), r == 3 || r == 4 ? c >= 2 && c <= 5 ? L"5" : L"(none)" : L"(none)");
    EXPECT_EQ(ReadAs(grid, lorvcpAlignment, 4, 5), L"I2 4");
    EXPECT_EQ(ReadAs(grid, lorvcpFontSize, 4, 5), L"R4 300");
    EXPECT_EQ(ReadAs(grid, lorvcpData, 3, 2), L"I2 2");
    OwnedVariant read;
    ASSERT_EQ(grid.get_Cell(lorvcpText, row1, col1, row1, col1, read.Put()), S_OK);
    EXPECT_EQ(Describe(read.Get()), L"BSTR 5");
}

TEST(CellMember, RefusesIndexesOutside)
{
    MemberGrid grid;
    for (int bad : {-1, 50, INT_MAX, INT_MIN}) {
        OwnedVariant result;
        EXPECT_EQ(grid.get_Cell(lorvcpText, Value(bad), Value(1), missing, missing, result.Put()),
                  LORV_E_INDEX);
        EXPECT_EQ(grid.get_Cell(lorvcpText, Value(1), Value(bad), missing, missing, result.Put()),
                  LORV_E_INDEX);
        EXPECT_EQ(grid.get_Cell(lorvcpText, Value(1), Value(1), Value(bad), missing, result.Put()),
                  LORV_E_INDEX);
        EXPECT_EQ(grid.get_Cell(lorvcpText, Value(1), Value(1), missing, Value(bad), result.Put()),
                  LORV_E_INDEX);
        EXPECT_EQ(grid.put_Cell(lorvcpText, Value(bad), Value(1), missing, missing, Value(L"x")),
                  LORV_E_INDEX);
        EXPECT_EQ(grid.put_Cell(lorvcpText, Value(1), Value(1), missing, Value(bad), Value(L"x")),
                  LORV_E_INDEX);
    }
    EXPECT_EQ(grid.RowTable[1].Cells, nullptr);
}

// Without a current cell a write means the first one; a read has nothing to read.
TEST(CellMember, WithoutACurrentCellWritesTheFirst)
{
    MemberGrid grid;
    grid.Row = grid.Col = -1;
    OwnedVariant result;
    EXPECT_EQ(grid.get_Cell(lorvcpText, missing, missing, missing, missing, result.Put()), LORV_E_INDEX);
    EXPECT_EQ(grid.put_Cell(lorvcpText, missing, missing, missing, missing, Value(L"x")), S_OK);
    EXPECT_EQ(TextAt(grid, 0, 0), L"x");
    EXPECT_EQ(grid.put_Cell(lorvcpText, Value(-1), Value(0), missing, missing, Value(L"x")), LORV_E_INDEX)
        << "an index that was given counts as it is";
}

TEST(CellMember, TheSecondCornerIsTheFirstUnlessGiven)
{
    MemberGrid grid;
    ASSERT_EQ(grid.put_Cell(lorvcpForeColor, Value(3), Value(4), Value(1), missing, Value(9)), S_OK);
    for (int row = 0; row < 5; ++row)
        for (int col = 3; col < 6; ++col)
            EXPECT_EQ(CellFormatOf(grid, row, col) != nullptr, row >= 1 && row <= 3 && col == 4);
}

TEST(CellMember, ReadsABareCell)
{
    MemberGrid grid;
    struct Case {
        CellPropertySettings Setting;
        const wchar_t* Expected;
    };
    const Case cases[] = {
        {lorvcpText, L"BSTR (null)"},
        {lorvcpTextStyle, L"I2 0"},
        {lorvcpAlignment, L"I2 9"},
        {lorvcpPicture, L"DISPATCH nothing"},
        {lorvcpPictureAlignment, L"I2 1"},
        {lorvcpChecked, L"I2 0"},
        {lorvcpBackColor, L"I4 0"},
        {lorvcpForeColor, L"I4 0"},
        {lorvcpFloodPercent, L"I2 0"},
        {lorvcpFloodColor, L"I4 0"},
        {lorvcpFont, L"DISPATCH object"},
        {lorvcpFontBold, L"BOOL false"},
        {lorvcpFontItalic, L"BOOL false"},
        {lorvcpFontUnderline, L"BOOL false"},
        {lorvcpFontStrikethru, L"BOOL false"},
        {lorvcpValue, L"R8 0"},
        {lorvcpTextDisplay, L"BSTR (null)"},
        {lorvcpData, L"EMPTY"},
        {lorvcpCustomFormat, L"BOOL false"},
        {lorvcpVariantValue, L"BSTR (null)"},
        {lorvcpRefresh, L"failed"},
        {lorvcpSort, L"failed"},
    };
    for (const Case& each : cases)
        EXPECT_EQ(ReadAs(grid, each.Setting, 1, 1), each.Expected) << each.Setting;
    EXPECT_EQ(grid.RowTable[1].Cells, nullptr) << "reading makes nothing";
}

TEST(CellMember, ReadsBackWhatWasWritten)
{
    struct Case {
        CellPropertySettings Setting;
        Value Written;
        const wchar_t* Expected;
    };
    const Case cases[] = {
        {lorvcpText, L"text", L"BSTR text"},
        {lorvcpText, 12, L"BSTR 12"},
        {lorvcpTextStyle, 4, L"I2 4"},
        {lorvcpTextStyle, L"2", L"I2 2"},
        {lorvcpAlignment, 12, L"I2 12"},
        {lorvcpAlignment, 7.0, L"I2 7"},
        {lorvcpAlignment, L"left", L"I2 0"}, // what is no number counts as 0
        {lorvcpPictureAlignment, 10, L"I2 10"},
        {lorvcpChecked, 7, L"I2 7"},
        {lorvcpChecked, true, L"I2 1"},
        {lorvcpBackColor, 255, L"I4 255"},
        {lorvcpForeColor, static_cast<int>(0x80000008), L"I4 -2147483640"},
        {lorvcpFloodColor, 5, L"I4 5"},
        {lorvcpFloodPercent, 50, L"I2 50"},
        {lorvcpFloodPercent, 101, L"I2 100"},
        {lorvcpFloodPercent, -1000, L"I2 -100"},
        {lorvcpFontName, L"Courier New", L"BSTR Courier New"},
        {lorvcpFontSize, 12, L"R4 1200"},
        {lorvcpFontSize, L"12", L"R4 1200"},
        {lorvcpFontBold, true, L"BOOL true"},
        {lorvcpFontItalic, true, L"BOOL true"},
        {lorvcpFontUnderline, 1, L"BOOL true"},
        {lorvcpFontStrikethru, true, L"BOOL true"},
        {lorvcpFontWidth, 6, L"R4 600"},
        {lorvcpData, 42, L"I4 42"},
        {lorvcpData, L"data", L"BSTR data"},
        {lorvcpData, Value(), L"EMPTY"},
    };
    for (const Case& each : cases) {
        MemberGrid grid;
        ASSERT_EQ(Write(grid, each.Setting, 2, 3, each.Written), S_OK) << each.Setting;
        EXPECT_EQ(ReadAs(grid, each.Setting, 2, 3), each.Expected) << each.Setting;
        MemberGrid other;
        EXPECT_EQ(other.putref_Cell(each.Setting, Value(2), Value(3), missing, missing, each.Written), S_OK);
        EXPECT_EQ(ReadAs(other, each.Setting, 2, 3), each.Expected) << "putref is put";
    }
}

TEST(CellMember, RefusesValues)
{
    FakeDispatch object;
    struct Case {
        CellPropertySettings Setting;
        Value Written;
        HRESULT Expected;
    };
    const Case cases[] = {
        {lorvcpTextStyle, 5, LORV_E_VALUE},
        {lorvcpTextStyle, -1, LORV_E_VALUE},
        {lorvcpAlignment, 13, LORV_E_VALUE},
        {lorvcpAlignment, true, LORV_E_VALUE},
        {lorvcpPictureAlignment, 11, LORV_E_VALUE},
        {lorvcpPictureAlignment, -1, LORV_E_VALUE},
        {lorvcpChecked, 8, LORV_E_VALUE},
        {lorvcpChecked, -2, LORV_E_VALUE},
        {lorvcpPicture, 5, LORV_E_VALUE},
        {lorvcpPicture, Value::OfType(VT_NULL), LORV_E_VALUE},
        {lorvcpPicture, Value(&object), LORV_E_VALUE},
        {lorvcpFont, 5, LORV_E_VALUE},
        {lorvcpFont, L"Arial", LORV_E_VALUE},
        {lorvcpFont, Value(&object), LORV_E_VALUE},
        {lorvcpFont, Value::OfType(VT_ARRAY), LORV_E_VALUE},
        {lorvcpValue, 5, LORV_E_VALUE},
        {lorvcpTextDisplay, L"x", LORV_E_VALUE},
        {lorvcpLeft, 5, LORV_E_VALUE},
        {lorvcpTop, 5, LORV_E_VALUE},
        {lorvcpWidth, 5, LORV_E_VALUE},
        {lorvcpHeight, 5, LORV_E_VALUE},
        {lorvcpVariantValue, 5, LORV_E_VALUE},
        {lorvcpText, Value::OfType(VT_NULL), DISP_E_TYPEMISMATCH},
        {lorvcpText, Value::OfType(VT_BYREF | VT_VARIANT), E_INVALIDARG},
        {lorvcpData, Value::OfType(VT_BYREF | VT_BSTR), E_INVALIDARG},
    };
    for (const Case& each : cases) {
        MemberGrid grid;
        EXPECT_EQ(Write(grid, each.Setting, 2, 3, each.Written), each.Expected) << each.Setting;
        EXPECT_EQ(grid.RowTable[2].Cells, nullptr) << each.Setting;
    }
}

TEST(CellMember, SpreadsATextWithSeparatorsOverARange)
{
    MemberGrid grid;
    ASSERT_EQ(WriteRange(grid, lorvcpText, {1, 1, 2, 2}, L"a\tb\rc\td"), S_OK);
    EXPECT_EQ(TextAt(grid, 1, 1), L"a");
    EXPECT_EQ(TextAt(grid, 1, 2), L"b");
    EXPECT_EQ(TextAt(grid, 2, 1), L"c");
    EXPECT_EQ(TextAt(grid, 2, 2), L"d");
    OwnedVariant result;
    ASSERT_EQ(grid.get_Cell(lorvcpText, Value(2), Value(2), Value(1), Value(1), result.Put()), S_OK);
    EXPECT_EQ(Describe(result.Get()), L"BSTR a\tb\rc\td");
}

TEST(CellMember, StoresATextWithoutSeparatorsInEveryCell)
{
    MemberGrid grid;
    ASSERT_EQ(WriteRange(grid, lorvcpText, {2, 2, 1, 1}, L"same"), S_OK);
    EXPECT_EQ(TextAt(grid, 1, 1), L"same");
    EXPECT_EQ(TextAt(grid, 2, 2), L"same");
    ASSERT_EQ(WriteRange(grid, lorvcpText, {1, 1, 2, 2}, L""), S_OK);
    EXPECT_EQ(TextAt(grid, 2, 1), L"(none)");
}

TEST(CellMember, StoresATextForASingleCellWhole)
{
    MemberGrid grid;
    ASSERT_EQ(Write(grid, lorvcpText, 1, 1, L"a\tb"), S_OK);
    EXPECT_EQ(TextAt(grid, 1, 1), L"a\tb");
    EXPECT_EQ(TextAt(grid, 1, 2), L"(none)");
}

TEST(CellMember, SpreadsByTheProgramsSeparators)
{
    MemberGrid grid;
    grid.ClipSeparators = SysAllocString(L"|;");
    WriteRange(grid, lorvcpText, {1, 1, 1, 2}, L"a\tb");
    EXPECT_EQ(TextAt(grid, 1, 2), L"a\tb");
    WriteRange(grid, lorvcpText, {1, 1, 1, 2}, L"a|b");
    EXPECT_EQ(TextAt(grid, 1, 2), L"b");
}

// A handler that changes the variable it is called for changes nothing of the write that is under way.
TEST(CellMember, WritesATextBehindAReferenceAsItWas)
{
    MemberGrid grid;
    EventSink sink;
    Connection connected(grid.EventSinks, &sink);
    Value variable(L"first");
    sink.On = [&](DISPID, DISPPARAMS&) {
        SysFreeString(variable.Get().bstrVal);
        variable.Get().bstrVal = SysAllocString(L"other");
    };
    ASSERT_EQ(WriteRange(grid, lorvcpText, {1, 1, 1, 3}, Value::To(variable.Get())), S_OK);
    for (int col = 1; col <= 3; ++col)
        EXPECT_EQ(TextAt(grid, 1, col), L"first");
}

TEST(CellMember, ReadsNumbersFromTexts)
{
    MemberGrid grid;
    SetCellText(grid, 1, 1, L"12");
    EXPECT_EQ(ReadAs(grid, lorvcpValue, 1, 1), L"R8 1200");
    EXPECT_EQ(ReadAs(grid, lorvcpVariantValue, 1, 1), L"R8 1200");
    SetCellText(grid, 1, 1, L"(1,000)");
    EXPECT_EQ(ReadAs(grid, lorvcpValue, 1, 1), L"R8 -100000");
    SetCellText(grid, 1, 1, L"word");
    EXPECT_EQ(ReadAs(grid, lorvcpValue, 1, 1), L"R8 0");
    EXPECT_EQ(ReadAs(grid, lorvcpVariantValue, 1, 1), L"BSTR word");
}

// A format changes what is shown; the value stays that of the text.
TEST(CellMember, TellsTheTextItsValueAndWhatIsShownApart)
{
    MemberGrid grid;
    grid.put_ColFormat(1, Bstr(L"000").Get());
    grid.put_ColFormat(2, Bstr(L"0%").Get());
    grid.put_ColFormat(3, Bstr(L"Yes;No").Get());
    grid.ColTable[3].ColDataType = lorvDTBoolean;
    struct Case {
        int Col;
        const wchar_t *Text, *Value, *Shown, *VariantValue;
    };
    const Case cases[] = {
        {1, L"7", L"R8 700", L"BSTR 007", L"R8 700"},  {1, L"word", L"R8 0", L"BSTR word", L"BSTR word"},
        {2, L"3", L"R8 300", L"BSTR 300%", L"R8 300"}, {3, L"-1", L"R8 -100", L"BSTR Yes", L"BSTR Yes"},
        {3, L"0", L"R8 0", L"BSTR No", L"BSTR No"},
    };
    for (const Case& each : cases) {
        SetCellText(grid, 1, each.Col, each.Text);
        EXPECT_EQ(ReadAs(grid, lorvcpText, 1, each.Col), std::wstring(L"BSTR ") + each.Text);
        EXPECT_EQ(ReadAs(grid, lorvcpValue, 1, each.Col), each.Value);
        EXPECT_EQ(ReadAs(grid, lorvcpTextDisplay, 1, each.Col), each.Shown);
        EXPECT_EQ(ReadAs(grid, lorvcpVariantValue, 1, each.Col), each.VariantValue);
    }
}

TEST(CellMember, ReadsPositionAndSizeInTwips)
{
    MemberGrid grid;
    RECT cell = CellRect(grid, 3, 4);
    EXPECT_EQ(ReadAs(grid, lorvcpLeft, 3, 4), L"I4 " + std::to_wstring(PixelsToTwipsX(ColX(grid, 4))));
    EXPECT_EQ(ReadAs(grid, lorvcpTop, 3, 4), L"I4 " + std::to_wstring(PixelsToTwipsY(RowY(grid, 3))));
    EXPECT_EQ(ReadAs(grid, lorvcpWidth, 3, 4),
              L"I4 " + std::to_wstring(PixelsToTwipsX(cell.right - cell.left)));
    EXPECT_EQ(ReadAs(grid, lorvcpHeight, 3, 4),
              L"I4 " + std::to_wstring(PixelsToTwipsY(cell.bottom - cell.top)));
}

// A picture object of the system, with an icon or with nothing in it.
ComPtr<IPictureDisp> MakePicture(bool empty)
{
    PICTDESC description = {};
    description.cbSizeofstruct = sizeof(description);
    description.picType = empty ? PICTYPE_NONE : PICTYPE_ICON;
    description.icon.hicon = empty ? nullptr : LoadIconW(nullptr, MAKEINTRESOURCEW(32512));
    ComPtr<IPictureDisp> picture;
    EXPECT_EQ(OleCreatePictureIndirect(&description, IID_IPictureDisp, FALSE, picture.PutVoid()), S_OK);
    return picture;
}

TEST(CellMember, TakesAndGivesPictures)
{
    auto picture = MakePicture(false);
    MemberGrid grid;
    Value object(picture.Get());
    IDispatch* pointer = picture.Get();
    Value reference = Value::OfType(VT_BYREF | VT_DISPATCH);
    reference.Get().ppdispVal = &pointer;
    const Value given[] = {object, Value::To(object.Get()), reference};
    const Value removed[] = {Value(), Value(L""), Value(static_cast<IDispatch*>(nullptr))};
    for (const Value& each : given)
        for (const Value& none : removed) {
            ASSERT_EQ(WriteRange(grid, lorvcpPicture, {1, 1, 1, 2}, each), S_OK);
            OwnedVariant read;
            ASSERT_EQ(Read(grid, lorvcpPicture, 1, 2, read), S_OK);
            EXPECT_EQ(read.Get().pdispVal, picture.Get());
            ASSERT_EQ(WriteRange(grid, lorvcpPicture, {1, 1, 1, 2}, none), S_OK);
            EXPECT_EQ(ReadAs(grid, lorvcpPicture, 1, 2), L"DISPATCH nothing");
        }
}

// A bitmap of one pixel in a file of its own.
class PictureFile
{
public:
    PictureFile()
    {
        wchar_t folder[MAX_PATH] = L"";
        GetTempPathW(MAX_PATH, folder);
        EXPECT_NE(GetTempFileNameW(folder, L"pic", 0, path_), 0u);
        BITMAPFILEHEADER file = {};
        BITMAPINFOHEADER info = {};
        file.bfType = 0x4D42;
        file.bfOffBits = sizeof(file) + sizeof(info);
        file.bfSize = file.bfOffBits + 4;
        info.biSize = sizeof(info), info.biWidth = info.biHeight = 1;
        info.biPlanes = 1, info.biBitCount = 24;
        const DWORD pixel = 0;
        HANDLE handle = CreateFileW(path_, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
        DWORD written = 0;
        WriteFile(handle, &file, sizeof(file), &written, nullptr);
        WriteFile(handle, &info, sizeof(info), &written, nullptr);
        WriteFile(handle, &pixel, sizeof(pixel), &written, nullptr);
        CloseHandle(handle);
    }
    PictureFile(const PictureFile&) = delete;
    PictureFile& operator=(const PictureFile&) = delete;
    ~PictureFile() { DeleteFileW(path_); }
    const wchar_t* Path() const { return path_; }

private:
    wchar_t path_[MAX_PATH] = L"";
};

TEST(CellMember, LoadsAPictureFileOnceForItsRange)
{
    PictureFile file;
    MemberGrid grid;
    ASSERT_EQ(WriteRange(grid, lorvcpPicture, {1, 1, 2, 2}, file.Path()), S_OK);
    IPictureDisp* picture = CellFormatOf(grid, 1, 1)->Picture;
    EXPECT_NE(picture, nullptr);
    EXPECT_EQ(CellFormatOf(grid, 2, 2)->Picture, picture);
    SHORT type = PICTYPE_NONE;
    auto loaded = QueryFor<IPicture>(picture, IID_IPicture);
    ASSERT_TRUE(loaded);
    EXPECT_EQ(loaded->get_Type(&type), S_OK);
    EXPECT_EQ(type, PICTYPE_BITMAP);
}

TEST(CellMember, GivesTheFailureOfAPictureFile)
{
    MemberGrid grid;
    HRESULT result = Write(grid, lorvcpPicture, 1, 1, L"C:\\no such folder\\no such picture.bmp");
    EXPECT_TRUE(FAILED(result));
    EXPECT_NE(result, LORV_E_VALUE);
    EXPECT_EQ(CellFormatOf(grid, 1, 1), nullptr);
}

TEST(CellMember, TakesAndGivesFontObjects)
{
    MemberGrid grid;
    Write(grid, lorvcpFontName, 1, 1, L"Courier New");
    Write(grid, lorvcpFontSize, 1, 1, 12);
    Write(grid, lorvcpFontBold, 1, 1, true);
    Value font;
    ASSERT_EQ(grid.get_Cell(lorvcpFont, Value(1), Value(1), missing, missing, &font.Get()), S_OK);
    for (const Value& given : {font, Value::To(font.Get())}) {
        ASSERT_EQ(WriteRange(grid, lorvcpFont, {2, 1, 2, 2}, given), S_OK);
        EXPECT_EQ(ReadAs(grid, lorvcpFontName, 2, 2), L"BSTR Courier New");
        EXPECT_EQ(ReadAs(grid, lorvcpFontSize, 2, 2), L"R4 1200");
        EXPECT_EQ(ReadAs(grid, lorvcpFontBold, 2, 2), L"BOOL true");
        for (const Value& none : {Value(), Value(static_cast<IDispatch*>(nullptr))}) {
            ASSERT_EQ(Write(grid, lorvcpFont, 2, 2, none), S_OK);
            EXPECT_EQ(CellFormatOf(grid, 2, 2)->Font, nullptr);
        }
    }
}

TEST(CellMember, GivesAFontObjectOfTheCellsOwn)
{
    struct Trait {
        CellPropertySettings Setting;
        HRESULT (STDMETHODCALLTYPE IFont::*Read)(BOOL*);
    };
    const Trait traits[] = {{lorvcpFontBold, &IFont::get_Bold},
                            {lorvcpFontItalic, &IFont::get_Italic},
                            {lorvcpFontUnderline, &IFont::get_Underline},
                            {lorvcpFontStrikethru, &IFont::get_Strikethrough}};
    for (const Trait& set : traits) {
        MemberGrid grid;
        Write(grid, lorvcpFontSize, 1, 1, 18);
        Write(grid, set.Setting, 1, 1, true);
        OwnedVariant first, second;
        ASSERT_EQ(Read(grid, lorvcpFont, 1, 1, first), S_OK);
        ASSERT_EQ(Read(grid, lorvcpFont, 1, 1, second), S_OK);
        EXPECT_NE(first.Get().pdispVal, second.Get().pdispVal) << "a new object each time";
        auto font = QueryFor<IFont>(first.Get().pdispVal, IID_IFont);
        ASSERT_TRUE(font);
        for (const Trait& read : traits) {
            BOOL on = FALSE;
            EXPECT_EQ((font.Get()->*read.Read)(&on), S_OK);
            EXPECT_EQ(on != FALSE, read.Setting == set.Setting) << set.Setting << " read as " << read.Setting;
        }
        CY size = {};
        EXPECT_EQ(font->get_Size(&size), S_OK);
        EXPECT_EQ(size.int64, 180000);
    }
}

TEST(CellMember, IsBoldFromAWeightOf700)
{
    struct Case {
        LONG Weight;
        const wchar_t* Expected;
    };
    const Case cases[] = {{400, L"BOOL false"},
                          {600, L"BOOL false"},
                          {699, L"BOOL false"},
                          {700, L"BOOL true"},
                          {900, L"BOOL true"}};
    for (const Case& each : cases) {
        MemberGrid grid;
        LOGFONTW description = {};
        description.lfHeight = -16;
        description.lfWeight = each.Weight;
        const LOGFONTW* font = &description;
        ASSERT_EQ(SetCellProperty(grid, 1, 1, CellSelector::Font, font), S_OK);
        EXPECT_EQ(ReadAs(grid, lorvcpFontBold, 1, 1), each.Expected) << each.Weight;
    }
}

TEST(CellMember, CopiesTheFormatOfANamedCell)
{
    for (const wchar_t* name : {L"3,4", L"3;4", L"03 ,04", L"3.7,4", L"3, 4", L"3,4 and more"}) {
        MemberGrid grid;
        Write(grid, lorvcpBackColor, 3, 4, 255);
        Write(grid, lorvcpData, 3, 4, 1);
        Write(grid, lorvcpFontItalic, 3, 4, true);
        ASSERT_EQ(WriteRange(grid, lorvcpCustomFormat, {1, 1, 3, 4}, name), S_OK);
        EXPECT_EQ(ReadAs(grid, lorvcpBackColor, 1, 1), L"I4 255") << Bstr(name).Length();
        EXPECT_EQ(ReadAs(grid, lorvcpFontItalic, 2, 2), L"BOOL true");
        EXPECT_EQ(ReadAs(grid, lorvcpData, 1, 1), L"EMPTY");
        EXPECT_EQ(ReadAs(grid, lorvcpData, 3, 4), L"I4 1") << "the source is as it was";
        EXPECT_EQ(ReadAs(grid, lorvcpBackColor, 3, 4), L"I4 255");
    }
}

TEST(CellMember, ClearsTheFormatWhereNoCellIsNamed)
{
    const Value names[] = {L"",     L"abc", L"-3,4", L" 3,4", L"3",   L"3,",           L"50,4", L"3,10",
                           L"9,9", // a cell without a format
                           Value(), false,  0,       true,    L"3,x", L"99999999999,1"};
    for (const Value& name : names) {
        MemberGrid grid;
        Write(grid, lorvcpBackColor, 1, 1, 255);
        Write(grid, lorvcpBackColor, 3, 4, 128);
        Write(grid, lorvcpBackColor, 0, 0, 128);
        ASSERT_EQ(Write(grid, lorvcpCustomFormat, 1, 1, name), S_OK);
        EXPECT_EQ(ReadAs(grid, lorvcpCustomFormat, 1, 1), L"BOOL false") << Describe(name).size();
    }
}

TEST(CellMember, DataFollowsReferencesAndIsEachCellsOwn)
{
    MemberGrid grid;
    Value text(L"shared");
    ASSERT_EQ(WriteRange(grid, lorvcpData, {1, 1, 1, 2}, Value::To(text.Get())), S_OK);
    text.Get().bstrVal[0] = L'S';
    EXPECT_EQ(ReadAs(grid, lorvcpData, 1, 1), L"BSTR shared");
    EXPECT_NE(CellFormatOf(grid, 1, 1)->Data->bstrVal, CellFormatOf(grid, 1, 2)->Data->bstrVal);
}

TEST(CellMember, SortsTheRowsOfItsRange)
{
    MemberGrid grid;
    const wchar_t* texts[] = {L"c", L"a", L"b"};
    for (int row = 1; row <= 3; ++row)
        SetCellText(grid, row, 1, texts[row - 1]);
    ASSERT_EQ(WriteRange(grid, lorvcpSort, {3, 1, 1, 1}, Value(lorvSortGenericAscending)), S_OK);
    EXPECT_EQ(TextAt(grid, 1, 1) + TextAt(grid, 2, 1) + TextAt(grid, 3, 1), L"abc");
    EXPECT_EQ(WriteRange(grid, lorvcpSort, {1, 1, 3, 1}, Value(11)), LORV_E_VALUE);
}

TEST(CellMember, SurvivesArgumentsThatChangeTheGrid)
{
    MemberGrid grid;
    FakeDispatch data;
    Write(grid, lorvcpData, 1, 2, Value(&data));
    data.OnLastRelease = [&] { ResizeBoth(grid, 2, 2); };
    EXPECT_EQ(WriteRange(grid, lorvcpData, {1, 1, 3, 3}, Value(5)), LORV_E_INDEX);
    EXPECT_EQ(ReadAs(grid, lorvcpData, 1, 1), L"I4 5");
}

// The current cell

TEST(CurrentCell, IsNotReadAtDesignTimeOrWithoutACell)
{
    using Getter = HRESULT (*)(MemberGrid&, bool nowhere);
    const Getter getters[] = {
        [](MemberGrid& g, bool n) {
            OLE_COLOR v;
            return g.get_CellBackColor(n ? nullptr : &v);
        },
        [](MemberGrid& g, bool n) {
            OLE_COLOR v;
            return g.get_CellForeColor(n ? nullptr : &v);
        },
        [](MemberGrid& g, bool n) {
            AlignmentSettings v;
            return g.get_CellAlignment(n ? nullptr : &v);
        },
        [](MemberGrid& g, bool n) {
            TextStyleSettings v;
            return g.get_CellTextStyle(n ? nullptr : &v);
        },
        [](MemberGrid& g, bool n) {
            IPictureDisp* v;
            return g.get_CellPicture(n ? nullptr : &v);
        },
        [](MemberGrid& g, bool n) {
            PictureAlignmentSettings v;
            return g.get_CellPictureAlignment(n ? nullptr : &v);
        },
        [](MemberGrid& g, bool n) {
            Bstr v;
            return g.get_CellFontName(n ? nullptr : v.Put());
        },
        [](MemberGrid& g, bool n) {
            FLOAT v;
            return g.get_CellFontSize(n ? nullptr : &v);
        },
        [](MemberGrid& g, bool n) {
            FLOAT v;
            return g.get_CellFontWidth(n ? nullptr : &v);
        },
        [](MemberGrid& g, bool n) {
            VARIANT_BOOL v;
            return g.get_CellFontBold(n ? nullptr : &v);
        },
        [](MemberGrid& g, bool n) {
            VARIANT_BOOL v;
            return g.get_CellFontItalic(n ? nullptr : &v);
        },
        [](MemberGrid& g, bool n) {
            VARIANT_BOOL v;
            return g.get_CellFontUnderline(n ? nullptr : &v);
        },
        [](MemberGrid& g, bool n) {
            VARIANT_BOOL v;
            return g.get_CellFontStrikethru(n ? nullptr : &v);
        },
        [](MemberGrid& g, bool n) {
            SHORT v;
            return g.get_CellFloodPercent(n ? nullptr : &v);
        },
        [](MemberGrid& g, bool n) {
            OLE_COLOR v;
            return g.get_CellFloodColor(n ? nullptr : &v);
        },
        [](MemberGrid& g, bool n) {
            CellCheckedSettings v;
            return g.get_CellChecked(n ? nullptr : &v);
        },
        [](MemberGrid& g, bool n) {
            DOUBLE v;
            return g.get_Value(n ? nullptr : &v);
        },
    };
    for (Getter get : getters) {
        MemberGrid grid;
        EXPECT_EQ(get(grid, false), S_OK);
        EXPECT_EQ(get(grid, true), E_POINTER);
        grid.Row = -1;
        EXPECT_EQ(get(grid, false), LORV_E_INDEX);
        grid.DesignModeCache = 1;
        EXPECT_EQ(get(grid, false), LORV_E_DESIGNMODE) << "the mode comes first";
        grid.Row = 1;
        EXPECT_EQ(get(grid, false), LORV_E_DESIGNMODE);
    }
}

TEST(CurrentCell, TakesItsPropertiesEvenAtDesignTime)
{
    MemberGrid grid;
    grid.DesignModeCache = 1;
    auto picture = MakePicture(false);
    EXPECT_EQ(grid.put_CellBackColor(1), S_OK);
    EXPECT_EQ(grid.put_CellForeColor(2), S_OK);
    EXPECT_EQ(grid.put_CellAlignment(lorvAlignGeneralBottom), S_OK);
    EXPECT_EQ(grid.put_CellTextStyle(lorvTextInsetLight), S_OK);
    EXPECT_EQ(grid.putref_CellPicture(picture.Get()), S_OK);
    EXPECT_EQ(grid.put_CellPictureAlignment(lorvPicAlignTile), S_OK);
    EXPECT_EQ(grid.put_CellFontName(Bstr(L"Courier New").Get()), S_OK);
    EXPECT_EQ(grid.put_CellFontSize(12), S_OK);
    EXPECT_EQ(grid.put_CellFontBold(VARIANT_TRUE), S_OK);
    EXPECT_EQ(grid.put_CellFontItalic(VARIANT_TRUE), S_OK);
    EXPECT_EQ(grid.put_CellFontUnderline(VARIANT_TRUE), S_OK);
    EXPECT_EQ(grid.put_CellFontStrikethru(VARIANT_TRUE), S_OK);
    EXPECT_EQ(grid.put_CellFontWidth(6), S_OK);
    EXPECT_EQ(grid.put_CellFloodPercent(-500), S_OK);
    EXPECT_EQ(grid.put_CellFloodColor(3), S_OK);
    EXPECT_EQ(grid.put_CellChecked(lorvTSGrayed), S_OK);
    const std::pair<CellPropertySettings, const wchar_t*> expected[] = {{lorvcpBackColor, L"I4 1"},
                                                                        {lorvcpForeColor, L"I4 2"},
                                                                        {lorvcpAlignment, L"I2 12"},
                                                                        {lorvcpTextStyle, L"I2 4"},
                                                                        {lorvcpPicture, L"DISPATCH object"},
                                                                        {lorvcpPictureAlignment, L"I2 10"},
                                                                        {lorvcpFontName, L"BSTR Courier New"},
                                                                        {lorvcpFontSize, L"R4 1200"},
                                                                        {lorvcpFontBold, L"BOOL true"},
                                                                        {lorvcpFontItalic, L"BOOL true"},
                                                                        {lorvcpFontUnderline, L"BOOL true"},
                                                                        {lorvcpFontStrikethru, L"BOOL true"},
                                                                        {lorvcpFontWidth, L"R4 600"},
                                                                        {lorvcpFloodPercent, L"I2 -100"},
                                                                        {lorvcpFloodColor, L"I4 3"},
                                                                        {lorvcpChecked, L"I2 5"}};
    for (const auto& [setting, value] : expected)
        EXPECT_EQ(ReadAs(grid, setting, 1, 1), value) << setting;
}

TEST(CurrentCell, RefusesValues)
{
    MemberGrid grid;
    for (int bad : {13, -1})
        EXPECT_EQ(grid.put_CellAlignment(static_cast<AlignmentSettings>(bad)), LORV_E_VALUE);
    for (int bad : {5, -1})
        EXPECT_EQ(grid.put_CellTextStyle(static_cast<TextStyleSettings>(bad)), LORV_E_VALUE);
    for (int bad : {11, -1})
        EXPECT_EQ(grid.put_CellPictureAlignment(static_cast<PictureAlignmentSettings>(bad)), LORV_E_VALUE);
    for (int bad : {8, -2})
        EXPECT_EQ(grid.put_CellChecked(static_cast<CellCheckedSettings>(bad)), LORV_E_VALUE);
    EXPECT_EQ(grid.put_CellChecked(static_cast<CellCheckedSettings>(-1)), S_OK);
    EXPECT_EQ(ReadAs(grid, lorvcpChecked, 1, 1), L"I2 1");
    EXPECT_EQ(CellFormatOf(grid, 1, 1), nullptr);
}

TEST(CurrentCell, GoesBackToTheGridsFont)
{
    using Setter = HRESULT (*)(MemberGrid&);
    const Setter setters[] = {[](MemberGrid& g) { return g.put_CellFontName(nullptr); },
                              [](MemberGrid& g) { return g.put_CellFontName(Bstr(L"").Get()); },
                              [](MemberGrid& g) { return g.put_CellFontSize(0); },
                              [](MemberGrid& g) { return g.put_CellFontWidth(0); }};
    for (Setter set : setters) {
        MemberGrid grid;
        grid.put_CellFontBold(VARIANT_TRUE);
        ASSERT_NE(CellFormatOf(grid, 1, 1)->Font, nullptr);
        EXPECT_EQ(set(grid), S_OK);
        EXPECT_EQ(CellFormatOf(grid, 1, 1)->Font, nullptr);
    }
}

TEST(CurrentCell, AnEmptyPictureTakesItsPictureAway)
{
    auto picture = MakePicture(false), empty = MakePicture(true);
    FakePicture noPicture;
    for (IPictureDisp* none : {empty.Get(), noPicture.Get(), static_cast<IPictureDisp*>(nullptr)}) {
        MemberGrid grid;
        EXPECT_EQ(grid.put_CellPicture(picture.Get()), S_OK);
        ComPtr<IPictureDisp> read;
        EXPECT_EQ(grid.get_CellPicture(read.Put()), S_OK);
        EXPECT_EQ(read.Get(), picture.Get());
        EXPECT_EQ(grid.put_CellPicture(none), S_OK);
        EXPECT_EQ(ReadAs(grid, lorvcpPicture, 1, 1), L"DISPATCH nothing");
    }
}

TEST(CurrentCell, FillsTheSelectionWhenFillStyleRepeats)
{
    MemberGrid grid;
    grid.Row = 3, grid.RowSel = 2, grid.Col = 1, grid.ColSel = 2;
    grid.FillStyle = lorvFillRepeat;
    grid.put_Text(Bstr(L"a\tb").Get());
    EXPECT_EQ(TextAt(grid, 2, 2), L"a\tb") << "a text is not spread here";
    EXPECT_EQ(TextAt(grid, 3, 1), L"a\tb");
}

// Texts by index

TEST(TextMember, OutsideTheGridIsEmptyAndNoError)
{
    MemberGrid grid;
    Bstr text;
    grid.put_Text(Bstr(L"here").Get());
    EXPECT_EQ(grid.get_Text(text.Put()), S_OK);
    EXPECT_STREQ(text.Text(), L"here");
    grid.Row = -1;
    EXPECT_EQ(grid.get_Text(text.Put()), S_OK);
    EXPECT_EQ(text.Length(), 0u);
    EXPECT_EQ(grid.put_Text(nullptr), LORV_E_INDEX);
    EXPECT_EQ(grid.get_Text(nullptr), E_POINTER);
    grid.DesignModeCache = 1;
    EXPECT_EQ(grid.get_Text(text.Put()), LORV_E_DESIGNMODE);
}

TEST(TextMatrixMember, WritesOneCellWhateverIsSelected)
{
    MemberGrid grid;
    grid.FillStyle = lorvFillRepeat;
    grid.DesignModeCache = 1; // readable and writable at design time
    ASSERT_EQ(grid.put_TextMatrix(2, 3, Bstr(L"x").Get()), S_OK);
    Bstr text;
    ASSERT_EQ(grid.get_TextMatrix(2, 3, text.Put()), S_OK);
    EXPECT_STREQ(text.Text(), L"x");
    EXPECT_EQ(grid.RowTable[1].Cells, nullptr);
    for (int bad : {-1, 50, INT_MAX}) {
        EXPECT_EQ(grid.put_TextMatrix(bad, 1, nullptr), LORV_E_INDEX);
        EXPECT_EQ(grid.put_TextMatrix(1, bad, nullptr), LORV_E_INDEX);
        EXPECT_EQ(grid.get_TextMatrix(bad, 1, text.Put()), LORV_E_INDEX);
        EXPECT_EQ(grid.get_TextMatrix(1, bad, text.Put()), LORV_E_INDEX);
    }
    EXPECT_EQ(grid.get_TextMatrix(1, 1, nullptr), E_POINTER);
}

TEST(TextArrayMember, CountsCellsRowByRow)
{
    MemberGrid grid;
    ASSERT_EQ(grid.put_TextArray(23, Bstr(L"x").Get()), S_OK);
    EXPECT_EQ(TextAt(grid, 2, 3), L"x");
    Bstr text;
    ASSERT_EQ(grid.get_TextArray(23, text.Put()), S_OK);
    EXPECT_STREQ(text.Text(), L"x");
    for (int bad : {-1, -10, 500, INT_MAX, INT_MIN}) {
        EXPECT_EQ(grid.get_TextArray(bad, text.Put()), LORV_E_INDEX) << bad;
        EXPECT_EQ(grid.put_TextArray(bad, nullptr), LORV_E_INDEX) << bad;
    }
    ResizeCols(grid, 0);
    EXPECT_EQ(grid.get_TextArray(0, text.Put()), LORV_E_INDEX);
    EXPECT_EQ(grid.put_TextArray(0, nullptr), LORV_E_INDEX);
}

TEST(ValueMatrixMember, ReadsBooleansAsMinusOne)
{
    MemberGrid grid;
    grid.ColTable[0].ColDataType = grid.ColTable[2].ColDataType = lorvDTBoolean;
    struct Case {
        int Row, Col;
        const wchar_t* Text;
        double Expected;
    };
    const Case cases[] = {
        {1, 2, L"True", -1},   {1, 2, L"-1", -1}, {1, 2, L"7", -1}, {1, 2, L"0", 0}, {1, 2, L"False", 0},
        {1, 2, L"neither", 0}, {1, 2, L"", 0},    {0, 2, L"7", 7},  {1, 0, L"7", 7}, {1, 3, L"7", 7},
        {1, 3, L"True", 0},    {1, 3, L"12", 12}, {1, 3, L"", 0},
    };
    for (const Case& each : cases) {
        SetCellText(grid, each.Row, each.Col, each.Text);
        double value = 99;
        EXPECT_EQ(grid.get_ValueMatrix(each.Row, each.Col, &value), S_OK);
        EXPECT_EQ(value, each.Expected) << each.Row << "," << each.Col << " " << Bstr(each.Text).Length();
    }
    double value = 0;
    EXPECT_EQ(grid.get_ValueMatrix(-1, 1, &value), LORV_E_INDEX);
    EXPECT_EQ(grid.get_ValueMatrix(1, 10, &value), LORV_E_INDEX);
    EXPECT_EQ(grid.get_ValueMatrix(1, 1, nullptr), E_POINTER);
    SetCellText(grid, 1, 1, L"12");
    EXPECT_EQ(grid.get_Value(&value), S_OK);
    EXPECT_EQ(value, 12);
}
} // namespace
