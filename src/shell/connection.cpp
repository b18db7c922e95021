#include "shell/connection.h"

#include "platform/com_ptr.h"

#include <memory>
#include <new>

namespace
{
IUnknown* ObjectOf(const CONNECTDATA& connection) noexcept
{
    return connection.pUnk;
}

IUnknown* ObjectOf(IConnectionPoint* point) noexcept
{
    return point;
}

// An enumerator over copies: what connects or leaves later does not change it.
template<class Interface, class Item> class Enumerator final : public HeapObject<Interface>
{
public:
    // Null when there is no memory. The items are counted.
    static Enumerator* Make(const Item* items, ULONG count) noexcept
    {
        std::unique_ptr<Item[]> copies(new (std::nothrow) Item[count ? count : 1]);
        auto* made = copies ? new (std::nothrow) Enumerator : nullptr;
        if (!made)
            return nullptr;
        for (ULONG i = 0; i < count; ++i) {
            copies[i] = items[i];
            ObjectOf(copies[i])->AddRef();
        }
        made->items_ = std::move(copies);
        made->count_ = count;
        return made;
    }

    HRESULT STDMETHODCALLTYPE Next(ULONG wanted, Item* items, ULONG* fetched) override
    {
        if (!items || (!fetched && wanted != 1))
            return E_POINTER;
        ULONG given = 0;
        for (; given < wanted && at_ < count_; ++given, ++at_) {
            items[given] = items_[at_];
            ObjectOf(items[given])->AddRef();
        }
        if (fetched)
            *fetched = given;
        return given == wanted ? S_OK : S_FALSE;
    }

    HRESULT STDMETHODCALLTYPE Skip(ULONG number) override
    {
        ULONG left = count_ - at_;
        at_ += number < left ? number : left;
        return number <= left ? S_OK : S_FALSE;
    }

    HRESULT STDMETHODCALLTYPE Reset() override
    {
        at_ = 0;
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE Clone(Interface** clone) override
    {
        if (!clone)
            return E_POINTER;
        Enumerator* made = Make(items_.get(), count_);
        if (made)
            made->at_ = at_;
        *clone = made;
        return made ? S_OK : E_OUTOFMEMORY;
    }

private:
    Enumerator() noexcept = default;
    ~Enumerator() override
    {
        for (ULONG i = 0; i < count_; ++i)
            ObjectOf(items_[i])->Release();
    }

    std::unique_ptr<Item[]> items_;
    ULONG count_ = 0;
    ULONG at_ = 0;
};
} // namespace

HRESULT ConnectionPoint::QueryInterface(REFIID iid, void** out)
{
    if (!out)
        return E_POINTER;
    bool known = IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IConnectionPoint);
    *out = known ? static_cast<IConnectionPoint*>(this) : nullptr;
    if (!known)
        return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

HRESULT ConnectionPoint::GetConnectionInterface(IID* iid)
{
    if (!iid)
        return E_POINTER;
    *iid = outgoing_;
    return S_OK;
}

HRESULT ConnectionPoint::GetConnectionPointContainer(IConnectionPointContainer** container)
{
    if (!container)
        return E_POINTER;
    return grid_.Outer->QueryInterface(IID_IConnectionPointContainer, reinterpret_cast<void**>(container));
}

HRESULT ConnectionPoint::Advise(IUnknown* sink, DWORD* cookie)
{
    if (cookie)
        *cookie = 0;
    if (!sink || !cookie)
        return E_POINTER;
    auto known = QueryFor<IUnknown>(sink, outgoing_);
    if (!known)
        return CONNECT_E_CANNOTCONNECT;
    uint32_t number = 0;
    if (!sinks_.Add(known.Get(), number))
        return CONNECT_E_ADVISELIMIT;
    *cookie = number;
    return S_OK;
}

HRESULT ConnectionPoint::Unadvise(DWORD cookie)
{
    return sinks_.Remove(cookie) ? S_OK : CONNECT_E_NOCONNECTION;
}

HRESULT ConnectionPoint::EnumConnections(IEnumConnections** enumerator)
{
    if (!enumerator)
        return E_POINTER;
    *enumerator = nullptr;
    std::unique_ptr<CONNECTDATA[]> connections(new (std::nothrow) CONNECTDATA[sinks_.Size() + 1]);
    if (!connections)
        return E_OUTOFMEMORY;
    ULONG count = 0;
    for (int slot = 0; slot < sinks_.Size(); ++slot)
        if (IUnknown* sink = sinks_.At(slot))
            connections[count++] = {sink, sinks_.CookieAt(slot)};
    *enumerator = Enumerator<IEnumConnections, CONNECTDATA>::Make(connections.get(), count);
    return *enumerator ? S_OK : E_OUTOFMEMORY;
}

HRESULT ConnectionPoints::EnumConnectionPoints(IEnumConnectionPoints** enumerator)
{
    if (!enumerator)
        return E_POINTER;
    IConnectionPoint* const points[] = {&Properties, &Events};
    *enumerator = Enumerator<IEnumConnectionPoints, IConnectionPoint*>::Make(points, 2);
    return *enumerator ? S_OK : E_OUTOFMEMORY;
}

HRESULT ConnectionPoints::FindConnectionPoint(REFIID iid, IConnectionPoint** point)
{
    if (!point)
        return E_POINTER;
    *point = nullptr;
    for (ConnectionPoint* each : {&Properties, &Events})
        if (IsEqualIID(each->Outgoing(), iid)) {
            each->AddRef();
            *point = each;
            return S_OK;
        }
    return CONNECT_E_NOCONNECTION;
}
