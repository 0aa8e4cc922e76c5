#pragma once

#include "ComHost.h"

#include <activscp.h>

#include <memory>
#include <string>
#include <vector>

namespace kaz::test {

// Runs a VBScript with as much of the object WScript as the examples use: Wine's own script host connects no
// events.
class ScriptHost final : public IActiveScriptSite, public IDispatch {
public:
    explicit ScriptHost(std::wstring argument) : argument_(std::move(argument)) {}

    // What the script echoes, line by line; errors too.
    std::vector<std::wstring> Run(const std::string& text);

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }

    HRESULT STDMETHODCALLTYPE GetLCID(LCID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetItemInfo(LPCOLESTR, DWORD, IUnknown** item, ITypeInfo**) override;
    HRESULT STDMETHODCALLTYPE GetDocVersionString(BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE OnScriptTerminate(const VARIANT*, const EXCEPINFO*) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnStateChange(SCRIPTSTATE) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnScriptError(IActiveScriptError* error) override;
    HRESULT STDMETHODCALLTYPE OnEnterScript() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnLeaveScript() override { return S_OK; }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT* answer,
                                     EXCEPINFO*, UINT*) override;

private:
    HRESULT CreateConnected(const wchar_t* name, const std::wstring& prefix, VARIANT* answer);

    std::wstring argument_;
    std::vector<std::wstring> said_;
    ComPointer<IActiveScript> engine_;
    ComHost events_;
    std::unique_ptr<Connection> connection_;
};

}  // namespace kaz::test
