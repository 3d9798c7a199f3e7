#include <algorithm>
#include <vector>

#include "cli/commands.h"
#include "cli/failure.h"
#include "cli/findings.h"
#include "cli/invocation.h"
#include "cli/item_json.h"
#include "cli/readable_file.h"
#include "cli/text_argument.h"
#include "foundation/language.h"
#include "foundation/language_check.h"
#include "foundation/product.h"
#include "foundation/textfile.h"

namespace {

using Kind = LanguageFinding::Kind;

constexpr FindingName<Kind> kKinds[] = {
    {Kind::BadLine, "bad-line", "the line is dropped"},
    {Kind::DuplicateKey, "duplicate-key", "overwrites the value"},
    {Kind::UnknownSection, "unknown-section", "unknown section"},
    {Kind::UnknownKey, "unknown-key", "unknown key"},
    {Kind::UnresolvedReference, "unresolved-reference", "resolves to nothing"},
    {Kind::MissingKey, "missing-key", "missing key"},
};

// The file laid over the built-in texts.
void LoadTable(const std::string& path, tvmlang& table) {
    RequireReadable(path);
    for (const LanguageConstant& constant : kLanguageConstants)
        table.SetConst(constant.key, constant.text);
    table.Parse(CVMRMLang::DefaultText());
    if (!table.LoadOverlay(PathArgument(path))) {
        throw Failure(ExitCode::Failed, path + " holds no text in any section");
    }
}

}  // namespace

ExitCode RunLangCheck(const Invocation& invocation) {
    const std::string& path = invocation.Argument(0);
    RequireReadable(path);
    const auto findings = CheckLanguage(ReadTextFile(PathArgument(path)), CVMRMLang::DefaultText());
    std::vector<PrintedFinding> printed;
    for (const LanguageFinding& finding : findings) {
        const auto& name = NameOf(kKinds, finding.kind);
        printed.push_back({finding.line, name.name, name.text, finding.section, finding.key, finding.detail});
    }
    return PrintFindings(invocation, path, printed);
}

ExitCode RunLangDump(const Invocation& invocation) {
    tvmlang table(kDefaultLanguageSection);
    LoadTable(invocation.Argument(0), table);
    OutputSink out;
    JsonWriter json(out);
    json.OpenObject();
    for (const auto& [section, keys] : table.Sections()) {
        json.Key(section.view()).OpenObject();
        for (const auto& [key, text] : keys)
            json.Key(key.view()).Text(text);
        json.CloseObject();
    }
    json.CloseObject();
    out.Byte('\n');
    out.Finish();
    return ExitCode::Done;
}

ExitCode RunLangText(const Invocation& invocation) {
    constexpr std::size_t kFirst = 3;
    LanguageArguments arguments{};
    std::vector<tvstring> texts;
    for (std::size_t i = kFirst; i < invocation.CountArguments(); ++i)
        texts.push_back(TextArgument(invocation.Argument(i), "an argument of the text"));
    if (texts.size() > arguments.size()) throw Failure(ExitCode::WrongUsage, "there are too many arguments");
    std::copy(texts.begin(), texts.end(), arguments.begin());
    const tvstring section = TextArgument(invocation.Argument(1), "the section");
    const tvstring key = TextArgument(invocation.Argument(2), "the key");
    tvmlang table(kDefaultLanguageSection);
    LoadTable(invocation.Argument(0), table);
    if (table.Find(section.empty() ? table.DefaultSection() : section, key) == nullptr) {
        throw Failure(ExitCode::NotFound, "there is no such text");
    }
    const tvstring text = TextFrom(table, section, key, arguments);
    OutputSink out;
    if (invocation.Has(Option::Json)) {
        JsonWriter json(out);
        json.OpenObject();
        WriteVersion(json);
        json.Key("text").Text(text).CloseObject();
    } else {
        out.Text(text);
    }
    out.Byte('\n');
    out.Finish();
    return ExitCode::Done;
}
