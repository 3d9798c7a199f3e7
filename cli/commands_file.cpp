#include <filesystem>

#include "cli/commands.h"
#include "cli/failure.h"
#include "cli/session.h"
#include "cli/text_argument.h"
#include "database/container.h"
#include "database/export.h"
#include "foundation/path.h"
#include "foundation/textops.h"

namespace {

// True if both arguments lead to one file, by whatever names.
bool IsSameFile(const std::string& a, const std::string& b) {
    const auto pathOf = [](const std::string& argument) {
        return std::filesystem::path(std::u8string(argument.begin(), argument.end()));
    };
    std::error_code ignored;
    return std::filesystem::equivalent(pathOf(a), pathOf(b), ignored);
}

}  // namespace

ExitCode RunNew(const Invocation& invocation) {
    constexpr const char* kWhat = "the database's name";
    const std::string& path = invocation.Argument(0);
    if (!invocation.Has(Option::Name)) throw Failure(ExitCode::WrongUsage, "--name is missing");
    const tvstring name = StoredArgument(invocation.Value(Option::Name), kWhat);
    if (name.empty()) throw Failure(ExitCode::WrongUsage, std::string(kWhat) + " is empty");
    Session session(invocation);
    session.RequireFree(path);
    const tvstring password = session.Secrets().OnlyMaster(path);
    session.Database().New(name);
    session.SaveAs(path, password);
    return ExitCode::Done;
}

ExitCode RunPasswd(const Invocation& invocation) {
    const std::string& path = invocation.Argument(0);
    Session session(invocation);
    session.Open(path, Purpose::Change);
    session.Database().SetMasterPassword(session.Secrets().NewMaster(path));
    session.Save();
    return ExitCode::Done;
}

ExitCode RunExport(const Invocation& invocation) {
    const std::string& out = invocation.Argument(1);
    if (IsSameFile(invocation.Argument(0), out)) {
        throw Failure(ExitCode::FileFailed, "the database cannot be overwritten by what is exported from it");
    }
    Session session(invocation);
    session.Open(invocation.Argument(0), Purpose::Read);
    const tvstring path = PathArgument(out);
    if (!session.Database().Export(path, IsHtmlPath(path))) throw Failure::OfFile("cannot write " + out);
    return ExitCode::Done;
}

ExitCode RunConvert(const Invocation& invocation) {
    const std::string& oldPath = invocation.Argument(0);
    const std::string& newPath = invocation.Argument(1);
    Session session(invocation);
    session.RequireFree(newPath);
    session.Open(oldPath, Purpose::Read);
    if (!session.IsOldFormat()) {
        throw Failure(ExitCode::Failed, oldPath + " has the current format already");
    }
    session.SaveAs(newPath, session.Secrets().NewMaster(newPath));
    return ExitCode::Done;
}
