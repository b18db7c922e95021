// The control in a container that is not our own: the one that the ATL module of the system brings.

#include "support/gdi_objects.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <ole2.h>

namespace
{

constexpr wchar_t progId[] = L"LorvGrid8.LorvGridL";

using InitFunction = BOOL(WINAPI*)();
using CreateFunction = HRESULT(WINAPI*)(LPCOLESTR, HWND, IStream*, IUnknown**);
using GetFunction = HRESULT(WINAPI*)(HWND, IUnknown**);

template<class T> T Load(HMODULE module, const char* name)
{
    return reinterpret_cast<T>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

class ForeignContainer : public testing::Test
{
protected:
    void SetUp() override
    {
        HMODULE atl = LoadLibraryW(L"atl100.dll");
        CLSID classId;
        if (!atl || FAILED(CLSIDFromProgID(progId, &classId))) {
            GTEST_SKIP() << "no ATL module, or the control is not registered";
        }
        create_ = Load<CreateFunction>(atl, "AtlAxCreateControl");
        get_ = Load<GetFunction>(atl, "AtlAxGetControl");
        const auto init = Load<InitFunction>(atl, "AtlAxWinInit");
        ASSERT_TRUE(init && create_ && get_);
        static const BOOL initialised = init(); // a second call finds its window classes taken, and fails
        ASSERT_TRUE(initialised);
        window_ = CreateWindowExW(0, L"Static", L"foreign container", WS_OVERLAPPEDWINDOW, 20, 20, 400, 300,
                                  nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
        ASSERT_NE(nullptr, window_);
    }
    void TearDown() override
    {
        if (window_)
            DestroyWindow(window_);
    }

    void Pump()
    {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageW(&message);
    }
    // A reference to the hosted control.
    IUnknown* CreateShown()
    {
        IUnknown *container = nullptr, *control = nullptr;
        EXPECT_EQ(S_OK, create_(progId, window_, nullptr, &container));
        if (container)
            container->Release();
        EXPECT_EQ(S_OK, get_(window_, &control));
        ShowWindow(window_, SW_SHOWNA);
        Pump();
        return control;
    }
    void DestroyFrame()
    {
        DestroyWindow(window_);
        window_ = nullptr;
        Pump();
    }

    CreateFunction create_ = nullptr;
    GetFunction get_ = nullptr;
    HWND window_ = nullptr;
};

} // namespace

TEST_F(ForeignContainer, ActivatesTheControlInItsWindow)
{
    IUnknown* control = CreateShown();
    ASSERT_NE(nullptr, control);
    IOleWindow* inPlace = nullptr;
    ASSERT_EQ(S_OK, control->QueryInterface(IID_IOleWindow, reinterpret_cast<void**>(&inPlace)));
    HWND grid = nullptr;
    EXPECT_EQ(S_OK, inPlace->GetWindow(&grid));
    EXPECT_TRUE(IsChild(window_, grid));
    inPlace->Release();
    control->Release();
}

TEST_F(ForeignContainer, ShowsWhatTheControlPaints)
{
    IUnknown* control = CreateShown();
    ASSERT_NE(nullptr, control);
    UpdateWindow(window_);
    IOleWindow* inPlace = nullptr;
    ASSERT_EQ(S_OK, control->QueryInterface(IID_IOleWindow, reinterpret_cast<void**>(&inPlace)));
    HWND grid = nullptr;
    inPlace->GetWindow(&grid);
    EXPECT_FALSE(GetUpdateRect(grid, nullptr, FALSE)) << "everything asked for has been painted";
    inPlace->Release();
    control->Release();
}

TEST_F(ForeignContainer, LetsGoOfTheControlWithItsWindow)
{
    IUnknown* control = CreateShown();
    ASSERT_NE(nullptr, control);
    DestroyFrame();
    EXPECT_EQ(0u, control->Release());
}

TEST_F(ForeignContainer, CanBeUsedAgainAndAgain)
{
    const int objectsBefore = GdiObjectCount();
    for (int round = 0; round < 20; ++round) {
        HWND frame = CreateWindowExW(0, L"Static", L"round", WS_OVERLAPPEDWINDOW, 20, 20, 200, 150, nullptr,
                                     nullptr, GetModuleHandleW(nullptr), nullptr);
        IUnknown* container = nullptr;
        EXPECT_EQ(S_OK, create_(progId, frame, nullptr, &container));
        if (container)
            container->Release();
        DestroyWindow(frame);
        Pump();
    }
    EXPECT_EQ(GdiObjectCount(), objectsBefore);
}
