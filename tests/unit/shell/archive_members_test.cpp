#include "core/errors.h"
#include "platform/bstr.h"
#include "support/archive_fakes.h"
#include "support/member_grid.h"

#include <gtest/gtest.h>

#include <ctime>

namespace
{
constexpr ArchiveInfoSettings Details[] = {arcFileCount, ArcFileName, arcFileSize, arcFileCompressedSize,
                                           arcFileDate};

// A folder of its own for each test, whose name has no dot.
class ArchiveMembers : public testing::Test
{
protected:
    void SetUp() override
    {
        wchar_t temp[MAX_PATH];
        GetTempPathW(MAX_PATH, temp);
        folder = std::wstring(temp) + L"lorv_archive_" + std::to_wstring(GetCurrentProcessId()) + L"\\";
        ASSERT_TRUE(CreateDirectoryW(folder.c_str(), nullptr));
        archive = folder + L"my.lzh";
    }
    void TearDown() override
    {
        WIN32_FIND_DATAW found;
        HANDLE search = FindFirstFileW((folder + L"*").c_str(), &found);
        do {
            if (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)
                RemoveDirectoryW((folder + found.cFileName).c_str());
            else
                DeleteFileW((folder + found.cFileName).c_str());
        } while (FindNextFileW(search, &found));
        FindClose(search);
        EXPECT_TRUE(RemoveDirectoryW(folder.c_str()));
    }

    void Write(const std::wstring& path, const ByteList& bytes)
    {
        FILE* file = _wfopen(path.c_str(), L"wb");
        ASSERT_NE(file, nullptr);
        fwrite(bytes.data(), 1, bytes.size(), file);
        fclose(file);
    }
    ByteList Read(const std::wstring& path)
    {
        ByteList bytes;
        if (FILE* file = _wfopen(path.c_str(), L"rb")) {
            for (int byte; (byte = fgetc(file)) != EOF;)
                bytes.push_back(static_cast<uint8_t>(byte));
            fclose(file);
        }
        return bytes;
    }
    bool IsThere(const std::wstring& path)
    {
        return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
    }

    HRESULT Run(const std::wstring& archivePath, const std::wstring& file, ArchiveSettings action)
    {
        return grid.Archive(Bstr(archivePath.c_str()).Get(), Bstr(file.c_str()).Get(), action);
    }
    HRESULT Run(const std::wstring& file, ArchiveSettings action) { return Run(archive, file, action); }
    HRESULT Info(ArchiveInfoSettings detail, const VARIANT& index, VARIANT* result)
    {
        return grid.get_ArchiveInfo(Bstr(archive.c_str()).Get(), detail, index, result);
    }
    void AddText(const wchar_t* name, size_t size = 1000)
    {
        Write(folder + name, TextBytes(size));
        ASSERT_EQ(Run(folder + name, arcAdd), S_OK);
    }

    MemberGrid grid;
    std::wstring folder, archive;
};
} // namespace

TEST_F(ArchiveMembers, AreDisabledInALockedControl)
{
    AddText(L"a");
    ByteList before = Read(archive);
    grid.SafetyOptions = 1;
    for (int action = -1; action <= 4; ++action)
        EXPECT_EQ(Run(folder + L"a", static_cast<ArchiveSettings>(action)), LORV_E_SAFETY) << action;
    EXPECT_EQ(Run(archive, arcAdd), LORV_E_SAFETY) << "looked at before the names";
    for (ArchiveInfoSettings detail : Details) {
        OwnedVariant result;
        EXPECT_EQ(Info(detail, Value(0), result.Put()), LORV_E_SAFETY);
        EXPECT_EQ(result.Type(), VT_EMPTY);
    }
    EXPECT_EQ(Read(archive), before);
}

TEST_F(ArchiveMembers, TellEveryDetailInItsType)
{
    AddText(L"a.txt");
    const struct {
        ArchiveInfoSettings Detail;
        VARTYPE Type;
    } rows[] = {{arcFileCount, VT_I4},
                {ArcFileName, VT_BSTR},
                {arcFileSize, VT_I4},
                {arcFileCompressedSize, VT_I4},
                {arcFileDate, VT_DATE}};
    for (const auto& row : rows) {
        OwnedVariant result;
        EXPECT_EQ(Info(row.Detail, Value(0), result.Put()), S_OK);
        EXPECT_EQ(result.Type(), row.Type) << row.Detail;
    }
    EXPECT_EQ(grid.get_ArchiveInfo(Bstr(archive.c_str()).Get(), arcFileCount, missing, nullptr), E_POINTER);
    OwnedVariant count;
    EXPECT_EQ(Info(arcFileCount, Value(L"no index"), count.Put()), S_OK) << "the count takes no index";
}

// Seconds since 1970 in the header become local time.
TEST_F(ArchiveMembers, TellTheDateInLocalTime)
{
    for (uint32_t seconds : {0x12345678u, 0u, 1700000000u, 0x80000000u, 0xFFFFFFFFu}) {
        EntryBytes entry = {.Name = "x", .Data = {}};
        ByteList bytes = entry.Make();
        StoreNumber(bytes.data() + 15, seconds);
        EntryBytes::Seal(bytes);
        Write(archive, ArchiveOf({bytes}));
        OwnedVariant result;
        ASSERT_EQ(Info(arcFileDate, Value(0), result.Put()), S_OK);
        __time64_t time = seconds;
        const std::tm local = *_localtime64(&time);
        SYSTEMTIME told = {};
        ASSERT_TRUE(VariantTimeToSystemTime(result.Get().date, &told));
        EXPECT_EQ(told.wYear, local.tm_year + 1900) << seconds;
        EXPECT_EQ(told.wMonth, local.tm_mon + 1);
        EXPECT_EQ(told.wDay, local.tm_mday);
        EXPECT_EQ(told.wHour, local.tm_hour);
        EXPECT_EQ(told.wMinute, local.tm_min);
        EXPECT_EQ(told.wSecond, local.tm_sec);
    }
}

TEST_F(ArchiveMembers, StoreTheTimeOfTheSourceInUtc)
{
    Write(folder + L"a", TextBytes(10));
    HANDLE file =
        CreateFileW((folder + L"a").c_str(), FILE_WRITE_ATTRIBUTES, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    int64_t units = (11644473600 + 1234567890) * 10000000LL;
    FILETIME time = {static_cast<DWORD>(units), static_cast<DWORD>(units >> 32)};
    EXPECT_TRUE(SetFileTime(file, nullptr, nullptr, &time));
    CloseHandle(file);
    ASSERT_EQ(Run(folder + L"a", arcAdd), S_OK);
    EXPECT_EQ(LoadNumber<uint32_t>(Read(archive).data() + 15), 1234567890u);
}

// A bare name comes out beside the archive, even one that is the archive's.
TEST_F(ArchiveMembers, NeverExtractOverTheArchive)
{
    ByteList data = TextBytes(20);
    EntryBytes entry = {.Name = "my.lzh", .Data = data, .OriginalSize = 20};
    Write(archive, ArchiveOf({entry.Make()}));
    ByteList before = Read(archive);
    EXPECT_EQ(Run(L"my.lzh", arcExtract), LORV_E_BADFORMAT);
    EXPECT_EQ(Run(L"MY.LZH", arcExtract), LORV_E_BADFORMAT);
    EXPECT_EQ(Read(archive), before);
}

TEST_F(ArchiveMembers, LeaveTheArchiveWhereNothingCanBeWritten)
{
    AddText(L"a");
    ByteList before = Read(archive);
    ASSERT_TRUE(CreateDirectoryW((folder + L"my.@#$").c_str(), nullptr)); // in the way of the temporary file
    EXPECT_EQ(Run(folder + L"a", arcAdd), LORV_E_NOTFOUND);
    EXPECT_EQ(Run(folder + L"a", arcDelete), LORV_E_NOTFOUND);
    EXPECT_EQ(Read(archive), before);
    EXPECT_TRUE(RemoveDirectoryW((folder + L"my.@#$").c_str()));
}

TEST_F(ArchiveMembers, LeaveAnArchiveThatCannotBeReplaced)
{
    AddText(L"a");
    ByteList before = Read(archive);
    HANDLE reader =
        CreateFileW(archive.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(reader, INVALID_HANDLE_VALUE);
    EXPECT_EQ(Run(folder + L"a", arcAdd), LORV_E_BADFORMAT);
    CloseHandle(reader);
    EXPECT_EQ(Read(archive), before);
    EXPECT_FALSE(IsThere(folder + L"my.@#$"));
}

TEST_F(ArchiveMembers, TakeNoNamesForEmptyOnes)
{
    EXPECT_EQ(grid.Archive(nullptr, nullptr, arcAdd), LORV_E_BADFORMAT) << "they are the same";
    EXPECT_EQ(grid.Archive(nullptr, Bstr(L"x").Get(), arcExtract), LORV_E_NOTFOUND);
    EXPECT_EQ(grid.Archive(Bstr(archive.c_str()).Get(), nullptr, arcAdd), LORV_E_NOTFOUND);
    OwnedVariant result;
    EXPECT_EQ(grid.get_ArchiveInfo(nullptr, arcFileCount, missing, result.Put()), LORV_E_BADFORMAT);
}

TEST_F(ArchiveMembers, RefuseDevicesAndFolders)
{
    ASSERT_TRUE(CreateDirectoryW((folder + L"sub").c_str(), nullptr));
    EXPECT_EQ(Run(folder + L"sub", arcAdd), LORV_E_NOTFOUND) << "a folder";
    EXPECT_EQ(Run(L"NUL", arcAdd), LORV_E_NOTFOUND) << "a device";
    EXPECT_EQ(Run(folder + L"sub", L"a", arcExtract), LORV_E_NOTFOUND);
    AddText(L"a");
    EXPECT_EQ(Run(folder + L"sub", folder + L"a", arcAdd), LORV_E_NOTFOUND);
    EXPECT_FALSE(IsThere(folder + L"sub.@#$"));
}
