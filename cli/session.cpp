#include "cli/session.h"

#include "cli/failure.h"
#include "cli/text_argument.h"
#include "database/container.h"
#include "database/record.h"
#include "foundation/path.h"
#include "platform/error.h"
#include "platform/terminal.h"

namespace {

// A file of 2 GiB or more is not opened again.
constexpr u64 kFileSizeLimit = 0x8000'0000;
constexpr std::size_t kCipherBlock = 16;

Failure WrongPassword(const std::string& path) {
    return {ExitCode::WrongPassword, "wrong master password, or " + path + " is damaged"};
}

Failure CannotOpen(const std::string& path) {
    if (platform::LastError() == platform::kErrorInvalidData) {
        return {ExitCode::NotADatabase, path + " is not a database"};
    }
    return Failure::OfFile("cannot open " + path);
}

// The size of the records that Save writes.
u64 RecordsSize(const VMRD_DB& database) {
    u64 size = database.m_Name.empty() ? 0 : RecordSize(database.m_Name);
    for (const ItemElement* item = database.m_Head; item != nullptr; item = item->m_Next) {
        size += RecordSize(item->m_Name) + kDateRecordSize;
        for (const EntryElement* entry = item->m_Head; entry != nullptr; entry = entry->m_Next)
            size += RecordSize(entry->m_Text);
    }
    return size;
}

struct Probe {
    bool isOld = false;
    u64 fileSize = 0;
    u32 plainSize = 0;  // as the file says; 0 for the old format
};

u32 ReadPlainSize(const tvhandle& file) {
    constexpr u64 kOffset = 4;
    u8 bytes[4] = {};
    u32 done = 0;
    if (!platform::SeekNativeFile(file.Get(), kOffset) ||
        !platform::ReadNativeFile(file.Get(), bytes, sizeof bytes, done) || done != sizeof bytes) {
        return 0;
    }
    return bytes[0] | u32{bytes[1]} << 8 | u32{bytes[2]} << 16 | u32{bytes[3]} << 24;
}

u64 SizeOf(const tvstring& path) {
    const tvhandle file(
        platform::OpenNativeFile(path.c_str(), platform::FileAccess::Read, platform::FileSharing::ReadWrite));
    u64 size = 0;
    return file && platform::NativeFileSize(file.Get(), size) ? size : 0;
}

Probe ProbeFile(const std::string& path) {
    tvhandle file;
    const tvstring corePath = PathArgument(path);
    const i32 result = OpenDatabaseFile(file, corePath, /*forWrite=*/false);
    if (result == kNotDatabase) throw Failure(ExitCode::NotADatabase, path + " is not a database");
    if (result == kOldDatabase) return {true, SizeOf(corePath), 0};
    if (result < 1) throw CannotOpen(path);
    return {false, static_cast<u64>(result), ReadPlainSize(file)};
}

}  // namespace

Session::Session(const Invocation& invocation) : m_Invocation(invocation), m_Secrets(invocation) {
    m_Database.MakeCurrent();
}

void Session::Open(const std::string& path, Purpose purpose) {
    const Probe probe = ProbeFile(path);
    m_IsOld = probe.isOld;
    m_FileSize = probe.fileSize;
    m_PlainSize = probe.plainSize;
    if (m_IsOld && purpose == Purpose::Change) {
        throw Failure(ExitCode::FormatLimit,
                      path + " has the old format, which is only read; vmr convert makes a current database");
    }
    const tvstring password = m_Secrets.Master(path);
    if (m_Database.Open(PathArgument(path), password)) return;
    if (m_IsOld || platform::LastError() == platform::kErrorNone) throw WrongPassword(path);
    throw CannotOpen(path);
}

void Session::RequireFree(const std::string& path) const {
    if (path.empty()) throw Failure(ExitCode::WrongUsage, "the path of the database to make is empty");
    if (m_Invocation.Has(Option::Force) || !platform::PathExists(PathArgument(path).c_str())) return;
    throw Failure(ExitCode::FileFailed, path + " exists; --force overwrites it");
}

void Session::SaveAs(const std::string& path, const tvstring& password) {
    m_Database.SetPath(PathArgument(path));
    m_Database.SetMasterPassword(password);
    Save();
}

void Session::Save() {
    if (!m_Database.m_Changed) return;
    const u64 size = RecordsSize(m_Database);
    if (size == 0) {
        throw Failure(ExitCode::FormatLimit, "a database with neither a name nor an item cannot be saved");
    }
    if (kHeaderSize + size + kCipherBlock >= kFileSizeLimit) {
        throw Failure(ExitCode::FormatLimit, "the database would be larger than 2 GiB");
    }
    const platform::InterruptGuard guard;
    if (m_Database.Save()) return;
    throw Failure::OfFile("cannot write " +
                          platform::PathForMessage(std::u16string(m_Database.m_Path.view())));
}

u64 Session::PlainSize() const {
    return m_IsOld ? RecordsSize(m_Database) : m_PlainSize;
}
