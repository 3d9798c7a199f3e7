// Reads standard input or a file, whose bytes may be secrets: all of them are kept in storage that is wiped.
#pragma once

#include <string>

#include "foundation/secret_bytes.h"
#include "foundation/tvstring.h"
#include "platform/terminal.h"

class InputReader {
public:
    // Standard input.
    InputReader() noexcept : m_File(platform::StandardInput()), m_What("standard input") {}

    // A file of any kind, pipes included. Throws a Failure if it cannot be opened.
    explicit InputReader(const std::string& path);
    ~InputReader();
    InputReader(const InputReader&) = delete;
    InputReader& operator=(const InputReader&) = delete;

    // Both throw a Failure if reading fails.

    // The next line without its end (LF or CR LF), and without a UTF-8 mark in front of the first. False at
    // the end of the input, where no line follows.
    bool ReadLine(tvstringA& line);

    // All that is left.
    void ReadRest(tvstringA& bytes);

    // What messages call it.
    [[nodiscard]] const std::string& What() const noexcept { return m_What; }

private:
    static constexpr std::size_t kBufferSize = 16'384;

    bool Fill();

    platform::InputFile m_File;
    std::string m_What;
    bool m_Owned = false;
    bool m_AtStart = true;
    SecretBytes<kBufferSize> m_Buffer;
    std::size_t m_Place = 0;
    std::size_t m_Size = 0;
};
