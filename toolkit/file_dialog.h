// tvFileDialog, a front to the system's dialogs for files and folders: the modern one, or the older ones
// where that is missing or not wanted.
#pragma once

#include <vector>

#include "foundation/tvstring.h"
#include "platform/types.h"
#include "toolkit/com.h"
#include "toolkit/common_dialog.h"

struct IFileDialog;
struct IShellItem;

class tvFileDialog : public tvCommonDlg {
public:
    tvFileDialog() = default;
    tvFileDialog(const tvFileDialog&) = delete;
    tvFileDialog& operator=(const tvFileDialog&) = delete;

    // --- Virtual operations ---

    // The modern dialog is set up and about to be shown; false ends it as if the user had.
    virtual bool OnBeforeShow(IFileDialog* dialog);
    // The user has chosen.
    virtual void OnAfterShow(IFileDialog* dialog);

    virtual ~tvFileDialog() = default;

    // True if the user chose, which in single mode gives exactly one path.
    bool Show();

    // The first chosen path, or an empty text.
    [[nodiscard]] tvstring GetPath() const;

    // Adds a filter, as "Texts" and "*.txt".
    void SetFilter(const tvstring& name, const tvstring& pattern, bool clearFirst);

    // What a name without an extension gets; a dot in front makes no difference.
    void SetDefaultExtension(const tvstring& text);

    // One backslash between the two, unless either has it.
    static tvstring JoinPath(const tvstring& folder, const tvstring& name);

    // A path up to its last backslash, with it or without; a root keeps it. Empty if there is none.
    static tvstring FolderOf(const tvstring& path, bool keepBackslash);

    // What an older dialog has left in its buffer: one path, or a folder and names, told by the unit in front
    // of the first name.
    static std::vector<tvstring> LegacyResults(std::u16string_view buffer, std::size_t fileOffset);

    // The texts of filters in the form that older dialogs take.
    [[nodiscard]] tvstring LegacyFilter() const;

    // The options of the modern dialog that follow from its own and the mode.
    [[nodiscard]] u32 ModernOptions(u32 old) const noexcept;
    // Those of the older dialog for files.
    [[nodiscard]] u32 LegacyOptions() const noexcept;

    // What the older dialog for folders calls: it starts with the path that `data` is, in the middle of its
    // owner, and stays when a folder that was typed is none.
    static int CALLBACK BrowseProc(HWND window, UINT message, LPARAM argument, LPARAM data);

private:
    tvcominit m_com;

public:
    struct Filter {
        tvstring name;
        tvstring pattern;
    };

    // --- Fields, in their order ---

    tvstring m_initialPath;  // a last part without a backslash behind it is the suggested name
    tvstring m_folder;       // of m_initialPath
    tvstring m_defaultExtension;
    std::vector<Filter> m_filters;
    i32 m_filterIndex = 0;
    tvstring m_title;
    bool m_save = false;
    bool m_pickFolder = false;
    bool m_multiSelect = false;
    bool m_legacyOnly = false;
    std::vector<tvstring> m_results;

private:
    // Each fills m_results. False if the user did not choose.
    bool ShowModern(IFileDialog& dialog, HWND owner);
    bool ShowLegacy(HWND owner);
    bool BrowseForFolder(HWND owner);
    bool AskForFile(HWND owner);

    [[nodiscard]] bool IsComplete() const noexcept;
    // The part of m_initialPath behind its folder.
    [[nodiscard]] tvstring SuggestedName() const;
    // From 1; 0 without filters.
    [[nodiscard]] UINT SystemFilterIndex() const noexcept;
    void TakeSystemFilterIndex(UINT index) noexcept;

    void SetTexts(IFileDialog& dialog) const;
    void SetFilters(IFileDialog& dialog) const;
    void SetPlace(IFileDialog& dialog) const;
    void SetOptions(IFileDialog& dialog) const;
    void TakeResults(IFileDialog& dialog);
    void AddResult(IShellItem& item);
};
