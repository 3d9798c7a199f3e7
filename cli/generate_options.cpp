#include "cli/generate_options.h"

#include <limits>

#include "cli/commands.h"
#include "cli/failure.h"
#include "cli/item_json.h"
#include "cli/text_argument.h"

namespace {

struct ClassOption {
    Option option;
    PassGenClass index;
};
constexpr ClassOption kClassOptions[] = {
    {Option::Upper, PASSGEN_UPPER},
    {Option::Lower, PASSGEN_LOWER},
    {Option::Digits, PASSGEN_DIGITS},
    {Option::Other, PASSGEN_OTHER},
};
constexpr Option kLengthOptions[] = {Option::Min, Option::Max};

constexpr u32 kLargestNumber = std::numeric_limits<i32>::max();

i32 LengthOption(const Invocation& invocation, Option option, i32 otherwise) {
    if (!invocation.Has(option)) return otherwise;
    return static_cast<i32>(NumberArgument(invocation.Value(option), "a length", 0, kLargestNumber));
}

// The classes that are named; if none is, those of the request.
void ReadClasses(const Invocation& invocation, PassGenRequest& request) {
    std::array<u8, kPassGenClasses> use{};
    bool anyNamed = false;
    for (const ClassOption& choice : kClassOptions) {
        if (!invocation.Has(choice.option)) continue;
        use[choice.index] = 1;
        anyNamed = true;
    }
    if (anyNamed) request.use = use;
}

void WritePasswords(const PassGenRequest& request, u32 count, bool asJson, ByteSink& out) {
    JsonWriter json(out);
    if (asJson) {
        json.OpenObject();
        WriteVersion(json);
        json.Key("passwords").OpenArray();
    }
    for (u32 i = 0; i < count; ++i) {
        const tvstring password = GeneratePassword(request);
        if (asJson) {
            json.Text(password);
        } else {
            out.Text(password);
            out.Byte('\n');
        }
    }
    if (asJson) {
        json.CloseArray().CloseObject();
        out.Byte('\n');
    }
}

}  // namespace

PassGenRequest ReadGenerateOptions(const Invocation& invocation) {
    PassGenRequest request;
    const i32 usualMin = request.minLength;
    const i32 usualMax = request.maxLength;
    request.minLength = LengthOption(invocation, Option::Min, usualMin);
    request.maxLength = LengthOption(invocation, Option::Max, usualMax);
    // What was not given gives way.
    if (!invocation.Has(Option::Min)) request.minLength = std::min(request.minLength, request.maxLength);
    ReadClasses(invocation, request);
    return request;
}

void RequireGenerateAlone(const Invocation& invocation, std::span<const Option> others) {
    const auto refuse = [&invocation](Option option, const char* text) {
        if (invocation.Has(option)) {
            throw Failure(ExitCode::WrongUsage, std::string("--").append(InfoOf(option).name).append(text));
        }
    };
    if (invocation.Has(Option::Generate)) {
        for (const Option other : others)
            refuse(other, " and --generate exclude each other");
        return;
    }
    for (const ClassOption& choice : kClassOptions)
        refuse(choice.option, " is of use with --generate alone");
    for (const Option option : kLengthOptions)
        refuse(option, " is of use with --generate alone");
}

ExitCode RunGenerate(const Invocation& invocation) {
    const PassGenRequest request = ReadGenerateOptions(invocation);
    const u32 count = invocation.Has(Option::HowMany)
                          ? NumberArgument(invocation.Value(Option::HowMany), "the count", 1, kLargestNumber)
                          : 1;
    OutputSink out;
    WritePasswords(request, count, invocation.Has(Option::Json), out);
    out.Finish();
    return ExitCode::Done;
}
