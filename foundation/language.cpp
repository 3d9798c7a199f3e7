#include "foundation/language.h"

#include <cstring>
#include <utility>

#include "foundation/product.h"
#include "foundation/textfile.h"
#include "foundation/textops.h"
#include "platform/file.h"
#include "platform/resource.h"

namespace {

constexpr const char16_t* kDefaultFile = u"english.ini";
constexpr const char16_t* kDefaultName = u"English";

// A file called english.ini with no more than that is some other, older or broken table.
constexpr std::size_t kPoorTable = 10;

bool IsDefaultFile(const tvstring& file) {
    return EqualNoCase(file, kDefaultFile);
}

}  // namespace

CVMRMLang::CVMRMLang(tvstring langFolder, tvstring defaultText)
    : tvmlang(kDefaultLanguageSection),
      m_Folder(std::move(langFolder)),
      m_DefaultText(std::move(defaultText)) {
    EnumLanguages();
    for (const LanguageConstant& constant : kLanguageConstants)
        SetConst(constant.key, constant.text);
    // There has to be a button under the message that tells of a missing table.
    Set(kDefaultLanguageSection, u"ok", u"OK");
    Load(tvstring());
}

bool CVMRMLang::Load(const tvstring& file) {
    const tvstring name = file.empty() ? tvstring(kDefaultFile) : file;
    if (EqualNoCase(name, m_Current)) return true;
    bool loaded = LoadOverlay(JoinPath(m_Folder, name));
    if ((!loaded || m_Sections.size() <= kPoorTable) && IsDefaultFile(name)) loaded = Parse(m_DefaultText);
    ++m_LoadCount;
    if (loaded) m_Current = name;
    return !m_Current.empty();
}

void CVMRMLang::EnumLanguages() {
    m_Langs.clear();
    bool hasDefault = false;
    const auto names = platform::ListNames(m_Folder.c_str(), u"ini");
    for (const tvstring file : names.value_or(std::vector<std::u16string>())) {
        if (IsDotName(file) || file.front() == u'_') continue;
        tvstring language = LanguageName(ReadTextFile(JoinPath(m_Folder, file)));
        if (language.empty()) continue;
        hasDefault = hasDefault || IsDefaultFile(file);
        m_Langs.push_back({file, std::move(language)});
    }
    if (hasDefault) return;
    const tvstring name = LanguageName(m_DefaultText);
    m_Langs.insert(m_Langs.begin(), {kDefaultFile, name.empty() ? tvstring(kDefaultName) : name});
}

const tvstring& CVMRMLang::DefaultText() {
    static const tvstring text = TextOfResource(platform::ResourceBytes(u"LANG", kDefaultFile));
    return text;
}

tvstring CVMRMLang::TextOfResource(std::span<const u8> bytes) {
    tvstring text(bytes.size() / sizeof(char16_t), u'\0');
    if (text.empty()) return text;
    std::memcpy(text.data(), bytes.data(), text.size() * sizeof(char16_t));
    text.erase(0, 1);  // the mark
    Trim(text, std::u16string_view(u"\0", 1), TRIM_END);
    return text;
}

bool CVMRMLang::ExtractDefault(const tvstring& path) {
    return WriteTextFile(DefaultText(), path, TEXT_UTF16LE);
}

tvstring CVMRMLang::LanguageName(const tvstring& text) {
    tvini table(nullptr);
    table.Parse(text);
    return table.Get(u".info", u"name");
}

CVMRMLang& Language() {
    static CVMRMLang language;
    return language;
}

tvstring TextFrom(const tvini& table, std::u16string_view section, std::u16string_view key,
                  const LanguageArguments& arguments) {
    const tvstring* text = table.Find(section.empty() ? table.DefaultSection().view() : section, key);
    return text == nullptr ? tvstring() : PutArguments(*text, arguments);
}

tvstring LangText(std::u16string_view section, std::u16string_view key, std::u16string_view a0,
                  std::u16string_view a1, std::u16string_view a2, std::u16string_view a3,
                  std::u16string_view a4, std::u16string_view a5) {
    return TextFrom(Language(), section, key, {a0, a1, a2, a3, a4, a5});
}

tvstring VersionText(VersionForm form) {
    static const tvstring version =
        FormatInt(kVersion[0]) + u"." + FormatInt(kVersion[1]) + u"." + FormatInt(kVersion[2]);
    return form == VersionForm::Number ? version : LangText(u"global", u"version", version);
}

tvstring DefaultItemName() {
    tvstring name = LangText(u"itemlist", u"def_itemname");
    return name.empty() ? tvstring(u"New password item") : name;
}
