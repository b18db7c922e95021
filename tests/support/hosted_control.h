#pragma once
// A test with the registered control in a container on a window of its own.

#include "support/control_fixture.h"
#include "support/test_container.h"

class HostedControl : public ControlTest
{
protected:
    void SetUp() override
    {
        ControlTest::SetUp();
        parent_ = CreateWindowExW(0, L"STATIC", L"host", WS_OVERLAPPEDWINDOW, 0, 0, 600, 400, nullptr,
                                  nullptr, nullptr, nullptr);
        ShowWindow(parent_, SW_SHOWNA);
        site_.Parent = parent_;
        site_.SetUserMode(true);
        object_ = As<IOleObject>(IID_IOleObject);
    }

    void TearDown() override
    {
        if (object_) {
            object_->Close(OLECLOSE_NOSAVE);
            object_->SetClientSite(nullptr);
            object_.Reset();
        }
        ControlTest::TearDown();
        EXPECT_EQ(0, site_.References);
        EXPECT_EQ(0, site_.Frame.References);
        DestroyWindow(parent_);
    }

    void Site() { ASSERT_EQ(S_OK, object_->SetClientSite(&site_)); }

    HRESULT DoVerb(LONG verb) { return object_->DoVerb(verb, nullptr, &site_, 0, parent_, &site_.Position); }

    HWND Activate(LONG verb = OLEIVERB_INPLACEACTIVATE)
    {
        Site();
        EXPECT_EQ(S_OK, DoVerb(verb));
        return Window();
    }

    HWND Window()
    {
        HWND window = nullptr;
        As<IOleInPlaceObject>(IID_IOleInPlaceObject)->GetWindow(&window);
        return window;
    }

    void ChangeAmbient(DISPID dispid)
    {
        EXPECT_EQ(S_OK, As<IOleControl>(IID_IOleControl)->OnAmbientPropertyChange(dispid));
    }

    TestSite site_;
    HWND parent_ = nullptr;
    ComPtr<IOleObject> object_;
};
