#include "database/export.h"

#include <utility>

#include "database/database.h"
#include "database/export_templates.h"
#include "foundation/conversion.h"
#include "foundation/language.h"
#include "foundation/path.h"
#include "foundation/textops.h"
#include "platform/file.h"

namespace {

using Reference = std::u16string_view (*)(char16_t unit);

// What stands for a unit, or an empty text if it stands for itself.
std::u16string_view HtmlReference(char16_t unit) {
    switch (unit) {
        case u'&':
            return u"&amp;";
        case u'<':
            return u"&lt;";
        case u'>':
            return u"&gt;";
        case u'"':
            return u"&quot;";
        default:
            return {};
    }
}

std::u16string_view CsvReference(char16_t unit) {
    return unit == u'"' ? std::u16string_view(u"\"\"") : std::u16string_view();
}

std::u16string_view NoReference(char16_t) {
    return {};
}

void AppendEscaped(tvstring& out, std::u16string_view text, Reference reference) {
    std::size_t start = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::u16string_view replacement = reference(text[i]);
        if (replacement.empty()) continue;
        out += text.substr(start, i - start);
        out += replacement;
        start = i + 1;
    }
    out += text.substr(start);
}

struct ExportFormat {
    const ExportTemplate& parts;
    Reference title;
    Reference text;
};

// A title with a double quote in it makes the first line of the values malformed; so be it.
constexpr ExportFormat kCsvFormat = {kCsvTemplate, NoReference, CsvReference};
constexpr ExportFormat kHtmlFormat = {kHtmlTemplate, HtmlReference, HtmlReference};

void AppendHead(tvstring& out, const ExportFormat& format, const tvstring& title) {
    out += format.parts.head[0];
    for (std::size_t i = 1; i < format.parts.headParts; ++i) {
        AppendEscaped(out, title, format.title);
        out += format.parts.head[i];
    }
}

void AppendLabels(tvstring& out, const ExportFormat& format) {
    out += format.parts.rowStart;
    for (const std::u16string_view key : {u"program", u"username", u"password", u"addition"}) {
        out += format.parts.cellEnd;
        AppendEscaped(out, LangText(u"itemdetail", key), format.text);
    }
    out += format.parts.rowEnd;
}

// The cell of a basic type: the first entry of that type fills it.
void AppendBasic(tvstring& out, const ExportFormat& format, const ItemElement& item, u16 type) {
    const EntryElement* entry = item.m_Head;
    while (entry != nullptr && entry->m_Type != type)
        entry = entry->m_Next;
    if (entry != nullptr) AppendEscaped(out, entry->m_Text, format.text);
}

// The cell of the additional entries. Only what is there so far decides whether a break goes in between.
void AppendNote(tvstring& out, const ExportFormat& format, const ItemElement& item) {
    const std::size_t start = out.size();
    for (const EntryElement* entry = item.m_Head; entry != nullptr; entry = entry->m_Next) {
        if (entry->m_Type != VMRD_T_ADDITION) continue;
        if (out.size() != start) out += format.parts.noteBreak;
        AppendEscaped(out, entry->m_Text, format.text);
    }
}

void AppendItem(tvstring& out, const ExportFormat& format, const ItemElement& item) {
    out += format.parts.rowStart;
    AppendEscaped(out, item.m_Name, format.text);
    for (const u16 type : {VMRD_T_PROGRAM, VMRD_T_USERNAME, VMRD_T_PASSWORD}) {
        out += format.parts.cellEnd;
        AppendBasic(out, format, item, type);
    }
    out += format.parts.cellEnd;
    AppendNote(out, format, item);
    out += format.parts.rowEnd;
}

// Enough for most databases; what escaping adds may take one more step.
std::size_t ExpectedSize(const VMRD_DB& database, const ExportTemplate& parts) {
    constexpr std::size_t kHeadAndLabels = 1024;
    const std::size_t row = parts.rowStart.size() + 4 * parts.cellEnd.size() + parts.rowEnd.size();
    std::size_t size = kHeadAndLabels + 2 * database.m_Name.size();
    for (const ItemElement* item = database.m_Head; item != nullptr; item = item->m_Next) {
        size += row + item->m_Name.size();
        for (const EntryElement* entry = item->m_Head; entry != nullptr; entry = entry->m_Next)
            size += entry->m_Text.size() + parts.noteBreak.size();
    }
    return size;
}

bool WriteAll(const tvhandle& file, std::string_view bytes) {
    // More than one call can write counts as a short write.
    const auto size = static_cast<u32>(bytes.size());
    u32 done = 0;
    return platform::WriteNativeFile(file.Get(), bytes.data(), size, done) && done == bytes.size();
}

}  // namespace

void EscapeHtml(tvstring& text) {
    tvstring escaped;
    escaped.reserve(text.size());
    AppendEscaped(escaped, text, HtmlReference);
    text = std::move(escaped);
}

tvstringA VMRD_DB::BuildExport(bool html) const {
    const ExportFormat& format = html ? kHtmlFormat : kCsvFormat;
    tvstring out;
    out.reserve(ExpectedSize(*this, format.parts));
    AppendHead(out, format, m_Name);
    AppendLabels(out, format);
    for (const ItemElement* item = m_Head; item != nullptr; item = item->m_Next)
        AppendItem(out, format, *item);
    out += format.parts.tail;
    return ToUtf8(out);
}

bool VMRD_DB::Export(const tvstring& path, bool html) const {
    if (path.empty()) return false;
    const tvstringA text = BuildExport(html);
    if (text.empty()) return false;
    const tvhandle file = OpenFileHandle(path, true);
    if (!file) return false;
    return (html || WriteAll(file, "\xEF\xBB\xBF")) && WriteAll(file, text);
}

bool IsHtmlPath(const tvstring& path) {
    const tvstring extension = ExtensionOf(path);
    return EqualNoCase(extension, u".htm") || EqualNoCase(extension, u".html");
}
