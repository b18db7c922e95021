#include "shell/quick_activate.h"

#include "core/events.h"
#include "shell/control.h"

namespace
{
void ConnectSink(ConnectionPoint& point, IUnknown* sink, DWORD& cookie)
{
    if (sink)
        point.Advise(sink, &cookie);
}
} // namespace

HRESULT QuickActivation::QuickActivate(QACONTAINER* container, QACONTROL* control)
{
    if (!container || !control)
        return E_POINTER;
    KeepAlive alive(grid_);
    CLorvArrayCtrl& self = ControlOf(grid_);
    self.put_ForeColor(container->colorFore);
    self.put_BackColor(container->colorBack);
    locale_ = container->lcid;
    *control = {};
    control->cbSize = sizeof(*control);
    self.Ole.SetClientSite(container->pClientSite);
    if (container->pAdviseSink)
        self.View.SetAdvise(DVASPECT_CONTENT, 0, container->pAdviseSink);
    ConnectSink(self.Connections.Properties, container->pPropertyNotifySink, control->dwPropNotifyCookie);
    ConnectSink(self.Connections.Events, container->pUnkEventSink, control->dwEventCookie);
    self.Ole.GetMiscStatus(DVASPECT_CONTENT, &control->dwMiscStatus);
    self.View.GetViewStatus(&control->dwViewStatus);
    return S_OK;
}

HRESULT QuickActivation::SetContentExtent(LPSIZEL extent)
{
    return ControlOf(grid_).Ole.SetExtent(DVASPECT_CONTENT, extent);
}

HRESULT QuickActivation::GetContentExtent(LPSIZEL extent)
{
    return ControlOf(grid_).Ole.GetExtent(DVASPECT_CONTENT, extent);
}
