// The fixed parts of the exported tables, with the texts of the database between them.
#pragma once

#include <array>
#include <string_view>

struct ExportTemplate {
    std::array<std::u16string_view, 3> head;  // the title stands between the parts
    std::size_t headParts;
    std::u16string_view rowStart;
    std::u16string_view cellEnd;  // between two cells
    std::u16string_view rowEnd;
    std::u16string_view noteBreak;  // between two additional entries in one cell
    std::u16string_view tail;
};

inline constexpr ExportTemplate kCsvTemplate = {
    .head = {u"\"", u"\",,,,\r\n"},
    .headParts = 2,
    .rowStart = u"\"",
    .cellEnd = u"\",\"",
    .rowEnd = u"\"\r\n",
    .noteBreak = u"\r\n",
    .tail = u"",
};

inline constexpr ExportTemplate kHtmlTemplate = {
    .head = {u"<!DOCTYPE html>\r\n"
             u"<html>\r\n"
             u"<head>\r\n"
             u"<title>",
             u"</title>\r\n"
             u"<meta charset=\"utf-8\" />\r\n"
             u"<style>\r\n"
             u"table,tr,td {border:1px solid #999; border-collapse:collapse; padding:1em; "
             u"vertical-align:top;}\r\n"
             u"td:last-child {width:100%;}\r\n"
             u"</style>\r\n"
             u"</head>\r\n"
             u"<body>\r\n"
             u"\r\n"
             u"<table>\r\n"
             u"<tr><td colspan=\"5\">",
             u"</td></tr>\r\n"},
    .headParts = 3,
    .rowStart = u"<tr><td>",
    .cellEnd = u"</td>\r\n<td>",
    .rowEnd = u"</td></tr>\r\n",
    .noteBreak = u"<br />\r\n",
    .tail =
        u"</table>\r\n"
        u"</body>\r\n"
        u"</html>",
};
