// What the user asked for: the command line taken apart by the table of commands.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "cli/command_table.h"

class Invocation {
public:
    // Takes the arguments behind the program's name apart. Options may stand anywhere, also in front of the
    // command; "--" ends them, and so does a lone "-" count as an argument. Throws a Failure that names no
    // value, since a secret may have been given where none belongs.
    static Invocation Parse(const std::vector<std::string>& words);

    // Null if only options of the program itself were given.
    [[nodiscard]] const CommandInfo* Command() const noexcept { return m_Command; }

    [[nodiscard]] bool Has(Option option) const noexcept { return !Of(option).empty(); }

    // The value given last; the option must be there.
    [[nodiscard]] const std::string& Value(Option option) const noexcept { return Of(option).back(); }
    [[nodiscard]] const std::vector<std::string>& Values(Option option) const noexcept { return Of(option); }

    [[nodiscard]] std::size_t CountArguments() const noexcept { return m_Arguments.size(); }
    [[nodiscard]] const std::string& Argument(std::size_t index) const noexcept { return m_Arguments[index]; }

    // Throws where an argument is missing or too many.
    void RequireArguments() const;

private:
    using Words = std::vector<std::string>;

    [[nodiscard]] const Words& Of(Option option) const noexcept {
        return m_Options[static_cast<std::size_t>(option)];
    }
    void TakeCommand(Words& words);
    void TakeWords(const Words& words);
    std::size_t TakeLong(const Words& words, std::size_t place);
    std::size_t TakeShort(const Words& words, std::size_t place);
    void Store(const OptionInfo& info, std::string value);
    [[nodiscard]] const OptionInfo* FindLong(std::string_view name) const noexcept;
    [[nodiscard]] const OptionInfo* FindShort(char letter) const noexcept;

    const CommandInfo* m_Command = nullptr;
    std::array<Words, static_cast<std::size_t>(Option::Count)> m_Options;
    Words m_Arguments;
};
