#include "tests/scenarios/file_content.h"

#include <gtest/gtest.h>

#include "database/database.h"
#include "foundation/conversion.h"

namespace {

void Fill(VMRD_DB& database, ItemElement& item, const ItemContent& content) {
    VMRD_Entry* entries[3] = {};
    GetBasicEntries(&item, &entries[0], &entries[1], &entries[2]);
    database.ModifyItem(&item, content.name, &database);
    database.ModifyEntry(entries[0], content.program, &item);
    database.ModifyEntry(entries[1], content.userName, &item);
    database.ModifyEntry(entries[2], content.password, &item);
    for (const tvstring& text : content.additions)
        database.AddNewEntry(text, &item);
    if (content.date != 0) item.m_Date = content.date;
}

ItemContent ContentOf(const VMRD_Item& item) {
    VMRD_Entry* entries[3] = {};
    GetBasicEntries(&item, &entries[0], &entries[1], &entries[2]);
    ItemContent content{
        item.m_Name, ElementText(entries[0]), ElementText(entries[1]), ElementText(entries[2]), {},
        item.m_Date};
    for (const EntryElement* entry = item.m_Head; entry != nullptr; entry = entry->m_Next)
        if (entry->m_Type == VMRD_T_ADDITION) content.additions.push_back(entry->m_Text);
    return content;
}

std::string Quoted(const tvstring& text) {
    std::string quoted = "\"";
    quoted.append(ToUtf8(text).view());
    return quoted.append("\"");
}

}  // namespace

bool operator==(const ItemContent& a, const ItemContent& b) {
    return a.name == b.name && a.program == b.program && a.userName == b.userName &&
           a.password == b.password && a.additions == b.additions;
}

void PrintTo(const ItemContent& item, std::ostream* out) {
    *out << Quoted(item.name) << " (" << Quoted(item.program) << ", " << Quoted(item.userName) << ", "
         << Quoted(item.password) << ";";
    for (const tvstring& text : item.additions)
        *out << " " << Quoted(text);
    *out << ")";
}

void WriteContent(const tvstring& path, const tvstring& password, const Content& content) {
    VMRD_DB database;
    database.MakeCurrent();
    ASSERT_TRUE(database.New(u"Prepared"));
    ElementArray first = {database.m_Head};
    ASSERT_EQ(database.RemoveItems(first, &database), 1);
    for (const ItemContent& item : content)
        Fill(database, *database.AddNewItem(&database), item);
    database.SetPath(path);
    database.SetMasterPassword(password);
    ASSERT_TRUE(database.Save());
}

Content ReadContent(const tvstring& path, const tvstring& password) {
    VMRD_DB database;
    Content content;
    EXPECT_TRUE(database.Open(path, password)) << "the file cannot be opened";
    for (const ItemElement* item = database.m_Head; item != nullptr; item = item->m_Next)
        content.push_back(ContentOf(*item));
    return content;
}

std::vector<tvstring> NamesOf(const Content& content) {
    std::vector<tvstring> names;
    for (const ItemContent& item : content)
        names.push_back(item.name);
    return names;
}
