// The second pass of the tests relies on the heap's own checks: these tests make sure that they are at work.
#include <gtest/gtest.h>

#include <windows.h>

namespace
{

constexpr ULONG tailAndFreeChecks = 0x10 | 0x20;

ULONG GlobalFlags()
{
    using Query = ULONG(WINAPI*)();
    auto query = reinterpret_cast<Query>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "RtlGetNtGlobalFlags")));
    return query ? query() : 0;
}

bool HeapIsChecked()
{
    return (GlobalFlags() & tailAndFreeChecks) == tailAndFreeChecks;
}

} // namespace

TEST(HeapChecks, AreOnWhereTheTestRunAsksForThem)
{
    bool wanted = GetEnvironmentVariableW(L"LORV_HEAP_CHECKS", nullptr, 0) != 0;
    EXPECT_EQ(HeapIsChecked(), wanted);
}

TEST(HeapChecks, SeeAWritePastTheEndOfABlock)
{
    if (!HeapIsChecked()) {
        GTEST_SKIP() << "the heap is not checked in this run";
    }
    HANDLE heap = GetProcessHeap();
    auto block = static_cast<volatile BYTE*>(HeapAlloc(heap, 0, 10));
    ASSERT_NE(block, nullptr);
    BYTE tail = block[10];
    block[10] = static_cast<BYTE>(~tail);
    EXPECT_FALSE(HeapValidate(heap, 0, const_cast<BYTE*>(block)));
    block[10] = tail;
    EXPECT_TRUE(HeapValidate(heap, 0, const_cast<BYTE*>(block)));
    HeapFree(heap, 0, const_cast<BYTE*>(block));
}
