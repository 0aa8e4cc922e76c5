#include "ScriptHost.h"

#include <gtest/gtest.h>

namespace kaz::test {

namespace {

constexpr const wchar_t* kNames[] = {L"CreateObject", L"Echo", L"Arguments"};

}  // namespace

std::vector<std::wstring> ScriptHost::Run(const std::string& text) {
    CLSID id{};
    EXPECT_EQ(CLSIDFromProgID(L"VBScript", &id), S_OK);
    EXPECT_EQ(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IActiveScript, engine_.PutVoid()),
              S_OK);
    const auto parser = engine_.As<IActiveScriptParse>();
    EXPECT_EQ(engine_->SetScriptSite(this), S_OK);
    EXPECT_EQ(parser->InitNew(), S_OK);
    engine_->AddNamedItem(L"WScript", SCRIPTITEM_ISVISIBLE);
    engine_->SetScriptState(SCRIPTSTATE_STARTED);
    parser->ParseScriptText(std::wstring(text.begin(), text.end()).c_str(), nullptr, nullptr, nullptr, 0, 1,
                            SCRIPTTEXT_ISVISIBLE, nullptr, nullptr);
    connection_.reset();
    engine_->Close();
    engine_.Reset();
    return said_;
}

HRESULT ScriptHost::QueryInterface(REFIID iid, void** object) {
    *object = nullptr;
    if (iid == IID_IActiveScriptSite) *object = static_cast<IActiveScriptSite*>(this);
    if (iid == IID_IUnknown || iid == IID_IDispatch) *object = static_cast<IDispatch*>(this);
    return *object ? S_OK : E_NOINTERFACE;
}

HRESULT ScriptHost::GetItemInfo(LPCOLESTR, DWORD, IUnknown** item, ITypeInfo**) {
    *item = static_cast<IDispatch*>(this);
    return S_OK;
}

HRESULT ScriptHost::OnScriptError(IActiveScriptError* error) {
    EXCEPINFO info{};
    DWORD context = 0;
    ULONG line = 0;
    error->GetExceptionInfo(&info);
    error->GetSourcePosition(&context, &line, nullptr);
    said_.push_back(L"line " + std::to_wstring(line) + L": error " + std::to_wstring(info.scode & 0xffff));
    return S_OK;
}

HRESULT ScriptHost::GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) {
    for (DISPID id = 0; id < 3; ++id) {
        if (lstrcmpiW(names[0], kNames[id]) != 0) continue;
        ids[0] = id + 1;
        return S_OK;
    }
    return DISP_E_UNKNOWNNAME;
}

HRESULT ScriptHost::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT* answer, EXCEPINFO*,
                           UINT*) {
    // Last first, as texts.
    std::vector<std::wstring> texts;
    for (UINT index = 0; index < arguments->cArgs; ++index) {
        VARIANT text{};
        if (FAILED(VariantChangeType(&text, &arguments->rgvarg[index], 0, VT_BSTR)))
            return DISP_E_TYPEMISMATCH;
        texts.emplace_back(text.bstrVal, SysStringLen(text.bstrVal));
        VariantClear(&text);
    }
    if (id == 1 && texts.size() == 2) return CreateConnected(texts[1].c_str(), texts[0], answer);
    if (id == 2 && texts.size() == 1) {
        said_.push_back(texts[0]);
        return S_OK;
    }
    if (id != 3 || texts != std::vector<std::wstring>{L"0"}) return DISP_E_BADPARAMCOUNT;
    answer->vt = VT_BSTR;
    answer->bstrVal = Bstr(argument_).Detach();
    return S_OK;
}

HRESULT ScriptHost::CreateConnected(const wchar_t* name, const std::wstring& prefix, VARIANT* answer) {
    CLSID id{};
    ComPointer<IKazComponent> component;
    if (FAILED(CLSIDFromProgID(name, &id))) return CO_E_CLASSSTRING;
    const HRESULT result =
        CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IKazComponent), component.PutVoid());
    if (FAILED(result)) return result;
    events_.relay = [this, prefix](const wchar_t* event, DISPPARAMS& arguments) {
        std::wstring procedure = prefix + event;
        LPOLESTR procedures[] = {procedure.data()};
        ComPointer<IDispatch> script;
        DISPID found = 0;
        engine_->GetScriptDispatch(nullptr, script.Put());
        if (SUCCEEDED(script->GetIDsOfNames(IID_NULL, procedures, 1, LOCALE_USER_DEFAULT, &found)))
            script->Invoke(found, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &arguments, nullptr,
                           nullptr, nullptr);
    };
    connection_ = std::make_unique<Connection>(component, events_);
    answer->vt = VT_DISPATCH;
    answer->pdispVal = component.Detach();
    return S_OK;
}

}  // namespace kaz::test
