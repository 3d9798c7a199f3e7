#include "cli/commands.h"
#include "cli/failure.h"
#include "cli/item_reference.h"
#include "cli/session.h"
#include "cli/text_argument.h"
#include "platform/terminal.h"
#include "platform/text_clipboard.h"

namespace {

constexpr u32 kUsualSeconds = 15;
constexpr u32 kMostSeconds = 86400;
constexpr u32 kMillisecondsPerSecond = 1000;

// The database is let go of before the waiting begins.
tvstring FieldText(const Invocation& invocation) {
    const FieldReference field = ParseField(invocation.Argument(2));
    if (field.kind == FieldReference::Kind::NewNote) {
        throw Failure(ExitCode::WrongUsage, "note:+ names a text to be added");
    }
    if (!platform::HasTextClipboard()) {
        throw Failure(
            ExitCode::Failed,
            "there is no way to a clipboard: it takes wl-copy and wl-paste on Wayland, xclip on X11");
    }
    Session session(invocation);
    session.Open(invocation.Argument(0), Purpose::Read);
    const ItemElement* item = FindItem(session.Database(), invocation.Argument(1));
    return field.kind == FieldReference::Kind::Name ? item->m_Name : FindEntry(*item, field)->m_Text;
}

void ClearIfHeld(const tvstring& text) {
    const std::optional<bool> held = platform::ClipboardHoldsText(text);
    if (held.has_value() && !*held) return;
    if (!held.has_value() || !platform::ClearClipboardText()) {
        throw Failure(ExitCode::Failed, "the clipboard could not be cleared");
    }
}

}  // namespace

ExitCode RunClip(const Invocation& invocation) {
    const u32 seconds =
        invocation.Has(Option::Timeout)
            ? NumberArgument(invocation.Value(Option::Timeout), "the timeout in seconds", 1, kMostSeconds)
            : kUsualSeconds;
    const tvstring text = FieldText(invocation);
    if (text.empty()) throw Failure(ExitCode::Failed, "the field is empty: nothing was put on the clipboard");
    platform::InterruptWatch watch;
    if (!platform::PutClipboardText(text)) {
        throw Failure(ExitCode::Failed, "the text could not be put on the clipboard");
    }
    PrintMessage("on the clipboard for " + std::to_string(seconds) + (seconds == 1 ? " second" : " seconds"));
    const bool interrupted = watch.Wait(seconds * kMillisecondsPerSecond);
    ClearIfHeld(text);
    if (interrupted) throw Failure(ExitCode::Interrupted, "interrupted");
    return ExitCode::Done;
}
