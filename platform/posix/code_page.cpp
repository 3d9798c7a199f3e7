#include "platform/posix/code_page.h"

#include <unicode/ucnv.h>
#include <unicode/utf16.h>

#include <array>
#include <atomic>
#include <cstdio>
#include <limits>
#include <map>
#include <memory>
#include <string>

#include "platform/memory.h"
#include "platform/text.h"

namespace platform {
namespace {

constexpr u32 kWestern = 1252;
constexpr std::size_t kLongestText = std::numeric_limits<std::int32_t>::max();
constexpr char kReplacement[] = "??";  // for the halves of a pair

constinit std::atomic<u32> g_AnsiCodePage = kWestern;

struct CloseConverter {
    void operator()(UConverter* converter) const noexcept { ucnv_close(converter); }
};
using Converter = std::unique_ptr<UConverter, CloseConverter>;

// Code pages have one or two bytes for a unit. ICU has more under such numbers: UTF-16, UTF-7 and others with
// a state, which no conversion of one text piece by piece can serve.
bool IsCodePage(const UConverter* converter) noexcept {
    switch (ucnv_getType(converter)) {
        case UCNV_SBCS:
        case UCNV_MBCS:
        case UCNV_LATIN_1:
        case UCNV_US_ASCII:
            return true;
        default:
            return false;
    }
}

Converter OpenByName(const char* format, u32 number) noexcept {
    char name[24];
    std::snprintf(name, sizeof name, format, number);
    UErrorCode status = U_ZERO_ERROR;
    Converter converter(ucnv_open(name, &status));
    return U_SUCCESS(status) && IsCodePage(converter.get()) ? std::move(converter) : nullptr;
}

Converter OpenConverter(u32 codePage) noexcept {
    constexpr u32 kBeforeIso8859 = 28'590;
    constexpr u32 kIso8859Parts = 16;
    if (codePage > kBeforeIso8859 && codePage <= kBeforeIso8859 + kIso8859Parts) {
        return OpenByName("iso-8859-%u", codePage - kBeforeIso8859);
    }
    Converter converter = OpenByName("windows-%u", codePage);
    return converter != nullptr ? std::move(converter) : OpenByName("ibm-%u", codePage);
}

// One converter each way for the code page used last; a program uses one.
class CodePage {
public:
    explicit CodePage(u32 codePage) noexcept : m_Converter(OpenConverter(codePage)) {
        if (m_Converter == nullptr) return;
        UErrorCode status = U_ZERO_ERROR;
        ucnv_setSubstChars(m_Converter.get(), kReplacement, 1, &status);
        ucnv_setFallback(m_Converter.get(), 1);
        m_Good = U_SUCCESS(status) != 0;
    }

    [[nodiscard]] bool Good() const noexcept { return m_Good; }

    std::size_t Decode(const char* bytes, std::size_t length, char16_t* out, std::size_t capacity) noexcept {
        if (length > kLongestText) return 0;
        UErrorCode status = U_ZERO_ERROR;
        const std::int32_t count =
            ucnv_toUChars(m_Converter.get(), out, out == nullptr ? 0 : static_cast<std::int32_t>(capacity),
                          bytes, static_cast<std::int32_t>(length), &status);
        WipeStack();  // where the text stands that was only measured
        return Result(count, status, out == nullptr);
    }

    // As Windows does it, both halves of a pair that the code page lacks give a replacement.
    std::size_t Encode(const char16_t* units, std::size_t length, char* out, std::size_t capacity) noexcept {
        std::size_t count = 0;
        for (std::size_t i = 0; i < length;) {
            const bool isPair = i + 1 < length && U16_IS_LEAD(units[i]) && U16_IS_TRAIL(units[i + 1]);
            const std::int32_t width = isPair ? 2 : 1;
            char buffer[8];
            const std::string_view encoded = EncodeOne(units + i, width, buffer);
            if (out != nullptr) {
                if (count + encoded.size() > capacity) break;
                encoded.copy(out + count, encoded.size());
            }
            count += encoded.size();
            i += static_cast<std::size_t>(width);
        }
        return count;
    }

private:
    template <std::size_t Size>
    std::string_view EncodeOne(const char16_t* units, std::int32_t width, char (&buffer)[Size]) noexcept {
        UErrorCode status = U_ZERO_ERROR;
        const std::int32_t size =
            ucnv_fromUChars(m_Converter.get(), buffer, sizeof buffer, units, width, &status);
        const bool replaced = size == 1 && buffer[0] == kReplacement[0];
        if (U_SUCCESS(status) && size > 0 && !replaced) return {buffer, static_cast<std::size_t>(size)};
        return std::string_view(kReplacement).substr(0, static_cast<std::size_t>(width));
    }

    static std::size_t Result(std::int32_t count, UErrorCode status, bool asked) noexcept {
        if (asked && status == U_BUFFER_OVERFLOW_ERROR) return static_cast<std::size_t>(count);
        return U_SUCCESS(status) ? static_cast<std::size_t>(count) : 0;
    }

    Converter m_Converter;
    bool m_Good = false;
};

CodePage& PageOf(u32 codePage) {
    thread_local std::map<u32, CodePage> pages;
    const u32 actual = codePage == kCodePageAnsi ? g_AnsiCodePage.load() : codePage;
    return pages.try_emplace(actual, actual).first->second;
}

}  // namespace

bool UseAnsiCodePage(u32 codePage) noexcept {
    const u32 wanted = codePage == 0 ? kWestern : codePage;
    if (wanted != kCodePageUtf8 && !PageOf(wanted).Good()) return false;
    g_AnsiCodePage = wanted;
    return true;
}

std::size_t CodePageToUnits(u32 codePage, const char* bytes, std::size_t length, char16_t* out,
                            std::size_t capacity) noexcept {
    if (codePage == kCodePageAnsi && g_AnsiCodePage == kCodePageUtf8) {
        return BytesToUnits(kCodePageUtf8, bytes, length, out, capacity);
    }
    CodePage& page = PageOf(codePage);
    return length == 0 || !page.Good() ? 0 : page.Decode(bytes, length, out, capacity);
}

std::size_t UnitsToCodePage(u32 codePage, const char16_t* units, std::size_t length, char* out,
                            std::size_t capacity) noexcept {
    if (codePage == kCodePageAnsi && g_AnsiCodePage == kCodePageUtf8) {
        return UnitsToBytes(kCodePageUtf8, units, length, out, capacity);
    }
    CodePage& page = PageOf(codePage);
    return length == 0 || !page.Good() ? 0 : page.Encode(units, length, out, capacity);
}

}  // namespace platform
