#include "core/events.h"

namespace
{
// A handler's failure is its own affair: neither a code nor an exception stops the other sinks.
void InvokeSink(IDispatch* sink, DISPID dispid, DISPPARAMS& parameters) noexcept
{
    try {
        sink->Invoke(dispid, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr, nullptr,
                     nullptr);
    } catch (...) {
    }
}
} // namespace

void Fire(Grid& grid, DISPID dispid, unsigned count, VARIANTARG* arguments)
{
    if (grid.Closing || grid.EventSinks.Size() == 0)
        return;
    KeepAlive alive(grid);
    ++grid.InEvent;
    DISPPARAMS parameters = {arguments, nullptr, count, 0};
    // Sinks that come while the event is out are not asked; one that leaves makes a hole.
    int slots = grid.EventSinks.Size();
    for (int slot = 0; slot < slots; ++slot) {
        auto* sink = static_cast<IDispatch*>(grid.EventSinks.At(slot));
        if (!sink)
            continue;
        sink->AddRef();
        InvokeSink(sink, dispid, parameters);
        sink->Release();
    }
    --grid.InEvent;
}
