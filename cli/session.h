// One run's work on one database file.
#pragma once

#include <string>

#include "cli/invocation.h"
#include "cli/secret_source.h"
#include "database/database.h"

enum class Purpose { Read, Change };

class Session {
public:
    explicit Session(const Invocation& invocation);
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    // Opens the database with the master password asked for. What the file is comes first, so nobody is asked
    // for the password of a file that cannot be opened. Throws a Failure, also for a database of the old
    // format where it is to be changed: that is only read.
    void Open(const std::string& path, Purpose purpose);

    // Throws a Failure if something stands at the path and --force was not given.
    void RequireFree(const std::string& path) const;

    // Writes a database that was made in memory to a path, with a master password.
    void SaveAs(const std::string& path, const tvstring& password);

    // Writes the database, if it was changed, to its file. Throws a Failure; what the format cannot hold is
    // refused before the file is touched.
    void Save();

    [[nodiscard]] VMRD_DB& Database() noexcept { return m_Database; }
    [[nodiscard]] SecretSource& Secrets() noexcept { return m_Secrets; }
    [[nodiscard]] bool IsOldFormat() const noexcept { return m_IsOld; }

    // The size of the file that was opened, and of its records before encryption (of the records that the
    // current format would have, if it is an old one).
    [[nodiscard]] u64 FileSize() const noexcept { return m_FileSize; }
    [[nodiscard]] u64 PlainSize() const;

private:
    const Invocation& m_Invocation;
    SecretSource m_Secrets;
    VMRD_DB m_Database;
    bool m_IsOld = false;
    u64 m_FileSize = 0;
    u32 m_PlainSize = 0;
};
