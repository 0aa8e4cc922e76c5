#include "com/ConnectionPoint.h"

#include "com/Enumerator.h"

#include <olectl.h>

#include <algorithm>

namespace kaz {

struct ConnectionPoint::CopyConnection {
    static HRESULT Out(const Connection& connection, CONNECTDATA* element) {
        element->dwCookie = connection.cookie;
        element->pUnk = ComPointer<IUnknown>(connection.sink.Get()).Detach();
        return S_OK;
    }
    static void Undo(CONNECTDATA* element) { element->pUnk->Release(); }
};

HRESULT ConnectionPoint::QueryInterface(REFIID iid, void** object) {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (iid != IID_IUnknown && iid != IID_IConnectionPoint) return E_NOINTERFACE;
    *object = ComPointer<IConnectionPoint>(this).Detach();
    return S_OK;
}

HRESULT ConnectionPoint::GetConnectionInterface(IID* iid) {
    if (!iid) return E_POINTER;
    *iid = events_;
    return S_OK;
}

HRESULT ConnectionPoint::GetConnectionPointContainer(IConnectionPointContainer** container) {
    if (!container) return E_POINTER;
    *container = ComPointer<IConnectionPointContainer>(&container_).Detach();
    return S_OK;
}

HRESULT ConnectionPoint::Advise(IUnknown* sink, DWORD* cookie) try {
    if (!cookie) return E_POINTER;
    *cookie = 0;
    if (!sink) return E_POINTER;
    // Asked for by its own id only: this is how a script host learns which object's events it is to answer.
    ComPointer<IDispatch> events;
    if (FAILED(sink->QueryInterface(events_, events.PutVoid()))) {
        events.Detach();
        return CONNECT_E_CANNOTCONNECT;
    }
    connections_.push_back({++lastCookie_, std::move(events)});
    *cookie = lastCookie_;
    return S_OK;
} catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
}

HRESULT ConnectionPoint::Unadvise(DWORD cookie) {
    const auto found = std::ranges::find(connections_, cookie, &Connection::cookie);
    if (found == connections_.end()) return CONNECT_E_NOCONNECTION;
    // Out of the list before it is released: the release may come back here.
    const Connection leaving = std::move(*found);
    connections_.erase(found);
    return S_OK;
}

HRESULT ConnectionPoint::EnumConnections(IEnumConnections** enumerator) try {
    if (!enumerator) return E_POINTER;
    *enumerator = nullptr;
    *enumerator = new Enumerator<IEnumConnections, Connection, CONNECTDATA, CopyConnection>(connections_);
    return S_OK;
} catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
}

HRESULT ConnectionPoint::Raise(DISPID event, std::span<VARIANT> arguments) {
    HRESULT failure = S_FALSE;
    bool taken = false;
    const std::vector<Connection> listening = connections_;
    for (const Connection& connection : listening) {
        if (!IsConnected(connection.cookie)) continue;
        DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
        const HRESULT result = connection.sink->Invoke(event, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD,
                                                       &parameters, nullptr, nullptr, nullptr);
        taken = taken || SUCCEEDED(result);
        // A host need not have a handler for each event.
        const bool absent = result == DISP_E_MEMBERNOTFOUND || result == E_NOTIMPL;
        if (FAILED(result) && !absent) failure = result;
    }
    return taken ? S_OK : failure;
}

bool ConnectionPoint::IsConnected(DWORD cookie) const {
    return std::ranges::find(connections_, cookie, &Connection::cookie) != connections_.end();
}

}  // namespace kaz
