#include <algorithm>

#include "cli/commands.h"
#include "cli/failure.h"
#include "cli/generate_options.h"
#include "cli/item_reference.h"
#include "cli/session.h"
#include "cli/text_argument.h"
#include "foundation/textops.h"

namespace {

constexpr const char* kItemName = "the item's name";
constexpr Option kSecretOptions[] = {Option::SecretStdin, Option::SecretFile};
constexpr Option kValueOptions[] = {Option::ValueStdin, Option::ValueFile};

void RequireName(const tvstring& name, const char* what) {
    if (name.empty()) throw Failure(ExitCode::WrongUsage, std::string(what) + " is empty");
}

// An entry as the core's changes keep it: without line breaks at its ends.
void Append(VMRD_Item& item, u16 type, tvstring text, const char* what) {
    Trim(text, u"\r\n", TRIM_BOTH);
    RequireStorable(text, what);
    auto* entry = new EntryElement;
    entry->m_Type = type;
    entry->m_Text = std::move(text);
    item.Insert(entry, nullptr);
}

tvstring ValueOf(const Invocation& invocation, Option option, const char* what) {
    return invocation.Has(option) ? TextArgument(invocation.Value(option), what) : tvstring();
}

tvstring NewItemSecret(const Invocation& invocation, SecretSource& secrets) {
    constexpr const char* kWhat = "the item's password";
    if (invocation.Has(Option::SecretStdin)) return secrets.InputText(kWhat);
    if (invocation.Has(Option::SecretFile)) {
        return FileText(invocation.Value(Option::SecretFile), kWhat);
    }
    if (invocation.Has(Option::Generate)) return GeneratePassword(ReadGenerateOptions(invocation));
    return {};
}

// What is known without the database is looked at before it is opened.
void FillItem(VMRD_Item& item, const Invocation& invocation) {
    item.m_Name = StoredArgument(invocation.Argument(1), kItemName);
    RequireName(item.m_Name, kItemName);
    Append(item, VMRD_T_PROGRAM, ValueOf(invocation, Option::Program, "the program"), "the program");
    Append(item, VMRD_T_USERNAME, ValueOf(invocation, Option::UserName, "the user name"), "the user name");
    Append(item, VMRD_T_PASSWORD, {}, "the item's password");
    for (const std::string& note : invocation.Values(Option::Note)) {
        tvstring text = TextArgument(note, "the additional text");
        RequireName(text, "the additional text");
        Append(item, VMRD_T_ADDITION, std::move(text), "the additional text");
    }
}

bool IsPassword(const FieldReference& field) {
    return field.kind == FieldReference::Kind::Basic && field.type == VMRD_T_PASSWORD;
}

void RequireOneValue(const Invocation& invocation, const FieldReference& field) {
    constexpr std::size_t kWithValue = 4;
    const bool isArgument = invocation.CountArguments() == kWithValue;
    const bool isGenerated = invocation.Has(Option::Generate);
    const bool isOption =
        isGenerated || invocation.Has(Option::ValueStdin) || invocation.Has(Option::ValueFile);
    if (isGenerated && !IsPassword(field)) {
        throw Failure(ExitCode::WrongUsage, "--generate makes a password, and the field is none");
    }
    if (isArgument && IsPassword(field)) {
        throw Failure(ExitCode::WrongUsage,
                      "a password is never an argument; use --stdin or --value-file, or be asked for it");
    }
    if (isArgument && isOption) {
        throw Failure(ExitCode::WrongUsage, "VALUE, --stdin and --value-file exclude each other");
    }
    if (!isArgument && !isOption && !IsPassword(field)) {
        throw Failure(ExitCode::WrongUsage, "the new text is missing: VALUE, --stdin or --value-file");
    }
}

tvstring NewValue(const Invocation& invocation, SecretSource& secrets) {
    constexpr const char* kWhat = "the new text";
    constexpr std::size_t kValue = 3;
    if (invocation.Has(Option::ValueStdin)) return secrets.InputText(kWhat);
    if (invocation.Has(Option::ValueFile)) {
        return FileText(invocation.Value(Option::ValueFile), kWhat);
    }
    if (invocation.Has(Option::Generate)) return GeneratePassword(ReadGenerateOptions(invocation));
    if (invocation.CountArguments() > kValue) return TextArgument(invocation.Argument(kValue), kWhat);
    return secrets.TypedTwice("New password of the item: ");
}

void ChangeField(VMRD_DB& database, ItemElement* item, const FieldReference& field, const tvstring& text) {
    switch (field.kind) {
        case FieldReference::Kind::Name:
            RequireName(text, kItemName);
            database.ModifyItem(item, text, &database);
            break;
        case FieldReference::Kind::NewNote:
            RequireName(text, "the additional text");
            database.AddNewEntry(text, item);
            break;
        case FieldReference::Kind::Basic:
        case FieldReference::Kind::Note:
            database.ModifyEntry(FindEntry(*item, field), text, item);
            break;
    }
}

}  // namespace

ExitCode RunAdd(const Invocation& invocation) {
    RequireGenerateAlone(invocation, kSecretOptions);
    ReadGenerateOptions(invocation);
    VMRD_Item item;
    FillItem(item, invocation);
    Session session(invocation);
    session.Open(invocation.Argument(0), Purpose::Change);
    tvstring secret = NewItemSecret(invocation, session.Secrets());
    Trim(secret, u"\r\n", TRIM_BOTH);
    RequireStorable(secret, "the item's password");
    FindEntry(item, {FieldReference::Kind::Basic, VMRD_T_PASSWORD})->m_Text = std::move(secret);
    Touch(&item);
    ElementQueue queue{&item};
    session.Database().AddItems(queue, nullptr, &session.Database());
    session.Save();
    return ExitCode::Done;
}

ExitCode RunSet(const Invocation& invocation) {
    RequireGenerateAlone(invocation, kValueOptions);
    ReadGenerateOptions(invocation);
    const FieldReference field = ParseField(invocation.Argument(2));
    RequireOneValue(invocation, field);
    Session session(invocation);
    session.Open(invocation.Argument(0), Purpose::Change);
    ItemElement* item = FindItem(session.Database(), invocation.Argument(1));
    if (field.kind == FieldReference::Kind::Basic || field.kind == FieldReference::Kind::Note) {
        FindEntry(*item, field);  // before anybody types a password
    }
    tvstring text = NewValue(invocation, session.Secrets());
    if (field.kind != FieldReference::Kind::Name) Trim(text, u"\r\n", TRIM_BOTH);
    RequireStorable(text, "the new text");
    ChangeField(session.Database(), item, field, text);
    session.Save();
    return ExitCode::Done;
}

ExitCode RunRemove(const Invocation& invocation) {
    Session session(invocation);
    session.Open(invocation.Argument(0), Purpose::Change);
    ElementArray items;
    for (std::size_t i = 1; i < invocation.CountArguments(); ++i) {
        ItemElement* item = FindItem(session.Database(), invocation.Argument(i));
        if (std::find(items.begin(), items.end(), item) == items.end()) items.push_back(item);
    }
    session.Database().RemoveItems(items, &session.Database());
    session.Save();
    return ExitCode::Done;
}

ExitCode RunMove(const Invocation& invocation) {
    const std::string& direction = invocation.Argument(2);
    const bool up = direction == "up";
    if (!up && direction != "down") throw Failure(ExitCode::WrongUsage, "the direction is up or down");
    Session session(invocation);
    session.Open(invocation.Argument(0), Purpose::Change);
    ElementArray items{FindItem(session.Database(), invocation.Argument(1))};
    if (session.Database().MoveItems(items, up, &session.Database()) == 0) {
        throw Failure(ExitCode::Failed,
                      up ? "the item is the first one already" : "the item is the last one already");
    }
    session.Save();
    return ExitCode::Done;
}

ExitCode RunMerge(const Invocation& invocation) {
    Session session(invocation);
    session.Open(invocation.Argument(0), Purpose::Change);
    ItemElement* first = FindItem(session.Database(), invocation.Argument(1));
    ItemElement* second = FindItem(session.Database(), invocation.Argument(2));
    if (first == second) throw Failure(ExitCode::WrongUsage, "both arguments mean the same item");
    ElementArray items{first, second};
    if (session.Database().MergeItems(items) == nullptr) {
        throw Failure(ExitCode::Failed, "the items could not be merged");
    }
    session.Save();
    return ExitCode::Done;
}

ExitCode RunRename(const Invocation& invocation) {
    constexpr const char* kWhat = "the database's name";
    const tvstring name = StoredArgument(invocation.Argument(1), kWhat);
    RequireName(name, kWhat);
    Session session(invocation);
    session.Open(invocation.Argument(0), Purpose::Change);
    session.Database().SetName(name);
    session.Save();
    return ExitCode::Done;
}
