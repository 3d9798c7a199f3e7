#include "cli/item_json.h"

#include "cli/date_text.h"
#include "foundation/textops.h"

namespace {

constexpr u64 kJsonVersion = 1;

}  // namespace

void WriteDates(JsonWriter& json, u64 date) {
    json.Key("date").Text(FormatU64(date, U64Format::Hex));
    const std::string modified = FormatIsoDate(date);
    json.Key("modified");
    if (modified.empty()) {
        json.Null();
    } else {
        json.Ascii(modified);
    }
}

void WriteVersion(JsonWriter& json) {
    json.Key("version").Number(kJsonVersion);
}
