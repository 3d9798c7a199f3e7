// How a command fails: with an exit code and a message for the user, thrown from where it is found out.
#pragma once

#include <exception>
#include <string>

#include "cli/exit_code.h"

class Failure : public std::exception {
public:
    // The message is UTF-8 without a line end and never holds a secret. An empty one prints nothing.
    Failure(ExitCode code, std::string message) : m_Code(code), m_Message(std::move(message)) {}

    // A file operation that failed with the thread's last error, whose text is put behind the message.
    static Failure OfFile(std::string message);

    [[nodiscard]] ExitCode Code() const noexcept { return m_Code; }
    [[nodiscard]] const char* what() const noexcept override { return m_Message.c_str(); }

private:
    ExitCode m_Code;
    std::string m_Message;
};

// One message on standard error, "vmr: ..." and a line end; whatever comes of it.
void PrintMessage(const std::string& message) noexcept;
