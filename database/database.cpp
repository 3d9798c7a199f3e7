#include "database/database.h"

#include <algorithm>

#include "database/clipboard.h"
#include "foundation/path.h"
#include "platform/memory.h"

namespace {

constinit VMRD_DB* g_Current = nullptr;

}  // namespace

VMRD_DB::VMRD_DB() : m_Undo(this) {
    RegisterItemsFormat();
    Reset();
}

VMRD_DB::~VMRD_DB() {
    Close();
    if (g_Current == this) g_Current = nullptr;
}

// What happens to a database that is not current is not recorded; older records would not fit it any more.
void VMRD_DB::MakeCurrent() noexcept {
    if (g_Current != nullptr && g_Current != this) g_Current->m_Undo.Clear();
    g_Current = this;
}

VMRD_DB* VMRD_DB::Current() noexcept {
    return g_Current;
}

void VMRD_DB::Reset() {
    m_Name.clear();
    m_Display.clear();
    m_Path.clear();
    platform::WipeMemory(m_PwdHash, sizeof m_PwdHash);
    m_Changed = false;
    m_Opened = false;
    Clear();
    m_Undo.Clear();
}

void VMRD_DB::Close() {
    Reset();
    m_File.Close();
}

void VMRD_DB::Changed() {
    m_Changed = true;
    if (bAutoSave) Save();
}

const tvstring& VMRD_DB::DisplayName() {
    if (m_Display.empty()) m_Display = m_Name;
    if (m_Display.empty() && !m_Path.empty()) m_Display = FileNameOf(m_Path);
    if (m_Display.empty()) m_Display = u" ";  // makes the cache count as filled
    return m_Display;
}

bool VMRD_DB::HasMasterPassword() const noexcept {
    return std::any_of(std::begin(m_PwdHash), std::end(m_PwdHash), [](u8 byte) { return byte != 0; });
}
