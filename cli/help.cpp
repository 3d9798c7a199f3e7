#include "cli/help.h"

#include <algorithm>

#include "foundation/product.h"

namespace {

constexpr std::size_t kWidth = 79;
constexpr std::size_t kIndent = 2;

// Puts a text behind what stands on the line, wrapped, each line of it starting at `column`.
void AppendWrapped(std::string& out, std::string_view text, std::size_t column) {
    std::size_t used = out.size() - (out.rfind('\n') + 1);
    if (used > 0 && used >= column) {
        out += '\n';
        used = 0;
    }
    out.append(column - used, ' ');
    used = column;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(' '), text.size());
        if (used > column && used + 1 + end > kWidth) {
            out.append("\n").append(column, ' ');
            used = column;
        } else if (used > column) {
            out += ' ';
            ++used;
        }
        out += text.substr(0, end);
        used += end;
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    out += '\n';
}

struct Row {
    std::string term;
    std::string_view text;
};

// A list of terms and what is said of them, in two columns.
void AppendRows(std::string& out, const char* title, const std::vector<Row>& rows) {
    if (rows.empty()) return;
    std::size_t widest = 0;
    for (const Row& row : rows)
        widest = std::max(widest, row.term.size());
    out.append("\n").append(title).append(":\n");
    for (const Row& row : rows) {
        out.append(kIndent, ' ').append(row.term);
        AppendWrapped(out, row.text, kIndent + widest + 2);
    }
}

std::vector<Row> OptionRows(std::span<const Option> first, std::span<const Option> second) {
    std::vector<Row> rows;
    for (const std::span<const Option> options : {first, second}) {
        for (const Option option : options)
            rows.push_back({OptionForms(InfoOf(option)), InfoOf(option).help});
    }
    return rows;
}

}  // namespace

std::string Synopsis(const CommandInfo& command) {
    std::string text = std::string("vmr ").append(command.name).append(" [options]");
    for (const ArgumentInfo& argument : command.arguments) {
        const bool optional =
            argument.count == ArgumentCount::Optional || argument.count == ArgumentCount::Any;
        const bool repeats =
            argument.count == ArgumentCount::OneOrMore || argument.count == ArgumentCount::Any;
        text.append(optional ? " [" : " ").append(argument.name);
        text.append(repeats ? " ..." : "").append(optional ? "]" : "");
    }
    return text;
}

std::string OptionForms(const OptionInfo& option) {
    std::string text;
    if (option.letter != 0) text.append("-").append(1, option.letter).append(", ");
    text.append("--").append(option.name);
    if (option.value != nullptr) text.append(" ").append(option.value);
    return text;
}

std::string Sentence(const char* phrase) {
    std::string sentence(phrase);
    if (sentence[0] >= 'a' && sentence[0] <= 'z') sentence[0] = static_cast<char>(sentence[0] - 'a' + 'A');
    return sentence.append(".");
}

std::string ProgramHelp() {
    std::string out =
        "vmr works on password databases of the type VMR.\n\nUsage: vmr COMMAND [options] FILE ...\n";
    std::vector<Row> rows;
    for (const CommandInfo& command : Commands())
        rows.push_back({command.name, command.summary});
    AppendRows(out, "Commands", rows);
    AppendRows(out, "Options", OptionRows(ProgramOptions(), {}));
    for (const HelpTopic& topic : HelpTopics()) {
        out.append("\n").append(topic.title).append(":\n");
        AppendWrapped(out, topic.text, kIndent);
    }
    out += "\nvmr COMMAND --help tells about one command.\n";
    return out;
}

std::string CommandHelp(const CommandInfo& command) {
    std::string out = "Usage: " + Synopsis(command) + "\n\n";
    AppendWrapped(out, Sentence(command.summary), 0);
    if (*command.details != 0) AppendWrapped(out, command.details, 0);
    std::vector<Row> rows;
    for (const ArgumentInfo& argument : command.arguments)
        rows.push_back({argument.name, argument.help});
    AppendRows(out, "Arguments", rows);
    AppendRows(out, "Options", OptionRows(command.options, CommonOptions()));
    return out;
}

std::string ExitCodeList() {
    constexpr std::size_t kDigits = 3;
    std::string out;
    for (const ExitCodeInfo& info : ExitCodes()) {
        const std::string number = std::to_string(static_cast<unsigned>(info.code));
        out += std::string(kDigits - number.size(), ' ') + number + "  " + info.meaning + "\n";
    }
    return out;
}

std::string ProgramVersion() {
    std::string text = "vmr";
    char mark = ' ';
    for (const i32 number : kVersion) {
        text += mark + std::to_string(number);
        mark = '.';
    }
    return text;
}
