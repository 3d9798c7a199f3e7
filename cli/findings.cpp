#include "cli/findings.h"

#include "cli/failure.h"
#include "cli/item_json.h"
#include "cli/text_argument.h"

namespace {

void WriteFindingJson(JsonWriter& json, const PrintedFinding& finding) {
    json.OpenObject().Key("line").Number(finding.line);
    json.Key("kind").Ascii(finding.kind);
    if (finding.section) json.Key("section").Text(*finding.section);
    json.Key("key").Text(finding.key).Key("detail").Text(finding.detail).CloseObject();
}

void WriteFindingsJson(const std::vector<PrintedFinding>& findings, ByteSink& out) {
    JsonWriter json(out);
    json.OpenObject();
    WriteVersion(json);
    json.Key("findings").OpenArray();
    for (const PrintedFinding& finding : findings)
        WriteFindingJson(json, finding);
    json.CloseArray().CloseObject();
    out.Byte('\n');
}

// "de.ini:12: [file] open: resolves to nothing: %nosuch"
std::string FindingLine(const std::string& path, const PrintedFinding& finding) {
    const bool hasSection = finding.section && !finding.section->empty();
    std::string line = path;
    line.append(":");
    if (finding.line != 0) line.append(std::to_string(finding.line)).append(":");
    if (hasSection) line.append(" [").append(ForMessage(*finding.section)).append("]");
    if (!finding.key.empty()) line.append(" ").append(ForMessage(finding.key));
    if (hasSection || !finding.key.empty()) line.append(":");
    line.append(" ").append(finding.text);
    if (!finding.detail.empty()) line.append(": ").append(ForMessage(finding.detail));
    return line.append("\n");
}

}  // namespace

ExitCode PrintFindings(const Invocation& invocation, const std::string& path,
                       const std::vector<PrintedFinding>& findings) {
    OutputSink out;
    if (invocation.Has(Option::Json)) {
        WriteFindingsJson(findings, out);
    } else {
        for (const PrintedFinding& finding : findings)
            out.Bytes(FindingLine(path, finding));
    }
    out.Finish();
    return findings.empty() ? ExitCode::Done : ExitCode::CheckFound;
}
