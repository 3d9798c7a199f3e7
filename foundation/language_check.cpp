#include "foundation/language_check.h"

#include <utility>

#include "foundation/ini_lines.h"
#include "foundation/product.h"
#include "foundation/textops.h"
#include "foundation/tvmlang.h"

namespace {

using Kind = LanguageFinding::Kind;

// The table as it grows while a file is read, keeping what stays unresolved.
class CheckedTable : public tvmlang {
public:
    CheckedTable() : tvmlang(kDefaultLanguageSection) {
        for (const LanguageConstant& constant : kLanguageConstants)
            SetConst(constant.key, constant.text);
    }

    // The references of the value stored last that were left as they stand.
    [[nodiscard]] const std::vector<tvstring>& Unresolved() const noexcept { return m_Unresolved; }

private:
    void OnKey(const tvstring& section, const tvstring&, tvstring& value) override {
        m_Unresolved.clear();
        ExpandReferences(value, [&](const LanguageReference& reference) {
            const tvstring* text = Resolve(section, reference);
            if (text == nullptr || text->empty()) m_Unresolved.emplace_back(reference.text);
            return text;
        });
    }

    std::vector<tvstring> m_Unresolved;
};

constexpr std::u16string_view kInfoSection = u".info";
constexpr std::u16string_view kInfoName = u"name";

bool IsInfo(const tvstring& section) {
    return EqualNoCase(section, kInfoSection);
}

class LanguageChecker {
public:
    explicit LanguageChecker(const tvini& reference) : m_Reference(reference) {}

    void CheckLine(const PlacedLine& line) {
        switch (line.read.kind) {
            case IniLine::Kind::Head:
                CheckHead(line);
                break;
            case IniLine::Kind::Pair:
                if (!line.section.empty()) {
                    CheckPair(line);
                    break;
                }
                [[fallthrough]];
            case IniLine::Kind::Other:
                m_Findings.push_back({line.number, Kind::BadLine, line.section, {}, line.text});
        }
    }

    void CheckMissing(const PlacedLine& line) {
        const tvstring& key = line.read.key;
        const bool wanted = !IsInfo(line.section) || EqualNoCase(key, kInfoName);
        if (!wanted || line.section.empty() || line.read.kind != IniLine::Kind::Pair) return;
        if (m_Table.Find(line.section, key) != nullptr) return;
        m_Findings.push_back({0, Kind::MissingKey, line.section, key, {}});
        // So that a reference with the key twice does not tell of it twice.
        m_Table.Set(line.section, key, {});
    }

    std::vector<LanguageFinding> TakeFindings() { return std::move(m_Findings); }

private:
    [[nodiscard]] bool IsKnownSection(const tvstring& section) const {
        return IsInfo(section) || m_Reference.Sections().contains(section);
    }

    void CheckHead(const PlacedLine& line) {
        if (line.section.empty() || IsKnownSection(line.section)) return;
        if (m_UnknownSections.try_emplace(line.section).second) {
            m_Findings.push_back({line.number, Kind::UnknownSection, line.section, {}, {}});
        }
    }

    void CheckPair(const PlacedLine& line) {
        const tvstring& section = line.section;
        const tvstring& key = line.read.key;
        if (!IsInfo(section) && IsKnownSection(section) && m_Reference.Find(section, key) == nullptr) {
            m_Findings.push_back({line.number, Kind::UnknownKey, section, key, {}});
        }
        if (const tvstring* earlier = m_Table.Find(section, key)) {
            m_Findings.push_back({line.number, Kind::DuplicateKey, section, key, *earlier});
        }
        m_Table.Set(section, key, line.read.value);
        for (const tvstring& reference : m_Table.Unresolved()) {
            m_Findings.push_back({line.number, Kind::UnresolvedReference, section, key, reference});
        }
    }

    const tvini& m_Reference;
    CheckedTable m_Table;
    tvstrmap<bool> m_UnknownSections;
    std::vector<LanguageFinding> m_Findings;
};

}  // namespace

std::vector<LanguageFinding> CheckLanguage(const tvstring& text, const tvstring& referenceText) {
    tvini reference(nullptr);
    reference.Parse(referenceText);
    LanguageChecker checker(reference);
    for (const PlacedLine& line : PlacedLines(text))
        checker.CheckLine(line);
    for (const PlacedLine& line : PlacedLines(referenceText))
        checker.CheckMissing(line);
    return checker.TakeFindings();
}
