#include "files/archive.h"
#include "files/archive_name.h"
#include "files/crc16.h"
#include "platform/memory.h"
#include "support/archive_fakes.h"

#include <gtest/gtest.h>

using enum ArchiveResult;

namespace
{
constexpr wchar_t ArchivePath[] = L"C:\\data\\my.lzh";
constexpr wchar_t Temporary[] = L"C:\\data\\my.@#$";

class ArchiveCommands : public testing::Test
{
protected:
    ArchiveResult Add(const std::wstring& path, bool compress = true)
    {
        return RunArchiveCommand(files, ArchivePath, path.c_str(), ArchiveCommand::Add, compress);
    }
    ArchiveResult Extract(const std::wstring& path)
    {
        return RunArchiveCommand(files, ArchivePath, path.c_str(), ArchiveCommand::Extract, false);
    }
    ArchiveResult Delete(const std::wstring& path)
    {
        return RunArchiveCommand(files, ArchivePath, path.c_str(), ArchiveCommand::Delete, false);
    }
    // The archive with these files of C:\in.
    void AddAll(const std::vector<std::pair<std::wstring, ByteList>>& contents)
    {
        for (const auto& [name, data] : contents) {
            files[L"C:\\in\\" + name] = data;
            ASSERT_EQ(Add(L"C:\\in\\" + name), Ok);
        }
    }

    int Count()
    {
        int count = -1;
        EXPECT_EQ(CountEntries(files, ArchivePath, count), Ok);
        return count;
    }
    ArchiveHeader Entry(int index)
    {
        ArchiveHeader header;
        uint32_t packedSize = 0;
        EXPECT_EQ(ReadEntry(files, ArchivePath, index, header, packedSize), Ok);
        return header;
    }
    // The names of all entries: "a.txt b.txt".
    std::string Names()
    {
        std::string names;
        int count = Count();
        for (int i = 0; i < count; ++i)
            names += (i ? " " : "") + std::string(Entry(i).Name());
        return names;
    }
    bool IsClean() const { return !files.Has(Temporary); }

    FakeFiles files;
};

EntryBytes StoredEntry(const std::string& name, const ByteList& data)
{
    return {.Name = name,
            .Data = data,
            .OriginalSize = static_cast<uint32_t>(data.size()),
            .Crc = UpdateCrc16(0, data.data(), data.size())};
}
} // namespace

// Adding

TEST_F(ArchiveCommands, AddMakesTheArchive)
{
    ByteList data = TextBytes(20000);
    files[L"C:\\in\\text.txt"] = data;
    files.Time = 1234567890;
    EXPECT_EQ(Add(L"C:\\in\\text.txt"), Ok);
    EXPECT_TRUE(IsClean());
    EXPECT_EQ(Count(), 1);
    ArchiveHeader header = Entry(0);
    EXPECT_EQ(header.Name(), "text.txt");
    EXPECT_EQ(header.Method(), '5');
    EXPECT_EQ(header.OriginalSize(), data.size());
    EXPECT_LT(header.PackedSize(), data.size());
    EXPECT_EQ(header.Time(), 1234567890u);
    EXPECT_EQ(header.Crc(), UpdateCrc16(0, data.data(), data.size()));
    const ByteList& archive = files[ArchivePath];
    EXPECT_EQ(archive.size(), 27u + 8 + header.PackedSize() + 1);
    EXPECT_EQ(archive.back(), 0) << "the closing byte";
}

TEST_F(ArchiveCommands, AnEmptyFileIsStored)
{
    AddAll({{L"empty", {}}});
    ArchiveHeader header = Entry(0);
    EXPECT_EQ(header.Method(), '0');
    EXPECT_EQ(header.PackedSize(), 0u);
    EXPECT_EQ(header.OriginalSize(), 0u);
    EXPECT_EQ(header.Crc(), 0);
    EXPECT_EQ(files[ArchivePath].size(), 27u + 5 + 1);
}

TEST_F(ArchiveCommands, WhatDoesNotShrinkIsStored)
{
    for (size_t size : {1u, 2u, 10u, 8192u, 100000u}) {
        files.Files.clear();
        ByteList data = RandomBytes(size);
        AddAll({{L"noise", data}});
        ArchiveHeader header = Entry(0);
        EXPECT_EQ(header.Method(), '0') << size;
        EXPECT_EQ(header.PackedSize(), size);
        EXPECT_EQ(header.OriginalSize(), size);
        EXPECT_EQ(header.Crc(), UpdateCrc16(0, data.data(), data.size()));
        EXPECT_TRUE(std::equal(data.begin(), data.end(),
                               files[ArchivePath].end() - 1 - static_cast<ptrdiff_t>(size)));
        EXPECT_EQ(files[ArchivePath].size(), 27u + 5 + size + 1) << "nothing is left of the attempt";
    }
}

TEST_F(ArchiveCommands, StoreDoesNotCompress)
{
    ByteList data = RunOf(50000);
    files[L"C:\\in\\zeros"] = data;
    EXPECT_EQ(Add(L"C:\\in\\zeros", false), Ok);
    EXPECT_EQ(Entry(0).Method(), '0');
    EXPECT_EQ(Entry(0).PackedSize(), 50000u);
    EXPECT_EQ(files[ArchivePath].size(), 27u + 5 + 50000 + 1);
    EXPECT_EQ(Extract(L"C:\\out\\zeros"), Ok);
    EXPECT_EQ(files[L"C:\\out\\zeros"], data);
}

TEST_F(ArchiveCommands, ANewEntryLeads)
{
    AddAll({{L"a", TextBytes(100)}, {L"b", TextBytes(200)}, {L"c", TextBytes(300)}});
    EXPECT_EQ(Names(), "c b a");
}

TEST_F(ArchiveCommands, AnEntryAddedAgainIsThereOnceAndFirst)
{
    AddAll({{L"a", TextBytes(100)}, {L"b", TextBytes(200)}, {L"c", TextBytes(300)}, {L"A", TextBytes(9000)}});
    EXPECT_EQ(Names(), "A c b") << "names are the same without regard to case";
    EXPECT_EQ(Entry(0).OriginalSize(), 9000u);
    EXPECT_EQ(Extract(L"C:\\out\\a"), Ok);
    EXPECT_EQ(files[L"C:\\out\\a"], TextBytes(9000));
}

TEST_F(ArchiveCommands, TheOthersAreCopiedByteByByte)
{
    AddAll({{L"a", TextBytes(20000)}, {L"b", RandomBytes(9000)}});
    ByteList before = files[ArchivePath];
    AddAll({{L"c", TextBytes(50)}});
    const ByteList& after = files[ArchivePath];
    EXPECT_TRUE(std::equal(before.rbegin(), before.rend(), after.rbegin()));
    EXPECT_EQ(Delete(L"c"), Ok);
    EXPECT_EQ(files[ArchivePath], before);
}

TEST_F(ArchiveCommands, ExtendedHeadersOfOthersAreCopied)
{
    EntryBytes foreign = StoredEntry("foreign", TextBytes(300));
    foreign.Extended = {{0, 1, 2}, {2, 'd', 0xFF}};
    files[ArchivePath] = ArchiveOf({foreign.Make()});
    AddAll({{L"own", TextBytes(10)}});
    ByteList entry = foreign.Make();
    const ByteList& archive = files[ArchivePath];
    EXPECT_TRUE(
        std::equal(entry.begin(), entry.end(), archive.end() - 1 - static_cast<ptrdiff_t>(entry.size())));
    EXPECT_EQ(Names(), "own foreign");
}

TEST_F(ArchiveCommands, AddFindsNoSource)
{
    EXPECT_EQ(Add(L"C:\\in\\nothing"), NotFound);
    EXPECT_FALSE(files.Has(ArchivePath));
    EXPECT_TRUE(IsClean());
    AddAll({{L"a", TextBytes(100)}});
    ByteList before = files[ArchivePath];
    EXPECT_EQ(Add(L"C:\\in\\nothing"), NotFound);
    EXPECT_EQ(files[ArchivePath], before);
    EXPECT_TRUE(IsClean());
}

TEST_F(ArchiveCommands, AnArchiveThatIsThereButCannotBeReadIsNotReplaced)
{
    AddAll({{L"a", TextBytes(100)}});
    ByteList before = files[ArchivePath];
    files.Unreadable = ArchivePath;
    files[L"C:\\in\\b"] = TextBytes(10);
    EXPECT_EQ(Add(L"C:\\in\\b"), NotFound);
    EXPECT_EQ(files[ArchivePath], before);
}

TEST_F(ArchiveCommands, ANameThatIsTooLongIsRefused)
{
    std::wstring fits(230, L'n'), tooLong(231, L'n');
    files[L"C:\\in\\" + fits] = files[L"C:\\in\\" + tooLong] = TextBytes(10);
    EXPECT_EQ(Add(L"C:\\in\\" + tooLong), CannotWrite);
    EXPECT_FALSE(files.Has(ArchivePath));
    EXPECT_TRUE(IsClean());
    EXPECT_EQ(Add(L"C:\\in\\" + fits), Ok);
    EXPECT_EQ(Delete(L"C:\\in\\" + tooLong), Ok) << "names nothing";
    EXPECT_EQ(Count(), 1);
}

// The temporary file

TEST_F(ArchiveCommands, TheTemporaryNameIsCutAtTheFirstDotOfThePath)
{
    const struct {
        const wchar_t* Archive;
        const wchar_t* Temporary;
    } rows[] = {
        {L"C:\\data\\my.lzh", L"C:\\data\\my.@#$"},
        {L"C:\\data\\my.old.lzh", L"C:\\data\\my.@#$"},
        {L"C:\\data\\noext", L"C:\\data\\noext.@#$"},
        {L"C:\\data.v2\\my.lzh", L"C:\\data.@#$"}, // beside the folder
        {L".\\my.lzh", L".@#$"},
        {L"my", L"my.@#$"},
    };
    files[L"C:\\in\\a"] = TextBytes(10);
    for (const auto& row : rows) {
        EXPECT_EQ(RunArchiveCommand(files, row.Archive, L"C:\\in\\a", ArchiveCommand::Add, true), Ok);
        EXPECT_EQ(files.LastTarget, row.Temporary);
        EXPECT_TRUE(files.Has(row.Archive));
        EXPECT_FALSE(files.Has(row.Temporary));
        files.Remove(row.Archive);
    }
}

TEST_F(ArchiveCommands, NothingIsMadeOverTheSourceOrTheArchive)
{
    files[Temporary] = TextBytes(100);
    EXPECT_EQ(Add(Temporary), NotFound);
    EXPECT_EQ(files[Temporary], TextBytes(100));
    files[Temporary] = ArchiveOf({});
    EXPECT_EQ(RunArchiveCommand(files, Temporary, L"a", ArchiveCommand::Delete, false), NotFound);
    EXPECT_EQ(files[Temporary], ArchiveOf({}));
}

TEST_F(ArchiveCommands, WithoutATemporaryFileNothingHappens)
{
    AddAll({{L"a", TextBytes(100)}});
    ByteList before = files[ArchivePath];
    files.Unwritable = Temporary;
    EXPECT_EQ(Add(L"C:\\in\\a"), NotFound);
    EXPECT_EQ(Delete(L"a"), NotFound);
    EXPECT_EQ(files[ArchivePath], before);
}

// A disk that fills up after any number of bytes leaves the old archive and no temporary file.
TEST_F(ArchiveCommands, AFullDiskLeavesTheArchive)
{
    AddAll({{L"a", TextBytes(600)}, {L"b", RandomBytes(300)}});
    ByteList before = files[ArchivePath];
    for (const wchar_t* path : {L"C:\\in\\text", L"C:\\in\\noise", L"C:\\in\\a"}) {
        files[path] = path[6] == L'n' ? RandomBytes(500) : TextBytes(500);
        FakeFiles room = files;
        room.Room = SIZE_MAX;
        ASSERT_EQ(RunArchiveCommand(room, ArchivePath, path, ArchiveCommand::Add, true), Ok);
        size_t needed = room.Files[L"c:\\data\\my.lzh"].size();
        for (size_t size = 0; size < needed; ++size) {
            files.Room = size;
            ASSERT_EQ(Add(path), CannotWrite) << size;
            ASSERT_EQ(files[ArchivePath], before);
            ASSERT_TRUE(IsClean());
        }
    }
    for (size_t size = 0; size < 300; size += 7) {
        files.Room = size;
        EXPECT_EQ(Delete(L"a"), CannotWrite);
        EXPECT_EQ(files[ArchivePath], before);
        EXPECT_TRUE(IsClean());
    }
}

TEST_F(ArchiveCommands, AFailureAtTheEndLeavesTheArchive)
{
    AddAll({{L"a", TextBytes(600)}});
    ByteList before = files[ArchivePath];
    for (bool* failure : {&files.CloseFails, &files.ReplaceFails}) {
        *failure = true;
        EXPECT_EQ(Add(L"C:\\in\\a"), CannotWrite);
        EXPECT_EQ(Delete(L"a"), CannotWrite);
        EXPECT_EQ(files[ArchivePath], before);
        EXPECT_TRUE(IsClean());
        *failure = false;
    }
}

// Deleting

TEST_F(ArchiveCommands, DeleteDropsAnEntry)
{
    AddAll({{L"a", TextBytes(100)}, {L"b", TextBytes(200)}, {L"c", TextBytes(300)}});
    EXPECT_EQ(Delete(L"D:\\anywhere\\B"), Ok) << "only the last part of the path counts, in any case";
    EXPECT_EQ(Names(), "c a");
    EXPECT_EQ(Delete(L"a"), Ok);
    EXPECT_EQ(Delete(L"c"), Ok);
    EXPECT_EQ(files[ArchivePath], ByteList{0});
    EXPECT_EQ(Count(), 0);
    EXPECT_TRUE(IsClean());
}

TEST_F(ArchiveCommands, DeleteOfNothingLeavesTheArchive)
{
    AddAll({{L"a", TextBytes(100)}});
    ByteList before = files[ArchivePath];
    files.ReplaceFails = true; // so that it would be seen
    EXPECT_EQ(Delete(L"b"), Ok);
    EXPECT_EQ(files[ArchivePath], before);
    EXPECT_TRUE(IsClean());
}

// Extracting

TEST_F(ArchiveCommands, ExtractWritesWhatWasAdded)
{
    const std::vector<std::pair<std::wstring, ByteList>> contents = {{L"empty", {}},
                                                                     {L"one", {7}},
                                                                     {L"zeros", RunOf(100000)},
                                                                     {L"noise", RandomBytes(30000)},
                                                                     {L"text", TextBytes(70000)},
                                                                     {L"window", TextBytes(8192)},
                                                                     {L"two windows", TextBytes(16384)}};
    AddAll(contents);
    for (const auto& [name, data] : contents) {
        EXPECT_EQ(Extract(L"C:\\out\\" + name), Ok);
        EXPECT_EQ(files[L"C:\\out\\" + name], data);
    }
}

TEST_F(ArchiveCommands, ExtractOfNothingWritesNothing)
{
    AddAll({{L"a", TextBytes(100)}});
    EXPECT_EQ(Extract(L"C:\\out\\b"), Ok);
    EXPECT_FALSE(files.Has(L"C:\\out\\b"));
    EXPECT_FALSE(files.Has(Temporary));
}

// Only the name that the caller gives is opened: what an entry is called leads nowhere.
TEST_F(ArchiveCommands, HostileNamesLeadNowhere)
{
    const std::string names[] = {"..\\evil", "C:\\windows\\evil", "../evil", "\\\\server\\share\\evil",
                                 "a\0b"};
    std::vector<ByteList> entries;
    for (const std::string& name : names)
        entries.push_back(StoredEntry(name, TextBytes(10)).Make());
    entries.push_back(StoredEntry(std::string("nul\0l", 5), TextBytes(10)).Make());
    files[ArchivePath] = ArchiveOf(entries);
    EXPECT_EQ(Count(), 6);
    size_t before = files.Files.size();
    for (const wchar_t* path : {L"..\\evil", L"C:\\windows\\evil", L"C:\\out\\evil", L"evil", L"nul"})
        EXPECT_EQ(Extract(path), Ok);
    EXPECT_EQ(files.Files.size(), before);
    EXPECT_EQ(Extract(L"../evil"), Ok) << "a slash parts nothing";
    EXPECT_TRUE(files.Has(L"../evil")) << "the caller asked for this file";
}

TEST_F(ArchiveCommands, ExtractReadsLh4)
{
    files[L"C:\\in\\text"] = TextBytes(5000);
    EXPECT_EQ(Add(L"C:\\in\\text"), Ok);
    files[ArchivePath][5] = '4';
    EntryBytes::Seal(files[ArchivePath]);
    EXPECT_EQ(Extract(L"C:\\out\\text"), Ok);
    EXPECT_EQ(files[L"C:\\out\\text"], TextBytes(5000));
}

TEST_F(ArchiveCommands, ExtractGoesOverExtendedHeaders)
{
    EntryBytes foreign = StoredEntry("foreign", TextBytes(300));
    foreign.Extended = {{0, 1, 2}, {2, 'd', 0xFF}};
    files[ArchivePath] = ArchiveOf({foreign.Make(), StoredEntry("next", TextBytes(20)).Make()});
    EXPECT_EQ(Extract(L"C:\\out\\foreign"), Ok);
    EXPECT_EQ(files[L"C:\\out\\foreign"], TextBytes(300));
    EXPECT_EQ(Extract(L"C:\\out\\next"), Ok);
    EXPECT_EQ(files[L"C:\\out\\next"], TextBytes(20));
}

TEST_F(ArchiveCommands, ExtractSkipsUnknownMethods)
{
    EntryBytes entry = StoredEntry("new", TextBytes(30));
    for (const char* method : {"-lh6-", "-lh1-", "-lzs-", "-lhd-"}) {
        entry.Method = method;
        files[ArchivePath] = ArchiveOf({entry.Make()});
        EXPECT_EQ(Extract(L"C:\\out\\new"), BadArchive) << method;
    }
}

TEST_F(ArchiveCommands, ABadCrcLeavesTheFile)
{
    EntryBytes entry = StoredEntry("bad", TextBytes(30));
    entry.Crc ^= 1;
    files[ArchivePath] = ArchiveOf({entry.Make()});
    EXPECT_EQ(Extract(L"C:\\out\\bad"), BadArchive);
    EXPECT_EQ(files[L"C:\\out\\bad"], TextBytes(30));
}

TEST_F(ArchiveCommands, WildSizesEndWithACode)
{
    EntryBytes entry = StoredEntry("wild", TextBytes(30));
    entry.OriginalSize = 0xFFFFFFFF;
    for (const char* method : {"-lh0-", "-lh5-"}) {
        entry.Method = method;
        files[ArchivePath] = ArchiveOf({entry.Make()});
        EXPECT_EQ(Extract(L"C:\\out\\wild"), BadArchive) << method;
        EXPECT_LE(files[L"C:\\out\\wild"].size(), 8192u);
    }
    ByteList bytes = entry.Make();
    StoreNumber<uint32_t>(bytes.data() + 7, 0xFFFFFFFF); // packed size
    EntryBytes::Seal(bytes);
    files[ArchivePath] = ArchiveOf({bytes});
    EXPECT_EQ(Extract(L"C:\\out\\wild"), NotFound) << "the file ends first";
    EXPECT_EQ(Extract(L"C:\\out\\other"), NotFound);
    EXPECT_EQ(Delete(L"wild"), NotFound);
    EXPECT_EQ(Count(), 1);
}

TEST_F(ArchiveCommands, ExtractCannotWrite)
{
    AddAll({{L"a", TextBytes(20000)}});
    files.Unwritable = L"C:\\out\\a";
    EXPECT_EQ(Extract(L"C:\\out\\a"), CannotWrite);
    files.Unwritable.clear();
    files.Room = 10000;
    EXPECT_EQ(Extract(L"C:\\out\\a"), CannotWrite);
    files.Room = SIZE_MAX;
    files.CloseFails = true;
    EXPECT_EQ(Extract(L"C:\\out\\a"), CannotWrite);
}

// Archives that are none

TEST_F(ArchiveCommands, NeedAnArchiveUnlessTheyAdd)
{
    EXPECT_EQ(Extract(L"C:\\out\\a"), NotFound);
    EXPECT_EQ(Delete(L"a"), NotFound);
    EXPECT_TRUE(files.Files.empty());
}

TEST_F(ArchiveCommands, LeaveAFileThatIsNoArchive)
{
    files[L"C:\\in\\a"] = TextBytes(10);
    const struct {
        ByteList Bytes;
        ArchiveResult Result;
    } rows[] = {{{}, NotFound},
                {BytesOf("PK\3\4 and so on, for longer than a header is: 1234567890 1234567890 1234567890 "
                         "1234567890"),
                 BadArchive},
                {{1, 2, 3}, BadArchive}};
    for (const auto& row : rows) {
        files[ArchivePath] = row.Bytes;
        EXPECT_EQ(Add(L"C:\\in\\a"), row.Result);
        EXPECT_EQ(Delete(L"a"), row.Result);
        EXPECT_EQ(Extract(L"C:\\out\\a"), row.Result);
        EXPECT_EQ(files[ArchivePath], row.Bytes);
        EXPECT_TRUE(IsClean());
        int count = 0;
        EXPECT_EQ(CountEntries(files, ArchivePath, count), row.Result);
    }
}

TEST_F(ArchiveCommands, ABadHeaderInTheMiddleStopsThem)
{
    ByteList spoilt = StoredEntry("spoilt", TextBytes(10)).Make();
    spoilt[1] ^= 1;
    files[ArchivePath] = ArchiveOf({StoredEntry("first", TextBytes(10)).Make(), spoilt});
    ByteList before = files[ArchivePath];
    files[L"C:\\in\\a"] = TextBytes(10);
    EXPECT_EQ(Add(L"C:\\in\\a"), BadArchive);
    EXPECT_EQ(Delete(L"first"), BadArchive);
    EXPECT_EQ(Extract(L"C:\\out\\a"), BadArchive);
    EXPECT_EQ(files[ArchivePath], before);
    EXPECT_TRUE(IsClean());
    EXPECT_EQ(Extract(L"C:\\out\\first"), Ok) << "what stands before can be read";
    EXPECT_EQ(Count(), 1);
}

TEST_F(ArchiveCommands, AnArchiveCutAnywhereIsLeftAlone)
{
    AddAll({{L"text", TextBytes(200)}, {L"noise", RandomBytes(40)}});
    ByteList whole = files[ArchivePath];
    files[L"C:\\in\\a"] = TextBytes(10);
    for (size_t size = 0; size < whole.size(); ++size) {
        ByteList cut(whole.begin(), whole.begin() + static_cast<ptrdiff_t>(size));
        files[ArchivePath] = cut;
        ASSERT_EQ(Add(L"C:\\in\\a"), NotFound) << size;
        ASSERT_EQ(Delete(L"a"), NotFound) << size;
        ASSERT_EQ(files[ArchivePath], cut);
        ASSERT_TRUE(IsClean());
        for (const auto& [name, data] :
             {std::pair{L"C:\\out\\text", TextBytes(200)}, std::pair{L"C:\\out\\noise", RandomBytes(40)}}) {
            files[name].clear();
            ArchiveResult result = Extract(name);
            ASSERT_TRUE(result == NotFound || (result == Ok && files[name] == data)) << size;
        }
    }
}

TEST_F(ArchiveCommands, EndWithoutMemory)
{
    files[L"C:\\in\\a"] = TextBytes(10);
    ASSERT_EQ(Add(L"C:\\in\\a"), Ok);
    ByteList before = files[ArchivePath];
    AllocationProbe& probe = TheAllocationProbe();
    long live = probe.Live;
    // The second to the eighth are working memory, the ninth the temporary name.
    for (long failing = 2; failing <= 9; ++failing) {
        probe.Count = 0;
        probe.FailAt = failing;
        EXPECT_EQ(Add(L"C:\\in\\a"), OutOfMemory) << failing;
        probe.FailAt = 0;
        EXPECT_EQ(files[ArchivePath], before);
        EXPECT_EQ(probe.Live, live);
    }
}

// Counting and reading headers

TEST_F(ArchiveCommands, CountWalksAllHeaders)
{
    int count = -1;
    EXPECT_EQ(CountEntries(files, ArchivePath, count), NotFound);
    files[ArchivePath] = {0};
    EXPECT_EQ(Count(), 0);
    AddAll({{L"a", {}}, {L"b", TextBytes(20000)}, {L"c", {1}}});
    EXPECT_EQ(Count(), 3);
}

TEST_F(ArchiveCommands, ReadEntryTellsTheSizeOfTheDataAlone)
{
    EntryBytes foreign = StoredEntry("foreign", TextBytes(300));
    foreign.Extended = {{0, 1, 2}};
    files[ArchivePath] = ArchiveOf({foreign.Make()});
    ArchiveHeader header;
    uint32_t packedSize = 0;
    EXPECT_EQ(ReadEntry(files, ArchivePath, 0, header, packedSize), Ok);
    EXPECT_EQ(packedSize, 300u);
    EXPECT_EQ(header.PackedSize(), 305u);
    EXPECT_EQ(ReadEntry(files, ArchivePath, 1, header, packedSize), BadArchive);
}

// Names

TEST(EntryNames, AreWhatStandsBehindTheLastBackslash)
{
    const struct {
        const wchar_t* Path;
        const char* Name;
    } rows[] = {{L"C:\\a\\b.txt", "b.txt"}, {L"b.txt", "b.txt"}, {L"a/b.txt", "a/b.txt"},
                {L"C:b.txt", "C:b.txt"},    {L"C:\\a\\", ""},    {L"", ""}};
    for (const auto& row : rows) {
        EntryName name(row.Path);
        EXPECT_TRUE(name.IsKnown());
        EXPECT_EQ(name.Text(), row.Name);
    }
}

TEST(EntryNames, AreInTheCodePageOfTheThread)
{
    LCID before = GetThreadLocale();
    SetThreadLocale(MAKELCID(MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN), SORT_DEFAULT));
    EntryName name(L"C:\\\x00E4 \x20AC.txt");
    EXPECT_EQ(name.Text(), "\xE4 \x80.txt");
    ArchiveHeader header;
    ASSERT_TRUE(header.Begin("\xC4 \x80.TXT", 0));
    EXPECT_TRUE(name.Names(header)) << "case is that of the code page's characters";
    wchar_t text[ArchiveHeader::LongestName];
    EXPECT_EQ(std::wstring(text, static_cast<size_t>(EntryNameText(header, text))), L"\x00C4 \x20AC.TXT");
    EXPECT_FALSE(EntryName(L"\x0436.txt").IsKnown()) << "not in this code page";
    EXPECT_FALSE(EntryName(L"\x0100.txt").IsKnown()) << "an A that looks much the same will not do";
    SetThreadLocale(MAKELCID(MAKELANGID(LANG_JAPANESE, SUBLANG_DEFAULT), SORT_DEFAULT));
    EXPECT_EQ(EntryName(L"C:\\\x8868.txt").Text(), "\x95\\.txt") << "the second byte is no backslash";
    SetThreadLocale(before);
}

TEST_F(ArchiveCommands, ANameThatTheCodePageLacksIsNotFound)
{
    LCID before = GetThreadLocale();
    SetThreadLocale(MAKELCID(MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN), SORT_DEFAULT));
    files[L"C:\\in\\\x0436"] = files[L"C:\\in\\?"] = TextBytes(10);
    EXPECT_EQ(Add(L"C:\\in\\\x0436"), NotFound);
    EXPECT_EQ(Add(L"C:\\in\\?"), Ok);
    EXPECT_EQ(Delete(L"\x0436"), Ok);
    EXPECT_EQ(Count(), 1) << "it is not taken for a question mark";
    SetThreadLocale(before);
}
