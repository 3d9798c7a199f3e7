#include "cli/invocation.h"

#include <algorithm>

#include "cli/failure.h"

namespace {

constexpr std::string_view kEndOfOptions = "--";

Failure Usage(std::string message, const CommandInfo* command) {
    const std::string name = command == nullptr ? std::string() : std::string(command->name) + " ";
    return {ExitCode::WrongUsage, std::move(message) + " (see vmr " + name + "--help)"};
}

bool LooksLikeOption(const std::string& word) {
    return word.size() > 1 && word[0] == '-';
}

const CommandInfo* FindCommand(std::string_view name) {
    for (const CommandInfo& command : Commands()) {
        if (name == command.name) return &command;
    }
    return nullptr;
}

// The first word of a command of two.
bool IsFamily(std::string_view word) {
    const std::string start = std::string(word) + " ";
    return std::any_of(Commands().begin(), Commands().end(), [&start](const CommandInfo& command) {
        return std::string_view(command.name).starts_with(start);
    });
}

// "check, dump, text"
std::string MembersOf(std::string_view family) {
    std::string members;
    for (const CommandInfo& command : Commands()) {
        const std::string_view name = command.name;
        if (!name.starts_with(std::string(family) + " ")) continue;
        members.append(members.empty() ? "" : ", ").append(name.substr(family.size() + 1));
    }
    return members;
}

// The place of the first word that is no option and no value of one, or the number of words.
std::size_t FindArgument(const std::vector<std::string>& words, std::size_t from) {
    for (std::size_t i = from; i < words.size(); ++i) {
        if (!LooksLikeOption(words[i])) return i;
        for (const Option option : CommonOptions()) {
            const OptionInfo& info = InfoOf(option);
            if (info.value != nullptr && words[i] == "--" + std::string(info.name)) ++i;
        }
    }
    return words.size();
}

const OptionInfo* FindAmong(std::span<const Option> options, std::string_view name, char letter) {
    for (const Option option : options) {
        const OptionInfo& info = InfoOf(option);
        if (letter != 0 ? info.letter == letter : name == info.name) return &info;
    }
    return nullptr;
}

}  // namespace

Invocation Invocation::Parse(const std::vector<std::string>& words) {
    Invocation invocation;
    Words rest = words;
    invocation.TakeCommand(rest);
    invocation.TakeWords(rest);
    return invocation;
}

// Takes the command's word or words out.
void Invocation::TakeCommand(Words& words) {
    const std::size_t place = FindArgument(words, 0);
    if (place == words.size()) return;
    std::string name = words[place];
    words.erase(words.begin() + static_cast<std::ptrdiff_t>(place));
    if (IsFamily(name)) {
        const std::size_t second = FindArgument(words, place);
        if (second == words.size())
            throw Usage("behind '" + name + "' stands one of " + MembersOf(name), nullptr);
        name += " " + words[second];
        words.erase(words.begin() + static_cast<std::ptrdiff_t>(second));
    }
    m_Command = FindCommand(name);
    if (m_Command == nullptr) throw Usage("there is no command '" + name + "'", nullptr);
}

void Invocation::TakeWords(const Words& words) {
    for (std::size_t i = 0; i < words.size();) {
        if (words[i] == kEndOfOptions) {
            m_Arguments.insert(m_Arguments.end(), words.begin() + static_cast<std::ptrdiff_t>(i) + 1,
                               words.end());
            return;
        }
        if (!LooksLikeOption(words[i])) {
            m_Arguments.push_back(words[i++]);
        } else if (words[i].starts_with(kEndOfOptions)) {
            i = TakeLong(words, i);
        } else {
            i = TakeShort(words, i);
        }
    }
}

// "--name", "--name value" or "--name=value"; returns the place behind it.
std::size_t Invocation::TakeLong(const Words& words, std::size_t place) {
    const std::string& word = words[place];
    const std::size_t equals = word.find('=');
    const std::string name = word.substr(2, equals == std::string::npos ? equals : equals - 2);
    const OptionInfo* info = FindLong(name);
    if (info == nullptr) throw Usage("there is no option --" + name, m_Command);
    if (info->value == nullptr) {
        if (equals != std::string::npos) throw Usage("--" + name + " takes no value", m_Command);
        Store(*info, {});
        return place + 1;
    }
    if (equals != std::string::npos) {
        Store(*info, word.substr(equals + 1));
        return place + 1;
    }
    if (place + 1 == words.size()) throw Usage("--" + name + " needs a value", m_Command);
    Store(*info, words[place + 1]);
    return place + 2;
}

// "-n", or several letters; none of the short options has a value.
std::size_t Invocation::TakeShort(const Words& words, std::size_t place) {
    for (const char letter : words[place].substr(1)) {
        const OptionInfo* info = FindShort(letter);
        if (info == nullptr) {
            throw Usage("there is no such short option; write -- in front of an argument that starts with -",
                        m_Command);
        }
        Store(*info, {});
    }
    return place + 1;
}

void Invocation::Store(const OptionInfo& info, std::string value) {
    Words& values = m_Options[static_cast<std::size_t>(info.id)];
    if (info.value != nullptr && info.times == OptionTimes::Once && !values.empty()) {
        throw Usage("--" + std::string(info.name) + " is given twice", m_Command);
    }
    values.push_back(std::move(value));
}

const OptionInfo* Invocation::FindLong(std::string_view name) const noexcept {
    if (const OptionInfo* info = FindAmong(CommonOptions(), name, 0)) return info;
    return FindAmong(m_Command == nullptr ? ProgramOptions() : m_Command->options, name, 0);
}

const OptionInfo* Invocation::FindShort(char letter) const noexcept {
    if (const OptionInfo* info = FindAmong(CommonOptions(), {}, letter)) return info;
    return FindAmong(m_Command == nullptr ? ProgramOptions() : m_Command->options, {}, letter);
}

void Invocation::RequireArguments() const {
    std::size_t least = 0;
    bool endless = false;
    for (const ArgumentInfo& info : m_Command->arguments) {
        const bool needed = info.count == ArgumentCount::One || info.count == ArgumentCount::OneOrMore;
        if (needed && m_Arguments.size() <= least) {
            throw Usage("the argument " + std::string(info.name) + " is missing", m_Command);
        }
        if (needed) ++least;
        endless = endless || info.count == ArgumentCount::OneOrMore || info.count == ArgumentCount::Any;
    }
    if (!endless && m_Arguments.size() > m_Command->arguments.size()) {
        throw Usage("there are too many arguments", m_Command);
    }
}
