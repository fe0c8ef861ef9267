/// \file
/// Text of foreign files as UTF-8.

#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace vrn::orlo::host::geometry {

/// A name on one line: control characters and bytes that are no UTF-8 give way to a space, outer
/// blanks go.
[[nodiscard]] std::string cleanName(std::string_view utf8);

/// Encoding of the bytes above 127 in texts, as the converter's name: empty when there are none or
/// when they are UTF-8 already, else for instance "Shift_JIS", "GB18030" or "windows-1252".
///
/// \param texts the quoted texts that hold such bytes, set apart by blanks. Names are short, so the
///              guess rests on whether the bytes are common letters of an encoding.
[[nodiscard]] std::string guessEncoding(std::string_view texts);

/// The encoding of the quoted texts of a file; one pass over the file, keeping little of it.
[[nodiscard]] std::string encodingOfQuotedTexts(std::filesystem::path const& file);

/// The whole file, its lines changed from the encoding to UTF-8.
[[nodiscard]] std::string readAsUtf8(std::filesystem::path const& file,
                                     std::string const& encoding);

}  // namespace vrn::orlo::host::geometry
