#include "ComHost.h"
#include "fakes/Sample.h"
#include "fakes/TestData.h"
#include "fakes/TestFolder.h"
#include "platform/win32/Win32Clock.h"

#include <activscp.h>
#include <gmock/gmock.h>

#include <fstream>
#include <iterator>
#include <memory>

namespace kaz::test {

namespace {

// Runs a VBScript with as much of the object WScript as the examples use: Wine's own script host connects no
// events.
class ScriptHost final : public ComObject<IActiveScriptSite, IDispatch> {
public:
    explicit ScriptHost(const std::wstring& argument) : argument_(argument) {}

    // What the script echoes, line by line; errors too.
    std::vector<std::wstring> Run(const std::wstring& text) {
        CLSID id{};
        CLSIDFromProgID(L"VBScript", &id);
        EXPECT_EQ(CoCreateInstance(id, nullptr, CLSCTX_ALL, IID_IActiveScript, engine_.PutVoid()), S_OK);
        const auto parser = engine_.As<IActiveScriptParse>();
        engine_->SetScriptSite(this);
        parser->InitNew();
        engine_->AddNamedItem(L"WScript", SCRIPTITEM_ISVISIBLE);
        engine_->SetScriptState(SCRIPTSTATE_STARTED);
        parser->ParseScriptText(text.c_str(), nullptr, nullptr, nullptr, 0, 1, SCRIPTTEXT_ISVISIBLE, nullptr,
                                nullptr);
        connection_.reset();
        engine_->Close();
        return said_;
    }

    HRESULT STDMETHODCALLTYPE GetLCID(LCID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetItemInfo(LPCOLESTR, DWORD, IUnknown** item, ITypeInfo**) override {
        *item = ComPointer<IDispatch>(this).Detach();
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetDocVersionString(BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE OnScriptTerminate(const VARIANT*, const EXCEPINFO*) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnStateChange(SCRIPTSTATE) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnScriptError(IActiveScriptError* error) override {
        DWORD context = 0;
        ULONG line = 0;
        error->GetSourcePosition(&context, &line, nullptr);
        said_.push_back(L"error in line " + std::to_wstring(line));
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE OnEnterScript() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnLeaveScript() override { return S_OK; }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
        const std::wstring_view name = names[0];
        ids[0] = name == L"CreateObject" ? 1
                 : name == L"Echo"       ? 2
                 : name == L"Arguments"  ? 3
                                         : DISPID_UNKNOWN;
        return ids[0] == DISPID_UNKNOWN ? DISP_E_UNKNOWNNAME : S_OK;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT* answer,
                                     EXCEPINFO*, UINT*) override {
        VARIANT* const last = arguments->rgvarg;
        if (id == 1 && arguments->cArgs == 2)
            return CreateConnected(last[1].bstrVal, last[0].bstrVal, answer);
        if (id == 2) {
            VARIANT text{};  // of a variable the script hands over where it is
            VariantChangeType(&text, last, 0, VT_BSTR);
            said_.emplace_back(text.bstrVal, SysStringLen(text.bstrVal));
            VariantClear(&text);
        }
        if (id == 3) {
            answer->vt = VT_BSTR;
            answer->bstrVal = Bstr(argument_).Detach();
        }
        return S_OK;
    }

private:
    HRESULT CreateConnected(const wchar_t* name, const std::wstring& prefix, VARIANT* answer) {
        CLSID id{};
        CLSIDFromProgID(name, &id);
        ComPointer<IKazComponent> component;
        const HRESULT result =
            CoCreateInstance(id, nullptr, CLSCTX_ALL, __uuidof(IKazComponent), component.PutVoid());
        if (FAILED(result)) return result;
        events_.relay = [this, prefix](const wchar_t* event, DISPPARAMS& arguments) {
            std::wstring procedure = prefix + event;
            LPOLESTR names[] = {procedure.data()};
            ComPointer<IDispatch> script;
            engine_->GetScriptDispatch(nullptr, script.Put());
            DISPID found = 0;
            if (SUCCEEDED(script->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &found)))
                script->Invoke(found, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &arguments, nullptr,
                               nullptr, nullptr);
        };
        connection_ = std::make_unique<Connection>(component, events_);
        answer->vt = VT_DISPATCH;
        answer->pdispVal = component.Detach();
        return S_OK;
    }

    std::wstring argument_;
    std::vector<std::wstring> said_;
    ComPointer<IActiveScript> engine_;
    ComHost events_;
    std::unique_ptr<Connection> connection_;
};

}  // namespace

TEST(Script, ExampleListsTodaysEvents) {
    const TestFolder folder;
    folder.Write("Kaz.ini", "OWNER,Single\r\nNOAUTOBACKUPS,-1\r\n");
    const DateValue today = Win32Clock().Today();
    clsEvent dentist = OneOff("000002", "Zahnarzt", today);
    dentist.Email = "ann@example.org";
    folder.Write("Events.xml", FileOf({OneOff("000001", "Caf\xe9 au lait", today), dentist,
                                       OneOff("000003", "Garden", DateValue(today.Day() + 1))}));
    std::ifstream file(TestData() + "/../examples/today.vbs", std::ios::binary);
    const std::wstring text{std::istreambuf_iterator<char>(file), {}};
    EXPECT_THAT(
        ScriptHost(folder.Path().wstring()).Run(text),
        testing::ElementsAre(L"Mail to ann@example.org: Zahnarzt", L"Caf\u00e9 au lait", L"Zahnarzt"));
}

}  // namespace kaz::test
