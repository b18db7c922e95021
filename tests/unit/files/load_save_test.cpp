// SaveGrid and LoadGrid over files: names, options, codes, and what a load leaves behind.
#include "core/check_state.h"
#include "file_samples.h"
#include "files/load_save.h"
#include "support/fakes.h"
#include "support/member_grid.h"

#include <cstdio>
#include <string>

namespace
{
// A folder of its own for each test, gone with it.
class FileMembers : public testing::Test
{
protected:
    void SetUp() override
    {
        wchar_t temp[MAX_PATH] = {};
        GetTempPathW(MAX_PATH, temp);
        folder_ = std::wstring(temp) + L"lorv" + std::to_wstring(GetCurrentProcessId());
        CreateDirectoryW(folder_.c_str(), nullptr);
    }
    void TearDown() override
    {
        WIN32_FIND_DATAW found = {};
        HANDLE search = FindFirstFileW((folder_ + L"\\*").c_str(), &found);
        if (search != INVALID_HANDLE_VALUE) {
            do {
                SetFileAttributesW(Name(found.cFileName).Text(), FILE_ATTRIBUTE_NORMAL);
                DeleteFileW(Name(found.cFileName).Text());
                RemoveDirectoryW(Name(found.cFileName).Text());
            } while (FindNextFileW(search, &found));
            FindClose(search);
        }
        EXPECT_TRUE(RemoveDirectoryW(folder_.c_str())) << "a file is still open";
    }

    Bstr Name(const wchar_t* file) const { return Bstr((folder_ + L"\\" + file).c_str()); }

    HRESULT Save(GridMembers& grid, const wchar_t* file, int kind, const Value& options = missing)
    {
        return grid.SaveGrid(Name(file).Get(), static_cast<SaveLoadSettings>(kind), options);
    }
    HRESULT Load(GridMembers& grid, const wchar_t* file, int kind, const Value& options = missing)
    {
        return grid.LoadGrid(Name(file).Get(), static_cast<SaveLoadSettings>(kind), options);
    }

    std::string Read(const wchar_t* file) const
    {
        std::string bytes;
        FILE* stream = _wfopen(Name(file).Text(), L"rb");
        EXPECT_TRUE(stream);
        for (int byte; stream && (byte = std::fgetc(stream)) != EOF;)
            bytes += static_cast<char>(byte);
        if (stream)
            std::fclose(stream);
        return bytes;
    }
    void Write(const wchar_t* file, const std::string& bytes) const
    {
        FILE* stream = _wfopen(Name(file).Text(), L"wb");
        ASSERT_TRUE(stream);
        std::fwrite(bytes.data(), 1, bytes.size(), stream);
        std::fclose(stream);
    }

    std::wstring folder_;
};

// a b / c d, the first row and column fixed
struct Table : MemberGrid {
    Table()
    {
        ResizeRows(*this, 2);
        ResizeCols(*this, 2);
        OptionWord &= ~OptionAutoResize;
        SetCellText(*this, 0, 0, L"a");
        SetCellText(*this, 0, 1, L"b");
        SetCellText(*this, 1, 0, L"c");
        SetCellText(*this, 1, 1, L"d");
    }
    std::wstring At(int row, int col)
    {
        const wchar_t* text = IsCell(*this, row, col) ? GetCellText(*this, row, col) : nullptr;
        return text ? text : L"";
    }
};

TEST_F(FileMembers, WriteAndReadEveryKind)
{
    for (int kind : {0, 1, 3, 4, 5, 7}) {
        Table grid, other;
        ResizeRows(other, 1);
        bool text = kind >= 3;
        ASSERT_EQ(S_OK, Save(grid, L"x", kind, Value(text))) << kind;
        ASSERT_EQ(S_OK, Load(other, L"x", kind, Value(text))) << kind;
        EXPECT_EQ(other.Rows, 2) << kind;
        EXPECT_EQ(other.At(0, 0), L"a") << kind;
        EXPECT_EQ(other.At(1, 1), L"d") << kind;
    }
}

TEST_F(FileMembers, RefuseUnknownKindsBeforeAnyFileIsTouched)
{
    Table grid;
    for (int kind : {8, 100, -1, INT_MIN}) {
        EXPECT_EQ(LORV_E_VALUE, Save(grid, L"x", kind));
        EXPECT_EQ(LORV_E_VALUE, Load(grid, L"x", kind));
    }
    EXPECT_EQ(GetFileAttributesW(Name(L"x").Text()), INVALID_FILE_ATTRIBUTES);
}

TEST_F(FileMembers, SayThatWorkbooksAreNotBuilt)
{
    Table grid;
    EXPECT_EQ(E_NOTIMPL, Save(grid, L"x", lorvFileExcel));
    EXPECT_EQ(E_NOTIMPL, Load(grid, L"x", lorvFileExcel));
    EXPECT_EQ(GetFileAttributesW(Name(L"x").Text()), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(grid.At(1, 1), L"d");
}

TEST_F(FileMembers, AreDisabledBySafetySettings)
{
    Table grid;
    grid.SafetyOptions = 1;
    EXPECT_EQ(LORV_E_VALUE, Save(grid, L"x", 8)) << "the kind is looked at first";
    for (int kind : {0, 2, 3, 6, 7}) {
        EXPECT_EQ(LORV_E_SAFETY, Save(grid, L"x", kind));
        EXPECT_EQ(LORV_E_SAFETY, Load(grid, L"x", kind));
    }
    EXPECT_EQ(GetFileAttributesW(Name(L"x").Text()), INVALID_FILE_ATTRIBUTES);
    IErrorInfo* info = nullptr;
    ASSERT_EQ(S_OK, GetErrorInfo(0, &info));
    Bstr text;
    info->GetDescription(text.Put());
    info->Release();
    EXPECT_STREQ(text.Text(), L"Disabled by browser safety settings");
}

TEST_F(FileMembers, LoadNoDataIntoABoundGridAtRunTime)
{
    FakeSource source;
    AmbientHost host;
    for (bool array : {false, true}) {
        for (bool userMode : {true, false}) {
            Table grid;
            ASSERT_EQ(S_OK, Save(grid, L"x", 0));
            host.UserMode = userMode;
            host.Attach(grid);
            grid.SafetyOptions = userMode; // the binding is looked at first
            if (array)
                grid.BoundKind = VT_I4;
            else
                grid.LorvDataSource = &source;
            for (int kind : {0, 1, 3, 4, 5, 7})
                if (userMode) {
                    EXPECT_EQ(LORV_E_BOUND, Load(grid, L"x", kind)) << kind;
                }
            grid.SafetyOptions = 0;
            EXPECT_EQ(S_OK, Load(grid, L"x", lorvFileFormat)) << "a format is no data";
            EXPECT_EQ(userMode ? LORV_E_BOUND : LORV_E_NOTFOUND, Load(grid, L"no such file", 0));
            grid.BoundKind = BoundNone;
            grid.LorvDataSource = nullptr;
        }
    }
}

TEST_F(FileMembers, ReportFilesThatCannotBeOpened)
{
    Table grid;
    grid.Row = grid.TopRow = 1;
    grid.RowTable[1].Status = lorvrsModified;
    CreateDirectoryW(Name(L"folder").Text(), nullptr);
    for (const wchar_t* file : {L"folder", L"no such folder\\x", L"wrong?name*", L"", L"folder\\"}) {
        for (int kind : {0, 1, 2, 3, 4, 5, 7}) {
            EXPECT_EQ(LORV_E_CANNOTWRITE, Save(grid, file, kind)) << kind;
            EXPECT_EQ(LORV_E_NOTFOUND, Load(grid, file, kind)) << kind;
        }
    }
    EXPECT_EQ(LORV_E_NOTFOUND, Load(grid, L"missing", 0));
    VARIANT none = missing;
    EXPECT_EQ(LORV_E_CANNOTWRITE, grid.SaveGrid(nullptr, lorvFileAll, none));
    EXPECT_EQ(LORV_E_NOTFOUND, grid.LoadGrid(nullptr, lorvFileAll, none));
    EXPECT_EQ(grid.RowTable[1].Status, lorvrsModified) << "nothing follows a load that did not begin";
    EXPECT_EQ(grid.At(1, 1), L"d");
}

TEST_F(FileMembers, ReportAFileThatMayNotBeWritten)
{
    Table grid;
    Write(L"x", "old");
    HANDLE other = CreateFileW(Name(L"x").Text(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    for (int kind : {0, 3}) {
        EXPECT_EQ(LORV_E_CANNOTWRITE, Save(grid, L"x", kind));
        EXPECT_EQ(LORV_E_NOTFOUND, Load(grid, L"x", kind));
    }
    CloseHandle(other);
    EXPECT_EQ(Read(L"x"), "old");
}

// Where there is no such device the name cannot be opened, which has the same code.
TEST_F(FileMembers, ReportAFullDisk)
{
    Table grid;
    VARIANT none = missing;
    for (auto kind : {lorvFileAll, lorvFileCommaText})
        EXPECT_EQ(LORV_E_CANNOTWRITE, grid.SaveGrid(Bstr(L"Z:\\dev\\full").Get(), kind, none));
}

TEST_F(FileMembers, ReplaceAnOldFile)
{
    Table grid;
    Write(L"x", std::string(5000, 'o'));
    ASSERT_EQ(S_OK, Save(grid, L"x", lorvFileFormat));
    EXPECT_EQ(Read(L"x").size(), 196u);
}

TEST_F(FileMembers, TakeNamesOutsideTheCodePage)
{
    Table grid, other;
    const wchar_t name[] = L"\x4E2D\x6587 \xE9\x17E.lv";
    ASSERT_EQ(S_OK, Save(grid, name, 0));
    ResizeRows(other, 1);
    ASSERT_EQ(S_OK, Load(other, name, 0));
    EXPECT_EQ(other.At(1, 1), L"d");
}

TEST_F(FileMembers, TakeLongNamesAsTheSystemDoes)
{
    Table grid, other;
    for (size_t length : {150, 250, 400, 40000}) {
        std::wstring name(length, L'n');
        HRESULT saved = Save(grid, name.c_str(), 0);
        ASSERT_TRUE(saved == S_OK || saved == LORV_E_CANNOTWRITE) << length;
        EXPECT_EQ(saved == S_OK ? S_OK : LORV_E_NOTFOUND, Load(other, name.c_str(), 0)) << length;
        if (length == 150)
            EXPECT_EQ(saved, S_OK);
        if (length == 40000)
            EXPECT_EQ(saved, LORV_E_CANNOTWRITE);
    }
}

TEST_F(FileMembers, NeverReadFromADevice)
{
    Table grid;
    VARIANT none = missing;
    for (const wchar_t* device : {L"NUL", L"\\\\.\\NUL"}) {
        Bstr name(device);
        for (auto kind : {lorvFileAll, lorvFileTabText})
            EXPECT_EQ(LORV_E_NOTFOUND, grid.LoadGrid(name.Get(), kind, none));
    }
    EXPECT_EQ(grid.At(1, 1), L"d");
}

TEST_F(FileMembers, ReadOptionsOfSaving)
{
    // Letters with and without fixed cells, hidden second column, UTF-16
    Value inner(L"f");
    struct {
        Value Options;
        std::string Expected;
    } cases[] = {
        {missing, "d"},
        {Value(), "d"},
        {Value(0), "d"},
        {Value(1), "a,b\r\nc,d"},
        {Value(2), "a,b\r\nc,d"},
        {Value(true), "a,b\r\nc,d"},
        {Value(-7.0), "a,b\r\nc,d"},
        {Value(L"1"), "d"},
        {Value(L""), "d"},
        {Value(L"xyz"), "d"},
        {Value(L"F"), "a,b\r\nc,d"},
        {Value(L"v"), ""},
        {Value(L"Fv"), "a,\r\nc,"},
        {Value(L"U"), Utf16(L"\xFEFF"
                            L"d")},
        {Value(L"and u f v"), Utf16(L"\xFEFF"
                                    L"a,\r\nc,")},
        {Value::To(inner.Get()), "a,b\r\nc,d"},
    };
    for (auto& c : cases) {
        Table grid;
        grid.ColTable[1].ColFlags = ColFlagHidden;
        ASSERT_EQ(S_OK, Save(grid, L"x", lorvFileCommaText, c.Options));
        EXPECT_EQ(Read(L"x"), c.Expected) << Describe(c.Options).c_str();
    }
}

TEST_F(FileMembers, ReadOptionsOfLoading)
{
    Write(L"x", "new");
    struct {
        Value Options;
        int Cell; // the row and column that is filled
    } cases[] = {{missing, 1},     {Value(0), 1},    {Value(1), 0},    {Value(2), 1},    {Value(3), 0},
                 {Value(true), 0}, {Value(L"F"), 1}, {Value(L"1"), 0}, {Value(L"2"), 1}, {Value(L"x"), 1}};
    for (auto& c : cases) {
        Table grid;
        ASSERT_EQ(S_OK, Load(grid, L"x", lorvFileCommaText, c.Options));
        EXPECT_EQ(grid.At(c.Cell, c.Cell), L"new") << Describe(c.Options).c_str();
    }
}

TEST_F(FileMembers, ForceTheKindWithoutANameToUtf16OnSavingOnly)
{
    Table grid;
    grid.ClipSeparators = SysAllocString(L";|");
    ASSERT_EQ(S_OK, Save(grid, L"x", 7, Value(L"f")));
    EXPECT_EQ(Read(L"x"), Utf16(L"\xFEFF"
                                L"a;b|c;d"));
    Table asTabs, asCustom;
    asTabs.ClipSeparators = SysAllocString(L";|");
    asCustom.ClipSeparators = SysAllocString(L";|");
    ASSERT_EQ(S_OK, Load(asTabs, L"x", 7, Value(1)));
    EXPECT_EQ(asTabs.At(0, 0), L"a;b|c;d");
    ASSERT_EQ(S_OK, Load(asCustom, L"x", 5, Value(1)));
    EXPECT_EQ(asCustom.At(1, 0), L"c");
}

TEST_F(FileMembers, FindOutUtf16FromTheFile)
{
    for (int kind : {3, 4, 5, 7}) {
        Table grid;
        Write(L"x", Utf16(L"\xFEFF\x20AC\r\ny"));
        ASSERT_EQ(S_OK, Load(grid, L"x", kind));
        EXPECT_EQ(grid.At(1, 1), L"\x20AC") << kind;
        EXPECT_EQ(grid.At(2, 1), L"y") << kind;
        Write(L"x", "\xFF");
        ASSERT_EQ(S_OK, Load(grid, L"x", kind));
        EXPECT_EQ(grid.At(1, 1), L"\xFF") << "one byte is no mark";
    }
}

TEST_F(FileMembers, PutTheGridInOrderAfterEveryLoad)
{
    Table sample;
    ResizeRows(sample, 6);
    ResizeCols(sample, 5);
    sample.FrozenRows = 1;
    sample.FrozenCols = 2;
    ASSERT_EQ(S_OK, Save(sample, L"binary", 0));
    Write(L"text", "t");
    Write(L"wrong", "no grid file");
    struct {
        const wchar_t* File;
        int Kind;
        HRESULT Expected;
        int TopRow, LeftCol;
    } cases[] = {{L"binary", 0, S_OK, 2, 3},
                 {L"binary", 2, S_OK, 2, 3},
                 {L"text", 3, S_OK, 1, 1},
                 {L"wrong", 0, LORV_E_BADFORMAT, 1, 1}};
    for (auto& c : cases) {
        Table grid;
        ResizeRows(grid, 6);
        ResizeCols(grid, 5);
        grid.LeftCol = 4;
        grid.Row = grid.RowSel = 4;
        grid.Col = grid.ColSel = 0;
        grid.TopRow = 3;
        for (uint8_t status = 0; status < 6; ++status)
            grid.RowTable[status].Status = status;
        grid.OptionWord &= ~OptionMergeStale;
        EventSink sink;
        Connection connection(grid.EventSinks, &sink);
        EXPECT_EQ(c.Expected, Load(grid, c.File, c.Kind));
        EXPECT_EQ(grid.Row, grid.FixedRows);
        EXPECT_EQ(grid.RowSel, grid.FixedRows);
        EXPECT_EQ(grid.Col, grid.FixedCols);
        EXPECT_EQ(grid.ColSel, grid.FixedCols);
        EXPECT_EQ(grid.TopRow, c.TopRow);
        EXPECT_EQ(grid.LeftCol, c.LeftCol);
        EXPECT_TRUE(HasOption(grid, OptionMergeStale));
        for (int row = 0; row < 4; ++row)
            EXPECT_EQ(grid.RowTable[row].Status, lorvrsUpdated);
        if (c.Kind != 0 || c.Expected != S_OK) { // the rows are still the old ones
            EXPECT_EQ(grid.RowTable[4].Status, 4);
            EXPECT_EQ(grid.RowTable[5].Status, 5);
        }
    }
}

TEST_F(FileMembers, CloseTheFileWhateverComesOut)
{
    Table grid;
    Write(L"x", "no grid file");
    EXPECT_EQ(LORV_E_BADFORMAT, Load(grid, L"x", 0));
    EXPECT_TRUE(DeleteFileW(Name(L"x").Text()));
    ASSERT_EQ(S_OK, Save(grid, L"x", 0));
    EXPECT_TRUE(DeleteFileW(Name(L"x").Text()));
}
} // namespace
