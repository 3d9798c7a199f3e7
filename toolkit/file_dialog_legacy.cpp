// The system's older dialogs for files and folders.
#include <algorithm>
#include <array>

#include "toolkit/com_pointer.h"
#include "toolkit/file_dialog.h"
#include "toolkit/rect.h"

namespace {

constexpr std::size_t kBuffer = 16380;  // units

void CenterOnOwner(HWND window) {
    RECT owner;
    RECT rect;
    if (GetWindowRect(GetWindow(window, GW_OWNER), &owner) == FALSE) return;
    if (GetWindowRect(window, &rect) == FALSE) return;
    const RECT place = CenteredBox(owner, Width(rect), Height(rect));
    SetWindowPos(window, nullptr, place.left, place.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

const wchar_t* TextOrNull(const tvstring& text) {
    return text.empty() ? nullptr : Wide(text.c_str());
}

}  // namespace

bool tvFileDialog::ShowLegacy(HWND owner) {
    return m_pickFolder ? BrowseForFolder(owner) : AskForFile(owner);
}

bool tvFileDialog::BrowseForFolder(HWND owner) {
    BROWSEINFOW info{};
    info.hwndOwner = owner;
    info.lpszTitle = Wide(m_title.c_str());
    info.ulFlags = BIF_RETURNONLYFSDIRS | BIF_VALIDATE | BIF_NEWDIALOGSTYLE;
    info.lpfn = &BrowseProc;
    info.lParam = reinterpret_cast<LPARAM>(m_initialPath.c_str());
    const tvItemList chosen(SHBrowseForFolderW(&info));
    if (!chosen) return false;
    std::vector<char16_t> path(kBuffer);
    if (SHGetPathFromIDListW(chosen.Get(), Wide(path.data())) == FALSE) return false;
    m_results.emplace_back(path.data());
    return true;
}

int CALLBACK tvFileDialog::BrowseProc(HWND window, UINT message, LPARAM /*argument*/, LPARAM data) {
    switch (message) {
        case BFFM_INITIALIZED:
            SendMessageW(window, BFFM_SETSELECTIONW, TRUE, data);
            CenterOnOwner(window);
            return 0;
        case BFFM_VALIDATEFAILED:
            return 1;  // the dialog stays
        default:
            return 0;
    }
}

u32 tvFileDialog::LegacyOptions() const noexcept {
    u32 options = OFN_EXPLORER | OFN_LONGNAMES | OFN_HIDEREADONLY;
    options |= m_save ? OFN_OVERWRITEPROMPT : OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST;
    if (!m_save && m_multiSelect) options |= OFN_ALLOWMULTISELECT;
    return options;
}

bool tvFileDialog::AskForFile(HWND owner) {
    std::vector<char16_t> buffer(kBuffer);
    const tvstring name = SuggestedName();
    if (name.size() < buffer.size()) std::copy(name.begin(), name.end(), buffer.begin());
    const tvstring filter = LegacyFilter();
    OPENFILENAMEW question{};
    question.lStructSize = sizeof question;
    question.hwndOwner = owner;
    question.lpstrFilter = TextOrNull(filter);
    question.nFilterIndex = SystemFilterIndex();
    question.lpstrFile = Wide(buffer.data());
    question.nMaxFile = static_cast<DWORD>(buffer.size());
    question.lpstrInitialDir = TextOrNull(m_folder);
    question.lpstrTitle = TextOrNull(m_title);
    question.lpstrDefExt = TextOrNull(m_defaultExtension);
    question.Flags = LegacyOptions();
    CenterNext();
    const BOOL chosen = m_save ? GetSaveFileNameW(&question) : GetOpenFileNameW(&question);
    EndCenter();
    if (chosen == FALSE) return false;
    TakeSystemFilterIndex(question.nFilterIndex);
    m_results = LegacyResults({buffer.data(), buffer.size()}, question.nFileOffset);
    return true;
}

std::vector<tvstring> tvFileDialog::LegacyResults(std::u16string_view buffer, std::size_t fileOffset) {
    const auto textAt = [buffer](std::size_t place) {
        const std::u16string_view rest = buffer.substr(std::min(place, buffer.size()));
        return tvstring(rest.substr(0, rest.find(u'\0')));
    };
    std::vector<tvstring> results;
    const tvstring first = textAt(0);
    if (first.empty()) return results;
    if (fileOffset == 0 || fileOffset > buffer.size() || buffer[fileOffset - 1] != 0) {
        results.push_back(first);
        return results;
    }
    std::size_t place = fileOffset;
    for (tvstring name = textAt(place); !name.empty(); name = textAt(place)) {
        results.push_back(JoinPath(first, name));
        place += name.size() + 1;
    }
    return results;
}

tvstring tvFileDialog::LegacyFilter() const {
    tvstring text;
    for (const Filter& filter : m_filters) {
        text += filter.name.view();
        text.append(1, u'\0');
        text += filter.pattern.view();
        text.append(1, u'\0');
    }
    return text;
}
