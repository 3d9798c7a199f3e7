#include "cli/program.h"

#include <charconv>

#include "cli/byte_sink.h"
#include "cli/failure.h"
#include "cli/help.h"
#include "cli/invocation.h"
#include "platform/text.h"

namespace {

void Print(std::string_view text) {
    OutputSink out;
    out.Bytes(text);
    out.Finish();
}

ExitCode RunWithoutCommand(const Invocation& invocation) {
    if (invocation.Has(Option::Help)) {
        Print(ProgramHelp());
    } else if (invocation.Has(Option::Version)) {
        Print(ProgramVersion() + "\n");
    } else if (invocation.Has(Option::ExitCodes)) {
        Print(ExitCodeList());
    } else if (invocation.Has(Option::Manual)) {
        Print(ManualPage());
    } else {
        throw Failure(ExitCode::WrongUsage, "no command is given (see vmr --help)");
    }
    return ExitCode::Done;
}

void ChooseCodePage(const std::string& value) {
    u32 codePage = 0;
    const char* end = value.data() + value.size();
    const auto result = std::from_chars(value.data(), end, codePage);
    const bool isNumber = result.ec == std::errc() && result.ptr == end && codePage != 0;
    if (!isNumber || !platform::UseAnsiCodePage(codePage)) {
        throw Failure(ExitCode::WrongUsage, "there is no code page '" + value + "'");
    }
}

ExitCode Run(const std::vector<std::string>& arguments) {
    const Invocation invocation = Invocation::Parse(arguments);
    const CommandInfo* command = invocation.Command();
    if (command == nullptr) return RunWithoutCommand(invocation);
    if (invocation.Has(Option::Help)) {
        Print(CommandHelp(*command));
        return ExitCode::Done;
    }
    invocation.RequireArguments();
    if (invocation.Has(Option::CodePage)) ChooseCodePage(invocation.Value(Option::CodePage));
    return command->run(invocation);
}

}  // namespace

ExitCode RunProgram(const std::vector<std::string>& arguments) noexcept {
    try {
        return Run(arguments);
    } catch (const Failure& failure) {
        PrintMessage(failure.what());
        return failure.Code();
    } catch (const std::bad_alloc&) {
        PrintMessage("not enough memory");
    } catch (const std::exception& error) {
        PrintMessage(error.what());
    }
    return ExitCode::Failed;
}
