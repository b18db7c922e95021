#include "platform/bstr.h"
#include "platform/com_ptr.h"
#include "platform/dpi.h"
#include "platform/gdi.h"
#include "platform/memory.h"
#include "platform/variant.h"
#include "support/fakes.h"

#include <climits>

namespace
{

TEST(Memory, TheProbeFailsOneAllocationAndCountsThem)
{
    HeapBalance balance;
    FailingAllocation failing(2);
    void* first = AllocateZeroed(1, 8);
    EXPECT_EQ(DuplicateText(L"x"), nullptr);
    void* third = AllocateZeroed(1, 8);
    EXPECT_NE(first, nullptr);
    EXPECT_NE(third, nullptr);
    EXPECT_EQ(TheAllocationProbe().Count, 3);
    FreeBlock(first);
    FreeBlock(third);
    FreeBlock(nullptr);
}

TEST(Memory, AFailedReallocationLeavesTheBlock)
{
    HeapBalance balance;
    auto* block = static_cast<int*>(AllocateZeroed(2, sizeof(int)));
    block[1] = 7;
    {
        FailingAllocation failing;
        EXPECT_EQ(ReallocateBlock(block, 100), nullptr);
    }
    EXPECT_EQ(block[1], 7);
    block = static_cast<int*>(ReallocateBlock(block, 400));
    EXPECT_EQ(block[1], 7);
    FreeAndClear(block);
    EXPECT_EQ(block, nullptr);
}

TEST(Memory, RefusesSizesThatDoNotFit)
{
    HeapBalance balance;
    EXPECT_EQ(AllocateZeroed(static_cast<size_t>(-1), 16), nullptr);
    EXPECT_EQ(DuplicateText(L"x", static_cast<size_t>(-1) / 2), nullptr);
}

TEST(Memory, RefusesABlockThatTheMachineCannotBack)
{
    HeapBalance balance;
    EXPECT_EQ(ReallocateBlock(nullptr, size_t{1} << 45), nullptr);
    EXPECT_EQ(AllocateZeroed(size_t{1} << 40, 32), nullptr);
}

TEST(Memory, DuplicatesTheFirstCharacters)
{
    HeapBalance balance;
    wchar_t* copy = DuplicateText(L"abcdef", 3);
    EXPECT_STREQ(copy, L"abc");
    FreeBlock(copy);
}

TEST(Bstr, OwnsItsText)
{
    Bstr text(L"abc");
    EXPECT_EQ(text.Length(), 3u);
    Bstr moved(std::move(text));
    EXPECT_STREQ(text.Text(), L"") << "null is the empty text";
    EXPECT_STREQ(moved.Text(), L"abc");
    BSTR detached = moved.Detach();
    EXPECT_TRUE(moved.Empty());
    *moved.Put() = detached;
    EXPECT_STREQ(moved.Text(), L"abc");
}

TEST(Bstr, FillsOutArguments)
{
    EXPECT_EQ(ReturnText(nullptr, L"x"), E_POINTER);
    BSTR result = nullptr;
    EXPECT_EQ(ReturnText(&result, nullptr), S_OK);
    EXPECT_EQ(result, nullptr);
    EXPECT_EQ(ReturnText(&result, L"x"), S_OK);
    EXPECT_STREQ(result, L"x");
    SysFreeString(result);
}

TEST(ComPtr, CountsItsReferences)
{
    FakeDispatch object;
    {
        ComPtr<IDispatch> first(&object);
        ComPtr<IDispatch> second(first);
        EXPECT_EQ(object.References, 2);
        ComPtr<IDispatch> third(std::move(first));
        EXPECT_FALSE(first);
        EXPECT_EQ(object.References, 2);
        second = nullptr;
        EXPECT_EQ(object.References, 1);
        object.AddRef();
        second.Attach(&object);
        EXPECT_EQ(object.References, 2);
        IDispatch* detached = third.Detach();
        EXPECT_EQ(object.References, 2);
        detached->Release();
    }
    EXPECT_EQ(object.References, 0);
}

TEST(ComPtr, AsksForAnInterface)
{
    FakeDispatch object;
    EXPECT_TRUE(QueryFor<IDispatch>(&object, IID_IDispatch));
    EXPECT_FALSE(QueryFor<IFont>(&object, IID_IFont));
    EXPECT_FALSE(QueryFor<IFont>(nullptr, IID_IFont));
}

TEST(ReplaceReference, TakesTheNewBeforeItLetsTheOldGo)
{
    FakeDispatch object;
    IDispatch* field = nullptr;
    ReplaceReference<IDispatch>(field, &object);
    ReplaceReference<IDispatch>(field, &object);
    EXPECT_EQ(object.References, 1);
    object.OnLastRelease = [&] { EXPECT_EQ(field, nullptr) << "foreign code finds the field done"; };
    ReplaceReference<IDispatch>(field, nullptr);
    EXPECT_EQ(object.References, 0);
}

TEST(FollowVariant, StopsAtACircle)
{
    VARIANT circle = {};
    circle.vt = VT_BYREF | VT_VARIANT, circle.pvarVal = &circle;
    EXPECT_EQ(&FollowVariant(circle), &circle);
}

TEST(IsMissing, MeansAnErrorAndNotEmpty)
{
    VARIANT value = {}, outer = {};
    EXPECT_FALSE(IsMissing(value));
    value.vt = VT_ERROR, value.scode = DISP_E_PARAMNOTFOUND;
    EXPECT_TRUE(IsMissing(value));
    outer.vt = VT_BYREF | VT_VARIANT, outer.pvarVal = &value;
    EXPECT_TRUE(IsMissing(outer));
}

TEST(VariantToLong, FallsBackOnWhatDoesNotConvert)
{
    VARIANT value = {};
    value.vt = VT_R8, value.dblVal = 7.0;
    EXPECT_EQ(VariantToLong(value, -1), 7);
    value.vt = VT_ERROR;
    EXPECT_EQ(VariantToLong(value, -1), -1);
    Bstr text(L" 12");
    value.vt = VT_BSTR, value.bstrVal = text.Get();
    EXPECT_EQ(VariantToLong(value, -1), 12);
}

TEST(Dpi, TwipsAndPixelsRoundAsMulDivDoes)
{
    for (int twips : {0, 1, 7, 8, 15, 22, 23, 1440, -22, -23})
        EXPECT_EQ(TwipsToPixelsX(twips), MulDiv(LogPixelsX(), twips, 1440)) << twips;
    EXPECT_EQ(PixelsToTwipsY(LogPixelsY()), 1440);
    EXPECT_EQ(DpiScale(96), LogPixelsY());
}

TEST(GdiObject, DeletesItsHandle)
{
    HPEN handle = nullptr;
    {
        Pen pen(CreatePen(PS_SOLID, 1, 0));
        handle = pen.Get();
        ScreenDC screen;
        SelectedObject selected(screen.Get(), handle);
        EXPECT_EQ(GetCurrentObject(screen.Get(), OBJ_PEN), handle);
    }
    EXPECT_EQ(GetObjectType(handle), 0u);
}

} // namespace
