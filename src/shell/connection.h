#pragma once

#include "shell/com_base.h"

// One place to connect sinks to. It is an object of its own towards its clients, but lives in the control
// and keeps it alive.
class ConnectionPoint final : public IConnectionPoint
{
public:
    ConnectionPoint(Grid& grid, SinkList& sinks, const IID& outgoing) noexcept
        : grid_(grid), sinks_(sinks), outgoing_(outgoing)
    {
    }
    ConnectionPoint(const ConnectionPoint&) = delete;
    ConnectionPoint& operator=(const ConnectionPoint&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return grid_.Outer->AddRef(); }
    ULONG STDMETHODCALLTYPE Release() override { return grid_.Outer->Release(); }

    HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* iid) override;
    HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer** container) override;
    HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) override;
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override;
    HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections** enumerator) override;

    const IID& Outgoing() const noexcept { return outgoing_; }

private:
    Grid& grid_;
    SinkList& sinks_;
    const IID& outgoing_;
};

// The ways out of the control: changes of properties, and events.
class ConnectionPoints final : public ControlPart<IConnectionPointContainer>
{
public:
    using ControlPart::ControlPart;

    HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** enumerator) override;
    HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID iid, IConnectionPoint** point) override;

    ConnectionPoint Properties{grid_, grid_.PropertySinks, IID_IPropertyNotifySink};
    ConnectionPoint Events{grid_, grid_.EventSinks, DIID__ILorvGridEvents};
};
