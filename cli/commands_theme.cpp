#include "cli/commands.h"
#include "cli/failure.h"
#include "cli/findings.h"
#include "cli/invocation.h"
#include "cli/item_json.h"
#include "cli/readable_file.h"
#include "cli/text_argument.h"
#include "foundation/textfile.h"
#include "toolkit/color_theme.h"
#include "toolkit/theme_check.h"

namespace {

using Kind = ThemeFinding::Kind;

constexpr FindingName<Kind> kKinds[] = {
    {Kind::WrongVersion, "wrong-version", "is not TVTHEME_1_0"},
    {Kind::BadColor, "bad-color", "is no colour"},
    {Kind::UnknownRole, "unknown-role", "names no role"},
    {Kind::Cycle, "cycle", "leads back to itself"},
    {Kind::MissingKey, "missing-key", "missing, or without a value"},
    {Kind::BadLine, "bad-line", "the line is dropped"},
    {Kind::UnknownSection, "unknown-section", "unknown section"},
    {Kind::UnknownKey, "unknown-key", "unknown key"},
    {Kind::DuplicateKey, "duplicate-key", "overwrites the value"},
};

// "#rrggbb"
std::string ColorText(u32 color) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string text = "#";
    for (const unsigned shift : {4U, 0U, 12U, 8U, 20U, 16U})
        text += kDigits[color >> shift & 0xFU];
    return text;
}

void WriteThemeJson(const tvColorTheme& theme, ByteSink& out) {
    JsonWriter json(out);
    json.OpenObject();
    WriteVersion(json);
    json.Key("name").Text(theme.m_name).Key("colors").OpenObject();
    for (const ThemeRole& role : kThemeRoles)
        json.Key(role.key).Ascii(ColorText(theme.*role.color));
    json.CloseObject().CloseObject();
    out.Byte('\n');
}

void WriteThemeLines(const tvColorTheme& theme, ByteSink& out) {
    constexpr std::size_t kColumn = 16;
    out.Bytes("name            ");
    out.Bytes(ForMessage(theme.m_name) + "\n");
    for (const ThemeRole& role : kThemeRoles) {
        out.Text(role.key);
        out.Bytes(std::string(kColumn - role.key.size(), ' ') + ColorText(theme.*role.color) + "\n");
    }
}

}  // namespace

ExitCode RunThemeCheck(const Invocation& invocation) {
    const std::string& path = invocation.Argument(0);
    RequireReadable(path);
    const auto findings = CheckTheme(ReadTextFile(PathArgument(path)));
    std::vector<PrintedFinding> printed;
    for (const ThemeFinding& finding : findings) {
        const auto& name = NameOf(kKinds, finding.kind);
        printed.push_back({finding.line, name.name, name.text, std::nullopt, finding.key, finding.detail});
    }
    return PrintFindings(invocation, path, printed);
}

ExitCode RunThemeShow(const Invocation& invocation) {
    const std::string& path = invocation.Argument(0);
    RequireReadable(path);
    tvColorTheme theme;
    if (!theme.Load(PathArgument(path))) {
        throw Failure(ExitCode::Failed, path + " is no theme; vmr theme check tells what is wrong");
    }
    OutputSink out;
    if (invocation.Has(Option::Json)) {
        WriteThemeJson(theme, out);
    } else {
        WriteThemeLines(theme, out);
    }
    out.Finish();
    return ExitCode::Done;
}
