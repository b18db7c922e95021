#pragma once
// A test that talks to the registered control through COM only, and afterwards finds every reference back.

#include "lorv8l.h"
#include "platform/bstr.h"
#include "platform/com_ptr.h"
#include "platform/variant.h"
#include "support/local_object.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>
#include <vector>

class ControlTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_EQ(S_OK, CoCreateInstance(CLSID_LorvGridL, nullptr, CLSCTX_INPROC_SERVER, IID_ILorvGrid,
                                         grid_.PutVoid()));
    }

    void TearDown() override
    {
        if (ILorvGrid* last = grid_.Detach()) {
            EXPECT_EQ(0u, last->Release()) << "somebody still holds the control";
        }
        EXPECT_EQ(S_OK, AskModuleWhetherItCanUnload());
    }

    static HRESULT AskModuleWhetherItCanUnload()
    {
        HMODULE module = GetModuleHandleW(L"lorv8l.dll");
        auto ask = module ? GetProcAddress(module, "DllCanUnloadNow") : nullptr;
        return ask ? reinterpret_cast<HRESULT(STDAPICALLTYPE*)()>(reinterpret_cast<void*>(ask))() : E_FAIL;
    }

    template<class T> ComPtr<T> As(REFIID iid) { return QueryFor<T>(grid_.Get(), iid); }

    HRESULT Get(DISPID dispid, OwnedVariant& value)
    {
        DISPPARAMS none = {};
        return grid_->Invoke(dispid, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none, value.Put(),
                             nullptr, nullptr);
    }

    HRESULT Put(DISPID dispid, VARIANT& value)
    {
        DISPID put = DISPID_PROPERTYPUT;
        DISPPARAMS parameters = {&value, &put, 1, 1};
        return grid_->Invoke(dispid, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUT, &parameters,
                             nullptr, nullptr, nullptr);
    }

    // Connects a sink to the connection point `outgoing`.
    ComPtr<IConnectionPoint> Point(REFIID outgoing)
    {
        ComPtr<IConnectionPoint> point;
        auto container = As<IConnectionPointContainer>(IID_IConnectionPointContainer);
        EXPECT_EQ(S_OK, container->FindConnectionPoint(outgoing, point.Put()));
        return point;
    }

    ComPtr<ILorvGrid> grid_;
};

// Records events, and does what a test asks in one of them.
class EventRecorder : public LocalDispatch
{
public:
    std::vector<DISPID> Events;
    DISPID ActsOn = DISPID_UNKNOWN;
    void (*Act)(EventRecorder&) = nullptr;
    void* ActData = nullptr;

    bool Has(DISPID dispid) const { return Count(dispid) != 0; }
    int Count(DISPID dispid) const
    {
        return static_cast<int>(std::count(Events.begin(), Events.end(), dispid));
    }

protected:
    void* FindMore(REFIID iid) override
    {
        return IsEqualIID(iid, DIID__ILorvGridEvents) ? static_cast<IDispatch*>(this) : nullptr;
    }
    void OnInvoke(DISPID dispid, DISPPARAMS&) override
    {
        Events.push_back(dispid);
        if (dispid == ActsOn && Act)
            Act(*this);
    }
};

// Records which properties changed.
class ChangeRecorder : public LocalObject<IPropertyNotifySink>
{
public:
    std::vector<DISPID> Changes;
    ComPtr<IConnectionPoint> Point; // to leave while being told
    DWORD LeaveCookie = 0;

    HRESULT STDMETHODCALLTYPE OnChanged(DISPID dispid) override
    {
        Changes.push_back(dispid);
        if (DWORD cookie = std::exchange(LeaveCookie, 0))
            Point->Unadvise(cookie);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE OnRequestEdit(DISPID) override { return S_OK; }
};

// A connection that ends with its scope.
class Connection
{
public:
    Connection(ComPtr<IConnectionPoint> point, IUnknown* sink) : point_(std::move(point))
    {
        EXPECT_EQ(S_OK, point_->Advise(sink, &Cookie));
    }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    ~Connection()
    {
        if (Cookie)
            point_->Unadvise(Cookie);
    }
    DWORD Cookie = 0;

private:
    ComPtr<IConnectionPoint> point_;
};
