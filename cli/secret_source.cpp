#include "cli/secret_source.h"

#include "cli/failure.h"
#include "cli/text_argument.h"
#include "cli/utf8.h"
#include "foundation/conversion.h"
#include "foundation/language.h"
#include "foundation/secret_bytes.h"

namespace {

constexpr const char* kMaster = "the master password";
constexpr const char* kNewMaster = "the new master password";
constexpr std::size_t kLongestTyped = 4096;

tvstring TextOf(const tvstringA& bytes, const std::string& what) {
    if (!IsUtf8(bytes)) throw Failure(ExitCode::WrongUsage, what + " is not valid UTF-8");
    return FromUtf8(bytes);
}

tvstring NotEmpty(tvstring password, const char* what) {
    if (password.empty()) throw Failure(ExitCode::WrongUsage, std::string(what) + " is empty");
    return password;
}

tvstring FirstLine(InputReader& reader, const char* what) {
    tvstringA line;
    if (!reader.ReadLine(line)) {
        throw Failure(ExitCode::WrongUsage,
                      std::string("there is no line for ") + what + " in " + reader.What());
    }
    return NotEmpty(TextOf(line, what), what);
}

tvstring Rest(InputReader& reader, const char* what) {
    tvstringA bytes;
    reader.ReadRest(bytes);
    const std::size_t lineEnd = bytes.ends_with("\r\n") ? 2 : bytes.ends_with("\n") ? 1 : 0;
    bytes.resize(bytes.size() - lineEnd);
    return TextOf(bytes, what);
}

void RefuseBoth(const Invocation& invocation, Option one, Option other) {
    if (!invocation.Has(one) || !invocation.Has(other)) return;
    throw Failure(ExitCode::WrongUsage, std::string("--") + InfoOf(one).name + " and --" +
                                            InfoOf(other).name + " exclude each other");
}

}  // namespace

SecretSource::SecretSource(const Invocation& invocation) : m_Invocation(invocation) {
    RefuseBoth(invocation, Option::PasswordStdin, Option::PasswordFile);
    RefuseBoth(invocation, Option::SecretStdin, Option::SecretFile);
    RefuseBoth(invocation, Option::ValueStdin, Option::ValueFile);
}

tvstring SecretSource::Master(const std::string& file) {
    if (m_Invocation.Has(Option::PasswordStdin)) return FirstLine(m_Input, kMaster);
    if (m_Invocation.Has(Option::PasswordFile)) {
        InputReader reader(m_Invocation.Value(Option::PasswordFile));
        return FirstLine(reader, kMaster);
    }
    return NotEmpty(Typed("Master password of " + file + ": "), kMaster);
}

tvstring SecretSource::OnlyMaster(const std::string& file) {
    if (m_Invocation.Has(Option::PasswordStdin) || m_Invocation.Has(Option::PasswordFile)) {
        return Master(file);
    }
    return NotEmpty(TypedTwice("New master password of " + file + ": "), kNewMaster);
}

tvstring SecretSource::NewMaster(const std::string& file) {
    if (m_Invocation.Has(Option::NewPasswordFile)) {
        InputReader reader(m_Invocation.Value(Option::NewPasswordFile));
        return FirstLine(reader, kNewMaster);
    }
    if (m_Invocation.Has(Option::PasswordStdin)) return FirstLine(m_Input, kNewMaster);
    return NotEmpty(TypedTwice("New master password of " + file + ": "), kNewMaster);
}

tvstring FileText(const std::string& path, const char* what) {
    InputReader reader(path);
    return Rest(reader, what);
}

tvstring SecretSource::InputText(const char* what) {
    return Rest(m_Input, what);
}

tvstring SecretSource::TypedTwice(const std::string& prompt) {
    tvstring typed = Typed(prompt);
    if (Typed("The same again: ") == typed) return typed;
    throw Failure(ExitCode::Failed, ForMessage(LangText(u"file", u"err_pwdnotmatch")));
}

tvstring SecretSource::Typed(const std::string& prompt) {
    if (m_Invocation.Has(Option::NoInput)) {
        throw Failure(ExitCode::WrongUsage,
                      "a password is missing, and --no-input forbids to ask for it; there are "
                      "--password-stdin and --password-file");
    }
    SecretBytes<kLongestTyped> answer;
    auto* bytes = reinterpret_cast<char*>(answer.Data());
    std::size_t length = 0;
    switch (platform::PromptSecret(prompt, bytes, kLongestTyped, length)) {
        case platform::PromptResult::Ok:
            break;
        case platform::PromptResult::Interrupted:
            throw Failure(ExitCode::Interrupted, "interrupted");
        case platform::PromptResult::TooLong:
            throw Failure(ExitCode::WrongUsage, "the password is too long to be typed");
        case platform::PromptResult::NoTerminal:
            throw Failure(ExitCode::WrongUsage,
                          "there is no terminal to ask for a password; there are --password-stdin and "
                          "--password-file");
    }
    if (!IsUtf8({bytes, length})) throw Failure(ExitCode::WrongUsage, "the password is not valid UTF-8");
    return FromUtf8({bytes, length});
}
