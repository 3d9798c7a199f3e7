// Where master passwords and other secrets come from: standard input, a file, or the terminal. Never from the
// command line.
#pragma once

#include <string>

#include "cli/input_reader.h"
#include "cli/invocation.h"

class SecretSource {
public:
    // Throws a Failure if the options ask for two sources at once.
    explicit SecretSource(const Invocation& invocation);

    // All of the following throw a Failure: if a secret cannot be had, is no valid UTF-8, or is a master
    // password that is empty; with the exit code Interrupted if the user stopped the prompt.

    // The master password of a database that exists; `file` is what the prompt calls it.
    tvstring Master(const std::string& file);

    // The master password of a database to be made, which is the only one: asked for twice.
    tvstring OnlyMaster(const std::string& file);

    // A new master password beside Master's: from --new-password-file, the second line of standard input, or
    // the terminal, asked for twice.
    tvstring NewMaster(const std::string& file);

    // What is left of standard input, but for one line end at its end. `what` is what messages call it.
    tvstring InputText(const char* what);

    // A secret typed twice on the terminal.
    tvstring TypedTwice(const std::string& prompt);

    // Standard input behind the passwords that were read from it.
    InputReader& Input() noexcept { return m_Input; }

private:
    tvstring Typed(const std::string& prompt);

    const Invocation& m_Invocation;
    InputReader m_Input;
};

// The text of a whole file, in the same way.
tvstring FileText(const std::string& path, const char* what);
