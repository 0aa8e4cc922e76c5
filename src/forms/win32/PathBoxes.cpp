#include "forms/win32/PathBoxes.h"

#include "forms/win32/ModalRun.h"
#include "win32/ComPointer.h"
#include "win32/Handles.h"
#include "win32/Text.h"

#include <windows.h>
#include <commdlg.h>
#include <objbase.h>
#include <shlobj.h>
#include <shobjidl.h>

#include <algorithm>

namespace kaz {

namespace {

bool ChooseFolder(IFileOpenDialog& dialog, const std::wstring& title, std::optional<std::string>& chosen) {
    FILEOPENDIALOGOPTIONS options = 0;
    if (FAILED(dialog.GetOptions(&options))) return false;
    if (FAILED(dialog.SetOptions(options | FOS_PICKFOLDERS | FOS_FORCEFILESYSTEM | FOS_NOCHANGEDIR)))
        return false;
    dialog.SetTitle(title.c_str());
    const HRESULT shown = dialog.Show(WorkWindow());
    if (shown == HRESULT_FROM_WIN32(ERROR_CANCELLED)) return true;
    ComPointer<IShellItem> item;
    TaskText path;
    if (FAILED(shown) || FAILED(dialog.GetResult(item.Put()))) return false;
    if (FAILED(item->GetDisplayName(SIGDN_FILESYSPATH, path.Put()))) return false;
    chosen = PathText(path.Get());
    return true;
}

std::optional<std::string> ChooseFolderInTree(const std::wstring& title) {
    BROWSEINFOW request{};
    request.hwndOwner = WorkWindow();
    request.lpszTitle = title.c_str();
    request.ulFlags = BIF_RETURNONLYFSDIRS | BIF_NEWDIALOGSTYLE;
    ITEMIDLIST* list = SHBrowseForFolderW(&request);
    if (!list) return std::nullopt;
    wchar_t path[MAX_PATH] = L"";
    const BOOL found = SHGetPathFromIDListW(list, path);
    CoTaskMemFree(list);
    if (!found) return std::nullopt;
    return PathText(path);
}

std::optional<std::string> AskForPath(BOOL(WINAPI* ask)(OPENFILENAMEW*), const std::wstring& title,
                                      std::wstring filter, const std::wstring& name, DWORD flags) {
    // The call wants each part and the whole list ended by a zero.
    std::replace(filter.begin(), filter.end(), L'|', L'\0');
    filter.append(2, L'\0');
    std::wstring path(name);
    path.resize(32768, L'\0');
    OPENFILENAMEW request{};
    request.lStructSize = sizeof request;
    request.hwndOwner = WorkWindow();
    request.lpstrFilter = filter.c_str();
    request.lpstrFile = path.data();
    request.nMaxFile = static_cast<DWORD>(path.size());
    request.lpstrTitle = title.c_str();
    request.Flags = flags | OFN_NOCHANGEDIR | OFN_EXPLORER | OFN_ENABLESIZING;
    if (!ask(&request)) return std::nullopt;
    path.resize(path.find(L'\0'));
    return PathText(path);
}

}  // namespace

std::optional<std::string> AskForFile(const std::wstring& title, std::wstring filter) {
    return AskForPath(GetOpenFileNameW, title, std::move(filter), {}, OFN_FILEMUSTEXIST | OFN_HIDEREADONLY);
}

std::optional<std::string> AskWhereToSave(const std::wstring& title, std::wstring filter,
                                          const std::wstring& name) {
    return AskForPath(GetSaveFileNameW, title, std::move(filter), name,
                      OFN_OVERWRITEPROMPT | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY);
}

std::optional<std::string> AskForFolder(const std::wstring& title) {
    ComPointer<IFileOpenDialog> dialog;
    const HRESULT made = CoCreateInstance(CLSID_FileOpenDialog, nullptr, CLSCTX_INPROC_SERVER,
                                          IID_IFileOpenDialog, reinterpret_cast<void**>(dialog.Put()));
    std::optional<std::string> chosen;
    if (SUCCEEDED(made) && ChooseFolder(*dialog.Get(), title, chosen)) return chosen;
    return ChooseFolderInTree(title);
}

}  // namespace kaz
