#include "cli/exit_code.h"

namespace {

constexpr ExitCodeInfo kExitCodes[] = {
    {ExitCode::Done, "done"},
    {ExitCode::Failed, "other failure"},
    {ExitCode::WrongUsage, "wrong usage"},
    {ExitCode::NotFound, "no such item or field, or an ambiguous one"},
    {ExitCode::FileFailed, "a file could not be opened, read, created or written"},
    {ExitCode::NotADatabase, "not a database"},
    {ExitCode::WrongPassword, "wrong master password or damaged file"},
    {ExitCode::FormatLimit, "refused by a limit of the file format"},
    {ExitCode::CheckFound, "a check found something"},
    {ExitCode::Interrupted, "interrupted"},
};

}  // namespace

std::span<const ExitCodeInfo> ExitCodes() {
    return kExitCodes;
}
