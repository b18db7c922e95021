#include <gtest/gtest.h>

#include <vector>

#include <windows.h>

#include <ole2.h>

namespace
{

// A damaged heap is reported by the test that damaged it, not by a crash ten tests later. Without the heap's
// tail and free checking this finds broken block headers only; with it, writes past a block's end as well.
class HeapGuard : public testing::EmptyTestEventListener
{
    void OnTestEnd(const testing::TestInfo&) override
    {
        std::vector<HANDLE> heaps(GetProcessHeaps(0, nullptr));
        heaps.resize(GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data()));
        for (HANDLE heap : heaps) {
            EXPECT_TRUE(HeapValidate(heap, 0, nullptr)) << "a heap of the process is damaged";
        }
    }
};

} // namespace

int main(int argc, char** argv)
{
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
    testing::InitGoogleTest(&argc, argv);
    testing::UnitTest::GetInstance()->listeners().Append(new HeapGuard);
    OleInitialize(nullptr);
    int result = RUN_ALL_TESTS();
    OleUninitialize();
    return result;
}
