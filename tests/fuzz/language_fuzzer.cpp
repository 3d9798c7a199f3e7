// Reads a language text: references, arguments and the checker.
#include <algorithm>

#include "foundation/language_check.h"
#include "foundation/product.h"
#include "foundation/tvmlang.h"
#include "tests/fuzz/fuzz_text.h"

namespace {

// A table whose values cannot multiply without end through references.
class BoundedTable : public tvmlang {
public:
    BoundedTable() : tvmlang(kDefaultLanguageSection) {
        for (const LanguageConstant& constant : kLanguageConstants)
            SetConst(constant.key, constant.text);
    }

private:
    void OnKey(const tvstring& section, const tvstring& key, tvstring& value) override {
        constexpr std::size_t kLongest = 4096;
        const tvstring before(value);
        tvmlang::OnKey(section, key, value);
        Require(before.find(u'%') != tvstring::npos || value == before);
        if (value.size() > kLongest) value.resize(kLongest);
    }
};

void CheckTexts(const tvini& table) {
    for (const auto& [section, keys] : table.Sections()) {
        for (const auto& [key, value] : keys) {
            const bool isPlain = value.find(u'%') == tvstring::npos;
            const tvstring text = PutArguments(value, {});
            Require(isPlain ? text == value : text.size() <= value.size());
            Require(PutArguments(value, {u"%0", u"%1", u"%2", u"%3", u"%4", u"%5"}).size() <= value.size());
            Require(CleanReference(value).size() <= value.size());
        }
    }
}

// Against itself a text misses nothing and has nothing unknown.
void CheckFindings(const tvstring& text) {
    using Kind = LanguageFinding::Kind;
    const auto lines = static_cast<std::size_t>(1 + std::count(text.begin(), text.end(), u'\n'));
    for (const LanguageFinding& finding : CheckLanguage(text, text)) {
        Require(finding.kind != Kind::MissingKey && finding.kind != Kind::UnknownKey);
        // A section without keys is no section of the table.
        Require(finding.kind != Kind::UnknownSection || finding.key.empty());
        Require(finding.line >= 1 && finding.line <= lines);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const u8* data, std::size_t size) {
    constexpr std::ptrdiff_t kMostReferences = 20;
    const tvstring text = TextOfFile(data, size);
    BoundedTable table;
    table.Parse(text);
    CheckTexts(table);
    if (std::count(text.begin(), text.end(), u'%') <= kMostReferences) CheckFindings(text);
    return 0;
}
