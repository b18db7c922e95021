#pragma once
// Small stand-ins for what a host gives to the control: sinks that keep what they were told, an ambient
// dispatch, objects with foreign code in their release.

#include "core/grid_object.h"
#include "platform/memory.h"

#include <gtest/gtest.h>

#include <functional>
#include <utility>
#include <vector>

// Lives on a test's stack and answers one interface beside IUnknown. The references must all be back in the
// end.
template<class Interface> class Fake : public Interface
{
public:
    explicit Fake(REFIID iid) : iid_(iid) {}
    Fake(const Fake&) = delete;
    Fake& operator=(const Fake&) = delete;
    virtual ~Fake() { EXPECT_EQ(References, 0) << "references to a fake were not given back"; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override
    {
        if (iid != IID_IUnknown && iid != iid_) {
            *out = nullptr;
            return E_NOINTERFACE;
        }
        *out = static_cast<Interface*>(this);
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(++References); }
    ULONG STDMETHODCALLTYPE Release() override
    {
        auto left = static_cast<ULONG>(--References);
        if (left == 0 && OnLastRelease)
            std::exchange(OnLastRelease, nullptr)();
        return left;
    }

    int References = 0;
    std::function<void()> OnLastRelease;

private:
    IID iid_;
};

// A dispatch object of which only Invoke matters, and in the base not even that.
class FakeDispatch : public Fake<IDispatch>
{
public:
    FakeDispatch() : Fake(IID_IDispatch) {}
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override
    {
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override
    {
        return DISP_E_UNKNOWNNAME;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) override
    {
        return DISP_E_MEMBERNOTFOUND;
    }
};

// IPictureDisp is a dispatch interface without functions of its own.
class FakePicture : public FakeDispatch
{
public:
    IPictureDisp* Get() { return reinterpret_cast<IPictureDisp*>(static_cast<IDispatch*>(this)); }
};

// Arguments as the event names them: the first one first.
struct FiredEvent {
    DISPID Id;
    std::vector<VARTYPE> Types;
    std::vector<long> Values; // of I2, I4, R4 and BOOL, by value or by reference; 0 for others
};

class EventSink : public FakeDispatch
{
public:
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO*, UINT*) override
    {
        EXPECT_EQ(iid, IID_NULL);
        EXPECT_EQ(locale, 1024u);
        EXPECT_EQ(flags, DISPATCH_METHOD);
        EXPECT_EQ(parameters->cNamedArgs, 0u);
        EXPECT_EQ(result, nullptr);
        FiredEvent event = {id, {}, {}};
        for (UINT slot = parameters->cArgs; slot-- > 0;) {
            event.Types.push_back(parameters->rgvarg[slot].vt);
            event.Values.push_back(ValueOf(parameters->rgvarg[slot]));
        }
        Events.push_back(event);
        if (On)
            On(id, *parameters);
        return Result;
    }

    // The argument with that number, counted from the first.
    static VARIANTARG& Argument(DISPPARAMS& parameters, UINT number)
    {
        return parameters.rgvarg[parameters.cArgs - 1 - number];
    }

    int Count(DISPID id) const
    {
        int count = 0;
        for (const FiredEvent& event : Events)
            count += event.Id == id;
        return count;
    }
    std::vector<DISPID> Ids() const
    {
        std::vector<DISPID> ids;
        for (const FiredEvent& event : Events)
            ids.push_back(event.Id);
        return ids;
    }

    std::vector<FiredEvent> Events;
    std::function<void(DISPID, DISPPARAMS&)> On;
    HRESULT Result = S_OK;

private:
    static long ValueOf(const VARIANTARG& argument)
    {
        switch (argument.vt) {
        case VT_I2:
        case VT_BOOL:
            return argument.iVal;
        case VT_I4:
            return argument.lVal;
        case VT_R4:
            return static_cast<long>(argument.fltVal);
        case VT_BYREF | VT_I2:
        case VT_BYREF | VT_BOOL:
            return *argument.piVal;
        case VT_BYREF | VT_I4:
            return *argument.plVal;
        default:
            return 0;
        }
    }
};

class PropertySink : public Fake<IPropertyNotifySink>
{
public:
    PropertySink() : Fake(IID_IPropertyNotifySink) {}
    HRESULT STDMETHODCALLTYPE OnChanged(DISPID id) override
    {
        Changed.push_back(id);
        if (On)
            On(id);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE OnRequestEdit(DISPID) override { return S_OK; }
    std::vector<DISPID> Taken() { return std::exchange(Changed, {}); }

    std::vector<DISPID> Changed;
    std::function<void(DISPID)> On;
};

// The ambient properties of a host that says whether it is a form designer, or says nothing.
class AmbientHost : public FakeDispatch
{
public:
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS*, VARIANT* result,
                                     EXCEPINFO*, UINT*) override
    {
        if (id != DISPID_AMBIENT_USERMODE || !(flags & DISPATCH_PROPERTYGET))
            return DISP_E_MEMBERNOTFOUND;
        ++Asked;
        if (!Answers)
            return E_FAIL;
        result->vt = VT_BOOL;
        result->boolVal = UserMode ? VARIANT_TRUE : VARIANT_FALSE;
        return S_OK;
    }
    // Becomes the host of a grid; the grid gives the reference back when it dies.
    void Attach(Grid& grid)
    {
        AddRef();
        grid.AmbientProperties = this;
    }

    bool UserMode = true;
    bool Answers = true;
    int Asked = 0;
};

// A custom data source that fails at everything and counts its calls.
class FakeSource : public Fake<ILorvDataSource>
{
public:
    FakeSource() : Fake(IID_ILorvDataSource) {}
    HRESULT STDMETHODCALLTYPE GetFieldCount(LONG*) override { return Called(); }
    HRESULT STDMETHODCALLTYPE GetRecordCount(LONG*) override { return Called(); }
    HRESULT STDMETHODCALLTYPE GetFieldName(LONG, BSTR*) override { return Called(); }
    HRESULT STDMETHODCALLTYPE GetData(LONG, LONG, BSTR*) override { return Called(); }
    HRESULT STDMETHODCALLTYPE SetData(LONG, LONG, BSTR) override { return Called(); }

    int Calls = 0;

private:
    HRESULT Called()
    {
        ++Calls;
        return E_FAIL;
    }
};

// Holds a sink connected for the length of a scope.
class Connection
{
public:
    Connection(SinkList& list, IUnknown* sink) : list_(list) { EXPECT_TRUE(list.Add(sink, Cookie)); }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    ~Connection() { list_.Remove(Cookie); }
    uint32_t Cookie = 0;

private:
    SinkList& list_;
};

// Every block of the model's heap that a scope takes, it must give back.
class HeapBalance
{
public:
    HeapBalance() : live_(TheAllocationProbe().Live) {}
    HeapBalance(const HeapBalance&) = delete;
    HeapBalance& operator=(const HeapBalance&) = delete;
    ~HeapBalance() { EXPECT_EQ(TheAllocationProbe().Live, live_) << "blocks of the model's heap leaked"; }

private:
    long live_;
};

// The next allocation of the model's heap fails, and none after it.
class FailingAllocation
{
public:
    explicit FailingAllocation(long number = 1)
    {
        TheAllocationProbe().Count = 0;
        TheAllocationProbe().FailAt = number;
    }
    FailingAllocation(const FailingAllocation&) = delete;
    FailingAllocation& operator=(const FailingAllocation&) = delete;
    ~FailingAllocation() { TheAllocationProbe().FailAt = 0; }
};

// Runs `scenario` once for each allocation that it makes, with that one failing, and once with none. What
// the scenario took must be back after each run. Gives the number of allocations.
template<class Scenario> long WithEachAllocationFailing(Scenario scenario)
{
    for (long number = 1; number < 10000; ++number) {
        HeapBalance balance;
        FailingAllocation failing(number);
        scenario();
        if (TheAllocationProbe().Count < number)
            return TheAllocationProbe().Count;
    }
    ADD_FAILURE() << "the scenario allocates without end";
    return -1;
}
