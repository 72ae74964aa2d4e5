#include "mfc/CFileDialog.h"

#include "mfc/AfxExceptionScope.h"
#include "mfc/AfxModalLoop.h"

#include <objbase.h>
#include <shobjidl.h>

#include <cderr.h>
#include <memory>

namespace
{
// The longest possible path, so that no choice is too long.
constexpr std::size_t longestPath = 0x8000;

// The newer dialog works only in an apartment with a message loop.
class Apartment
{
public:
    Apartment() noexcept : m_entered(SUCCEEDED(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
    ~Apartment()
    {
        if (m_entered)
            ::CoUninitialize();
    }

    explicit operator bool() const noexcept { return m_entered; }

private:
    bool m_entered;
};

struct Release
{
    void operator()(IUnknown* object) const noexcept { object->Release(); }
};
template <class Interface>
using ComPointer = std::unique_ptr<Interface, Release>;

struct FreeTaskMemory
{
    void operator()(WCHAR* text) const noexcept { ::CoTaskMemFree(text); }
};

ComPointer<IFileDialog> createDialog(BOOL toOpen)
{
    void* made = nullptr;
    const CLSID& kind = toOpen ? CLSID_FileOpenDialog : CLSID_FileSaveDialog;
    if (FAILED(::CoCreateInstance(kind, nullptr, CLSCTX_INPROC_SERVER, IID_IFileDialog, &made)))
        return nullptr;
    return ComPointer<IFileDialog>(static_cast<IFileDialog*>(made));
}

ComPointer<IShellItem> folderItem(const CString& folder)
{
    void* made = nullptr;
    if (folder.IsEmpty() || FAILED(::SHCreateItemFromParsingName(folder, nullptr, IID_IShellItem, &made)))
        return nullptr;
    return ComPointer<IShellItem>(static_cast<IShellItem*>(made));
}

// The length of a path's folder, including the separator.
int folderLength(const CString& path)
{
    const auto end = path.view().find_last_of(L"\\/:");
    return end == OdStringView::npos ? 0 : static_cast<int>(end) + 1;
}

// Splits folder and name. A folder that does not exist stays with the name, where the user sees it.
void placeIn(IFileDialog& dialog, const CString& path, const CString& initialFolder)
{
    const int length = folderLength(path);
    const ComPointer<IShellItem> own = folderItem(path.Left(length));
    const ComPointer<IShellItem> initial = own ? nullptr : folderItem(initialFolder);
    if (own || initial)
        dialog.SetFolder(own ? own.get() : initial.get());
    const CString name = own ? path.Mid(length) : path;
    if (!name.IsEmpty())
        dialog.SetFileName(name);
}

DWORD shellOptions(DWORD before, DWORD flags)
{
    static_assert(FOS_OVERWRITEPROMPT == OFN_OVERWRITEPROMPT && FOS_NOCHANGEDIR == OFN_NOCHANGEDIR &&
                  FOS_FILEMUSTEXIST == OFN_FILEMUSTEXIST && FOS_CREATEPROMPT == OFN_CREATEPROMPT);
    constexpr DWORD same = OFN_OVERWRITEPROMPT | OFN_NOCHANGEDIR | OFN_FILEMUSTEXIST | OFN_CREATEPROMPT;
    return (before & ~same) | (flags & same) | FOS_FORCEFILESYSTEM;
}
} // namespace

CFileDialog::CFileDialog(BOOL bOpenFileDialog, LPCWSTR defaultExtension, LPCWSTR fileName, DWORD flags, LPCWSTR filter,
                         CWnd* pParentWnd, DWORD size, BOOL bVistaStyle)
    : m_bOpenFileDialog(bOpenFileDialog), m_bVistaStyle(bVistaStyle), m_defaultExtension(defaultExtension),
      m_path(fileName), m_pParentWnd(pParentWnd)
{
    m_ofn.lStructSize = size ? size : sizeof(m_ofn);
    m_ofn.Flags = flags | OFN_EXPLORER;
    m_ofn.nFilterIndex = 1;

    const CString whole(filter);
    int begin = 0;
    for (int end = whole.Find(L'|'); end >= 0; end = whole.Find(L'|', begin))
    {
        m_filter.push_back(whole.Mid(begin, end - begin));
        begin = end + 1;
    }
    // The last "|" ends the list, and so does a text without a pattern.
    if (m_filter.size() % 2)
        m_filter.pop_back();
}

CString CFileDialog::GetFileName() const
{
    return m_path.Mid(folderLength(m_path));
}

INT_PTR CFileDialog::DoModal()
{
    AfxExceptionScope scope;
    const HWND owner = AfxGetSafeOwner(m_pParentWnd ? m_pParentWnd->m_hWnd : nullptr);
    bool shown = false;
    INT_PTR answer = m_bVistaStyle ? runShellDialog(owner, shown) : IDCANCEL;
    if (!shown)
        answer = runCommonDialog(owner);
    scope.rethrow();
    return answer;
}

INT_PTR CFileDialog::runShellDialog(HWND owner, bool& shown)
{
    const Apartment apartment;
    const ComPointer<IFileDialog> dialog = apartment ? createDialog(m_bOpenFileDialog) : nullptr;
    if (!dialog)
        return IDCANCEL;
    DWORD options = 0;
    dialog->GetOptions(&options);
    dialog->SetOptions(shellOptions(options, m_ofn.Flags));
    std::vector<COMDLG_FILTERSPEC> types;
    for (std::size_t i = 0; i < m_filter.size(); i += 2)
        types.push_back({m_filter[i], m_filter[i + 1]});
    if (!types.empty())
    {
        dialog->SetFileTypes(static_cast<UINT>(types.size()), types.data());
        dialog->SetFileTypeIndex(m_ofn.nFilterIndex);
    }
    if (!m_defaultExtension.IsEmpty())
        dialog->SetDefaultExtension(m_defaultExtension);
    if (m_ofn.lpstrTitle)
        dialog->SetTitle(m_ofn.lpstrTitle);
    placeIn(*dialog, m_path, m_ofn.lpstrInitialDir);

    const HRESULT closed = dialog->Show(owner);
    shown = SUCCEEDED(closed) || closed == HRESULT_FROM_WIN32(ERROR_CANCELLED);
    IShellItem* chosen = nullptr;
    if (FAILED(closed) || FAILED(dialog->GetResult(&chosen)))
        return IDCANCEL;
    const ComPointer<IShellItem> item(chosen);
    WCHAR* text = nullptr;
    if (FAILED(item->GetDisplayName(SIGDN_FILESYSPATH, &text)))
        return IDCANCEL;
    const std::unique_ptr<WCHAR, FreeTaskMemory> path(text);
    m_path = path.get(); // cppcheck-suppress danglingLifetime ; it copies the text
    UINT type = 0;
    if (SUCCEEDED(dialog->GetFileTypeIndex(&type)))
        m_ofn.nFilterIndex = type;
    return IDOK;
}

INT_PTR CFileDialog::runCommonDialog(HWND owner)
{
    std::vector<WCHAR> filter;
    for (const CString& part : m_filter)
    {
        filter.insert(filter.end(), part.view().begin(), part.view().end());
        filter.push_back(L'\0');
    }
    filter.push_back(L'\0');
    std::vector<WCHAR> path(longestPath, L'\0');
    m_path.view().copy(path.data(), longestPath - 1);

    m_ofn.hwndOwner = owner;
    m_ofn.lpstrFilter = m_filter.empty() ? nullptr : filter.data();
    m_ofn.lpstrDefExt = m_defaultExtension.IsEmpty() ? nullptr : m_defaultExtension.GetString();
    m_ofn.lpstrFile = path.data();
    m_ofn.nMaxFile = longestPath;
    const auto show = m_bOpenFileDialog ? &::GetOpenFileNameW : &::GetSaveFileNameW;
    BOOL chosen = show(&m_ofn);
    // An invalid name is no reason not to ask for a better one.
    if (!chosen && ::CommDlgExtendedError() == FNERR_INVALIDFILENAME)
    {
        path.assign(longestPath, L'\0');
        chosen = show(&m_ofn);
    }
    m_ofn.lpstrFilter = nullptr;
    m_ofn.lpstrDefExt = nullptr;
    m_ofn.lpstrFile = nullptr;
    m_ofn.nMaxFile = 0;
    if (!chosen)
        return IDCANCEL;
    m_path = path.data();
    return IDOK;
}
