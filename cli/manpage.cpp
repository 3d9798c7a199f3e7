#include "cli/help.h"

namespace {

// A text as troff takes it literally.
std::string Escaped(std::string_view text) {
    std::string out;
    for (const char c : text) {
        if (c == '\\') {
            out += "\\e";
        } else if (c == '-') {
            out += "\\-";
        } else {
            out += c;
        }
    }
    return out;
}

// On a line of its own, where a dot or a quote in front would be a request.
std::string Paragraph(std::string_view text) {
    const bool isRequest = !text.empty() && (text[0] == '.' || text[0] == '\'');
    return (isRequest ? "\\&" : "") + Escaped(text) + "\n";
}

std::string Tagged(const std::string& term, std::string_view text) {
    return ".TP\n.B " + Escaped(term) + "\n" + Paragraph(text);
}

std::string OptionList(std::span<const Option> options) {
    std::string out;
    for (const Option option : options)
        out += Tagged(OptionForms(InfoOf(option)), InfoOf(option).help);
    return out;
}

std::string CommandSection(const CommandInfo& command) {
    std::string out = ".SS " + Escaped(command.name) + "\n.B " + Escaped(Synopsis(command)) + "\n.PP\n" +
                      Paragraph(Sentence(command.summary));
    if (*command.details != 0) out += Paragraph(command.details);
    for (const ArgumentInfo& argument : command.arguments)
        out += Tagged(argument.name, argument.help);
    return out + OptionList(command.options);
}

}  // namespace

std::string ManualPage() {
    std::string out = ".TH VMR 1 \"\" \"" + ProgramVersion() +
                      "\" \"User Commands\"\n.SH NAME\nvmr \\- work on password databases of the type VMR\n"
                      ".SH SYNOPSIS\n.B vmr\n.I COMMAND\n[options]\n.I FILE\n\\&...\n.SH DESCRIPTION\n";
    for (const HelpTopic& topic : HelpTopics())
        out += std::string(".SS ") + topic.title + "\n" + Paragraph(topic.text);
    out += ".SH COMMANDS\n";
    for (const CommandInfo& command : Commands())
        out += CommandSection(command);
    out += ".SH OPTIONS\n.SS Of every command\n" + OptionList(CommonOptions());
    out += ".SS Without a command\n" + OptionList(ProgramOptions()) + ".SH EXIT STATUS\n";
    for (const ExitCodeInfo& info : ExitCodes())
        out += Tagged(std::to_string(static_cast<unsigned>(info.code)), Sentence(info.meaning));
    return out;
}
