#pragma once

#include "Kazlib_h.h"

#include <windows.h>
#include <oleauto.h>

namespace kaz {

class HostMail;
class ListsFile;

// How this host answers the component's events. Each number is an event of the interface DKazEvents; the
// arguments of a call stand last first.
class ComponentSink final : public IDispatch {
public:
    // Both outlive the connection.
    ComponentSink(ListsFile& lists, HostMail& mail) : lists_(lists), mail_(mail) {}
    virtual ~ComponentSink() = default;
    ComponentSink(const ComponentSink&) = delete;
    ComponentSink& operator=(const ComponentSink&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override;

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*,
                                     EXCEPINFO*, UINT*) override;

private:
    void On(DISPID event, const DISPPARAMS& arguments);

    ListsFile& lists_;
    HostMail& mail_;
    ULONG references_ = 1;
};

}  // namespace kaz
