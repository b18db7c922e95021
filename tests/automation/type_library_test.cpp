// The type library inside the module against the tables of tests/data/contract, row by row.
#include "automation/type_library.h"
#include "support/test_data.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>

#include <gtest/gtest.h>

using Table = std::vector<std::vector<std::wstring>>;

static std::vector<std::wstring> SplitRow(const std::string& line)
{
    std::vector<std::wstring> fields(1);
    for (char c : line) {
        if (c == '\t')
            fields.emplace_back();
        else if (c != '\r')
            fields.back() += static_cast<wchar_t>(static_cast<unsigned char>(c));
    }
    return fields;
}

// The rows of a table of the contract, its head left out, all as wide as the head.
static Table ReadTable(const wchar_t* name)
{
    std::ifstream file{std::filesystem::path(TestDataPath((std::wstring(L"contract\\") + name).c_str()))};
    Table rows;
    std::string line;
    size_t width = 0;
    while (std::getline(file, line)) {
        auto row = SplitRow(line);
        width = width ? width : row.size();
        row.resize(width);
        rows.push_back(row);
    }
    if (!rows.empty())
        rows.erase(rows.begin());
    EXPECT_FALSE(rows.empty()) << "no table";
    return rows;
}

static std::string Narrow(const std::wstring& text)
{
    return std::string(text.begin(), text.end());
}

static const TypeLibrary& Library()
{
    static const TypeLibrary library = ReadTypeLibrary(ModuleUnderTest());
    return library;
}

static std::vector<TypeLibraryEntry> EntriesOf(const wchar_t* interfaceName)
{
    const auto found = Library().interfaces.find(interfaceName);
    return found == Library().interfaces.end() ? std::vector<TypeLibraryEntry>() : found->second;
}

static std::vector<TypeLibraryEntry> EntriesNamed(const wchar_t* interfaceName, const std::wstring& name)
{
    std::vector<TypeLibraryEntry> named;
    for (const auto& entry : EntriesOf(interfaceName)) {
        if (_wcsicmp(entry.name.c_str(), name.c_str()) == 0)
            named.push_back(entry);
    }
    return named;
}

static std::wstring KindsOf(const std::vector<TypeLibraryEntry>& entries)
{
    std::wstring kinds;
    for (const auto& entry : entries)
        kinds += entry.kind;
    return kinds;
}

static std::wstring ArgumentsOf(const TypeLibraryEntry& entry)
{
    std::wstring text;
    for (const auto& argument : entry.arguments)
        text += (text.empty() ? L"" : L", ") + argument;
    return text;
}

static std::set<std::wstring> NamesOf(const wchar_t* interfaceName)
{
    std::set<std::wstring> names;
    for (const auto& entry : EntriesOf(interfaceName))
        names.insert(entry.name);
    return names;
}

static std::set<std::wstring> ColumnOf(const Table& table, size_t column)
{
    std::set<std::wstring> values;
    for (const auto& row : table)
        values.insert(row[column]);
    return values;
}

TEST(TypeLibrary, IsVersion1OfLorv8L)
{
    EXPECT_EQ("Lorv8L", Narrow(Library().name));
    EXPECT_EQ(1, Library().majorVersion);
    EXPECT_EQ(0, Library().minorVersion);
}

TEST(TypeLibrary, HasEveryMemberWithItsDispidAndKinds)
{
    for (const auto& row : ReadTable(L"members.tsv")) {
        SCOPED_TRACE(Narrow(row[0]));
        const auto entries = EntriesNamed(L"ILorvGrid", row[0]);
        EXPECT_EQ(Narrow(row[2]), Narrow(KindsOf(entries)));
        for (const auto& entry : entries) {
            EXPECT_EQ(std::stol(row[1]), entry.id);
            EXPECT_EQ(Narrow(row[0]), Narrow(entry.name));
        }
    }
}

TEST(TypeLibrary, HasThe397EntriesOfThe226MembersAndNoOthers)
{
    EXPECT_EQ(397u, EntriesOf(L"ILorvGrid").size());
    const auto table = ReadTable(L"members.tsv");
    EXPECT_EQ(226u, table.size());
    EXPECT_EQ(ColumnOf(table, 0), NamesOf(L"ILorvGrid"));
}

TEST(TypeLibrary, HasEveryEventWithItsArguments)
{
    for (const auto& row : ReadTable(L"events.tsv")) {
        SCOPED_TRACE(Narrow(row[1]));
        const auto entries = EntriesNamed(L"_ILorvGridEvents", row[1]);
        ASSERT_EQ(1u, entries.size());
        EXPECT_EQ(std::stol(row[0]), entries[0].id);
        EXPECT_EQ(Narrow(row[2]), Narrow(ArgumentsOf(entries[0])));
        EXPECT_TRUE(entries[0].byReferenceIsInOut);
        EXPECT_EQ("void", Narrow(entries[0].result));
    }
}

TEST(TypeLibrary, HasNoOtherEvents)
{
    EXPECT_EQ(ColumnOf(ReadTable(L"events.tsv"), 1), NamesOf(L"_ILorvGridEvents"));
}

TEST(TypeLibrary, HasEveryEnumerationWithItsValuesAndNoOthers)
{
    std::map<std::wstring, TypeLibraryValues> expected;
    for (const auto& row : ReadTable(L"enums.tsv"))
        expected[row[0]][row[1]] = std::stol(row[2]);
    for (const auto& [name, values] : expected) {
        SCOPED_TRACE(Narrow(name));
        const auto found = Library().enumerations.find(name);
        ASSERT_NE(Library().enumerations.end(), found);
        EXPECT_EQ(values, found->second);
    }
    EXPECT_EQ(expected.size(), Library().enumerations.size());
}

// Containers keep properties by name: a saved name has to lead to the member that restores it.
TEST(TypeLibrary, PersistedNamesArePropertiesThatCanBeReadAndWritten)
{
    for (const auto& row : ReadTable(L"persisted.tsv")) {
        if (row[1].empty())
            continue; // a plain field of the control
        SCOPED_TRACE(Narrow(row[0]));
        const auto entries = EntriesNamed(L"ILorvGrid", row[0]);
        EXPECT_EQ("rw", Narrow(KindsOf(entries).substr(0, 2)));
        for (const auto& entry : entries) {
            EXPECT_EQ(std::stol(row[1]), entry.id);
            EXPECT_EQ(entry.kind == L'r' ? 0u : 1u, entry.arguments.size());
        }
    }
}

// Two rows name no property: they keep the places of identifiers that the interface does not have.
TEST(TypeLibrary, CategorizedPropertiesBearTheirDispids)
{
    const auto members = EntriesOf(L"ILorvGrid");
    for (const auto& row : ReadTable(L"categories.tsv")) {
        SCOPED_TRACE(Narrow(row[1]));
        const long id = std::stol(row[2]);
        const auto found = std::find_if(members.begin(), members.end(), [id](auto& e) { return e.id == id; });
        if (row[1].starts_with(L"DISPID ")) {
            EXPECT_EQ(members.end(), found);
            continue;
        }
        ASSERT_NE(members.end(), found);
        EXPECT_EQ(Narrow(row[1]), Narrow(found->name));
    }
}

TEST(TypeLibrary, EveryMemberAndEventSaysWhatItDoes)
{
    for (const wchar_t* name :
         {L"ILorvGrid", L"ILorvNode", L"ILorvDataObject", L"ILorvDataSource", L"_ILorvGridEvents"}) {
        EXPECT_FALSE(EntriesOf(name).empty());
        for (const auto& entry : EntriesOf(name))
            EXPECT_FALSE(entry.help.empty()) << Narrow(entry.name);
    }
}

TEST(TypeLibrary, ClassesNameTheirDefaultInterfaces)
{
    auto classes = Library().classes;
    EXPECT_EQ(3u, classes.size());
    EXPECT_EQ("ILorvGrid", Narrow(classes[L"LorvGridL"].defaultInterface));
    EXPECT_EQ("_ILorvGridEvents", Narrow(classes[L"LorvGridL"].defaultSource));
    EXPECT_EQ("ILorvNode", Narrow(classes[L"LorvNode"].defaultInterface));
    EXPECT_EQ("ILorvDataObject", Narrow(classes[L"LorvDataObject"].defaultInterface));
}

TEST(TypeLibrary, OtherInterfacesKeepTheOrderOfTheirMembers)
{
    const struct {
        const wchar_t* name;
        std::string members;
    } cases[] = {
        {L"ILorvNode",
         "Text:rw Key:rw Image:rws Expanded:rw Level:r Children:r Row:rw Move:m Sort:m EnsureVisible:m "
         "Select:m GetNode:m AddNode:m RemoveNode:m"},
        {L"ILorvDataObject", "Clear:m FileCount:r GetData:r GetFormat:r Files:r SetData:m"},
        {L"ILorvDataSource", "GetFieldCount:m GetRecordCount:m GetFieldName:m GetData:m SetData:m"},
    };
    for (const auto& [name, members] : cases) {
        std::string found;
        std::wstring last;
        for (const auto& entry : EntriesOf(name)) {
            if (entry.name != last)
                found += (found.empty() ? "" : " ") + Narrow(entry.name) + ":";
            found += static_cast<char>(entry.kind);
            last = entry.name;
        }
        EXPECT_EQ(members, found);
    }
}

TEST(TypeLibrary, OptionalArgumentsCanBeLeftOut)
{
    const struct {
        const wchar_t* member;
        int optional;
    } cases[] = {
        {L"Cell", 4},      {L"AddItem", 1},     {L"RemoveItem", 1},     {L"Clear", 2},
        {L"FindRow", 4},   {L"AutoSize", 3},    {L"Select", 2},         {L"PrintGrid", 5},
        {L"ComboItem", 1}, {L"ComboData", 1},   {L"Subtotal", 9},       {L"GetNode", 1},
        {L"SaveGrid", 1},  {L"LoadGrid", 1},    {L"ArchiveInfo", 1},    {L"BindToArray", 5},
        {L"LoadArray", 5}, {L"LoadGridURL", 1}, {L"BuildComboList", 2}, {L"FindRowRegex", 0},
        {L"Aggregate", 0}, {L"DragRow", 0},     {L"ShowCell", 0},       {L"FinishEditing", 0},
    };
    for (const auto& [member, optional] : cases) {
        const auto entries = EntriesNamed(L"ILorvGrid", member);
        EXPECT_FALSE(entries.empty()) << Narrow(member);
        for (const auto& entry : entries)
            EXPECT_EQ(optional, entry.optionalCount) << Narrow(member);
    }
}

TEST(TypeLibrary, ResultsHaveTheTypesThatHostsRelyOn)
{
    const struct {
        const wchar_t* member;
        const char* type;
    } cases[] = {
        {L"BackColor", "OLE_COLOR"},
        {L"Rows", "I4"},
        {L"FontSize", "R4"},
        {L"FontWidth", "R4"},
        {L"GridLineWidth", "I2"},
        {L"WordWrap", "BOOL"},
        {L"TextMatrix", "BSTR"},
        {L"ValueMatrix", "R8"},
        {L"RowData", "VARIANT"},
        {L"Cell", "VARIANT"},
        {L"RowOutlineLevel", "I2"},
        {L"hWnd", "I4"},
        {L"ColImageList", "I4"},
        {L"Font", "IFontDisp*"},
        {L"CellPicture", "IPictureDisp*"},
        {L"GetNode", "ILorvNode*"},
        {L"LorvDataSource", "ILorvDataSource*"},
        {L"DragRow", "I4"},
        {L"GridLines", "GridStyleSettings"},
        {L"HighLight", "ShowSelSettings"},
        {L"Flags", "ControlFlagsSettings"},
        {L"ColAlignment", "AlignmentSettings"},
        {L"FixedAlignment", "AlignmentSettings"},
        {L"ColDataType", "DataTypeSettings"},
        {L"ColSort", "SortSettings"},
        {L"RowStatus", "RowStatusSettings"},
        {L"IsCollapsed", "CollapsedSettings"},
        {L"WallPaperAlignment", "PictureAlignmentSettings"},
        {L"ShowComboButton", "ShowButtonSettings"},
        {L"GroupCompare", "MergeCompareSettings"},
    };
    for (const auto& [member, type] : cases) {
        const auto entries = EntriesNamed(L"ILorvGrid", member);
        ASSERT_FALSE(entries.empty()) << Narrow(member);
        EXPECT_EQ(type, Narrow(entries[0].result)) << Narrow(member);
    }
}

// A list picture's handle is as wide as a pointer when it is set, however it reads.
TEST(TypeLibrary, ColImageListTakesAWholeHandle)
{
    const auto entries = EntriesNamed(L"ILorvGrid", L"ColImageList");
    ASSERT_EQ(2u, entries.size());
    ASSERT_EQ(2u, entries[1].arguments.size());
    EXPECT_EQ(sizeof(void*) == 8 ? "I8 " : "I4 ", Narrow(entries[1].arguments[1]).substr(0, 3));
}

TEST(TypeLibrary, PropertiesThatTellOfChangesAreBindable)
{
    const struct {
        const wchar_t* member;
        bool bindable;
    } cases[] = {
        {L"BackColor", true},
        {L"Rows", true},
        {L"FixedCols", true},
        {L"RowHeightMin", true},
        {L"Redraw", true},
        {L"Font", true},
        {L"CellButtonPicture", true},
        {L"MergeCells", true},
        {L"FontName", false},
        {L"FontWidth", false},
        {L"SortAscendingPicture", false},
        {L"ToolTips", false},
        {L"ColWidth", false},
        {L"TextMatrix", false},
        {L"CellBackColor", false},
        {L"TopRow", false},
    };
    for (const auto& [member, bindable] : cases) {
        for (const auto& entry : EntriesNamed(L"ILorvGrid", member))
            EXPECT_EQ(bindable, (entry.flags & FUNCFLAG_FBINDABLE) != 0) << Narrow(member);
    }
}
