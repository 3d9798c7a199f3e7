// A stand-in for the system's modern file dialog, which notes what it is asked and answers as it is told.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "foundation/tvstring.h"
#include "toolkit/com_pointer.h"

// What the interfaces here have in common. Nothing is freed when the last reference goes: objects belong to
// the test.
class FakeReferences {
public:
    // As many as the test began with: none that the dialog has kept.
    [[nodiscard]] bool AllGivenBack() const { return m_References == 0; }

protected:
    ULONG m_References = 0;
};

class FakeItem final : public IShellItem, public FakeReferences {
public:
    // With no path if `path` is null.
    explicit FakeItem(const char16_t* path) : m_Path(path) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** found) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_References; }
    ULONG STDMETHODCALLTYPE Release() override { return --m_References; }
    HRESULT STDMETHODCALLTYPE BindToHandler(IBindCtx*, REFGUID, REFIID, void**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetParent(IShellItem**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetDisplayName(SIGDN form, LPWSTR* name) override;
    HRESULT STDMETHODCALLTYPE GetAttributes(SFGAOF, SFGAOF*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Compare(IShellItem*, SICHINTF, int*) override { return E_NOTIMPL; }

private:
    const char16_t* m_Path;
};

class FakeItems final : public IShellItemArray, public FakeReferences {
public:
    std::vector<FakeItem*> m_items;  // null: one that cannot be had

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** found) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_References; }
    ULONG STDMETHODCALLTYPE Release() override { return --m_References; }
    HRESULT STDMETHODCALLTYPE BindToHandler(IBindCtx*, REFGUID, REFIID, void**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetPropertyStore(GETPROPERTYSTOREFLAGS, REFIID, void**) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetPropertyDescriptionList(REFPROPERTYKEY, REFIID, void**) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetAttributes(SIATTRIBFLAGS, SFGAOF, SFGAOF*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetCount(DWORD* count) override;
    HRESULT STDMETHODCALLTYPE GetItemAt(DWORD index, IShellItem** item) override;
    HRESULT STDMETHODCALLTYPE EnumItems(IEnumShellItems**) override { return E_NOTIMPL; }
};

class FakeFileDialog final : public IFileOpenDialog, public FakeReferences {
public:
    // --- What it is to answer ---

    bool m_isOpen = true;  // it has the interface of dialogs that open files
    bool m_isCancelled = false;
    DWORD m_oldOptions = 0;
    UINT m_chosenType = 1;
    FakeItems* m_results = nullptr;  // null: they cannot be had
    FakeItem* m_result = nullptr;

    // --- What it was asked, in order ---

    std::vector<std::string> m_calls;
    HWND m_owner = nullptr;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** found) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_References; }
    ULONG STDMETHODCALLTYPE Release() override { return --m_References; }
    HRESULT STDMETHODCALLTYPE Show(HWND owner) override;
    HRESULT STDMETHODCALLTYPE SetFileTypes(UINT count, const COMDLG_FILTERSPEC* types) override;
    HRESULT STDMETHODCALLTYPE SetFileTypeIndex(UINT index) override;
    HRESULT STDMETHODCALLTYPE GetFileTypeIndex(UINT* index) override;
    HRESULT STDMETHODCALLTYPE Advise(IFileDialogEvents*, DWORD*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetOptions(FILEOPENDIALOGOPTIONS options) override;
    HRESULT STDMETHODCALLTYPE GetOptions(FILEOPENDIALOGOPTIONS* options) override;
    HRESULT STDMETHODCALLTYPE SetDefaultFolder(IShellItem*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetFolder(IShellItem* folder) override;
    HRESULT STDMETHODCALLTYPE GetFolder(IShellItem**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetCurrentSelection(IShellItem**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetFileName(LPCWSTR name) override;
    HRESULT STDMETHODCALLTYPE GetFileName(LPWSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetTitle(LPCWSTR title) override;
    HRESULT STDMETHODCALLTYPE SetOkButtonLabel(LPCWSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetFileNameLabel(LPCWSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetResult(IShellItem** item) override;
    HRESULT STDMETHODCALLTYPE AddPlace(IShellItem*, FDAP) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetDefaultExtension(LPCWSTR extension) override;
    HRESULT STDMETHODCALLTYPE Close(HRESULT) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetClientGuid(REFGUID) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE ClearClientData() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetFilter(IShellItemFilter*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetResults(IShellItemArray** items) override;
    HRESULT STDMETHODCALLTYPE GetSelectedItems(IShellItemArray**) override { return E_NOTIMPL; }
};

// While it lives, objects of this class are the one that it was given; with none, they cannot be made.
class ModernDialogClass final : public IClassFactory {
public:
    ModernDialogClass(REFCLSID id, IFileDialog* dialog);
    ~ModernDialogClass();
    ModernDialogClass(const ModernDialogClass&) = delete;
    ModernDialogClass& operator=(const ModernDialogClass&) = delete;

    int m_asked = 0;

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID id, void** made) override;
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** found) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }

private:
    IFileDialog* m_Dialog;
    DWORD m_Registration = 0;
};
