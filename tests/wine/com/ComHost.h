#pragma once

#include "Kazlib_h.h"
#include "com/ComObject.h"
#include "win32/Bstr.h"
#include "win32/ComPointer.h"

#include <functional>
#include <string>
#include <vector>

namespace kaz::test {

// A host that notes what it hears as "Name(argument; argument)", lists as "[one|two]".
class ComHost final : public IDispatch {
public:
    std::vector<std::wstring> heard;
    ComPointer<IDispatch> lastList;
    std::function<void(DISPID)> reaction;  // runs after the note was taken
    HRESULT answer = S_OK;                 // to every event
    IID events = DIID_DKazEvents;          // that it knows
    std::function<void()> leaving;         // runs when it is let go of

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    // Lives on the stack of the test; the count is there to find references that were never given back.
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override {
        if (leaving) leaving();
        return --references;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*,
                                     EXCEPINFO*, UINT*) override;

    ULONG references = 0;
};

// Created as KAZ2 creates it: through the manifest of this program, with nothing in the registry.
ComPointer<IKazComponent> MakeComponent();
ComPointer<IConnectionPoint> EventsOf(const ComPointer<IKazComponent>& component,
                                      REFIID events = DIID_DKazEvents);
// Connects for as long as it lives.
class Connection {
public:
    Connection(const ComPointer<IKazComponent>& component, ComHost& host);
    ~Connection() { Disconnect(); }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    void Disconnect();

private:
    ComPointer<IConnectionPoint> point_;
    DWORD cookie_ = 0;
};

// Processes window messages, as the host's loop would, until the condition holds; false when ten seconds were
// not enough.
bool PumpUntil(const std::function<bool()>& condition);

// What the component's module says of itself.
HRESULT CanUnload();

}  // namespace kaz::test
