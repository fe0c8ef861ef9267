/// \file
/// A model file that cannot be read or written.

#pragma once

#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <utility>

namespace vrn::orlo::host::modelfile {

/// what() is one line for the user: "FILE: what is wrong; the mend". Control characters, which may
/// come with names, are shown as '?'.
class ModelFileError : public std::runtime_error {
public:
    ModelFileError(std::filesystem::path file, std::string const& wrong, std::string mend)
        : std::runtime_error(inOneLine(file.string() + ": " + wrong + "; " + mend)),
          m_file(std::move(file)),
          m_mend(std::move(mend))
    {
    }

    [[nodiscard]] std::filesystem::path const& file() const noexcept { return m_file; }
    [[nodiscard]] std::string const& mend() const noexcept { return m_mend; }

private:
    [[nodiscard]] static std::string inOneLine(std::string text)
    {
        std::replace_if(
            text.begin(), text.end(), [](unsigned char c) { return c < 0x20 || c == 0x7F; }, '?');
        return text;
    }

    std::filesystem::path m_file;
    std::string m_mend;
};

}  // namespace vrn::orlo::host::modelfile
