#pragma once

#include "win32/ComPointer.h"

#include <windows.h>
#include <ocidl.h>

#include <span>
#include <vector>

namespace kaz {

// Where hosts connect to hear the component's events of one source interface. It is a part of its container:
// both live and die together.
class ConnectionPoint final : public IConnectionPoint {
public:
    ConnectionPoint(IConnectionPointContainer& container, REFIID events)
        : container_(container),
          events_(events) {}
    virtual ~ConnectionPoint() = default;
    ConnectionPoint(const ConnectionPoint&) = delete;
    ConnectionPoint& operator=(const ConnectionPoint&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return container_.AddRef(); }
    ULONG STDMETHODCALLTYPE Release() override { return container_.Release(); }

    HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* iid) override;
    HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer** container) override;
    HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) override;
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override;
    HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections** enumerator) override;

    // Calls every sink that was connected at the start and still is when its turn comes; a sink may connect
    // and disconnect anything meanwhile. A sink that fails does not keep the event from the others.
    // `arguments` stand last first. The last failure when one failed and none succeeded, S_FALSE when there
    // was neither; not to know the event is no failure. Throws std::bad_alloc.
    HRESULT Raise(DISPID event, std::span<VARIANT> arguments);

private:
    struct Connection {
        DWORD cookie;
        ComPointer<IDispatch> sink;
    };
    struct CopyConnection;

    bool IsConnected(DWORD cookie) const;

    IConnectionPointContainer& container_;
    const IID events_;
    std::vector<Connection> connections_;
    DWORD lastCookie_ = 0;
};

}  // namespace kaz
