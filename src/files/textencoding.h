// The two encodings of the program's text files. A file is Windows-1252, one byte a character, when every
// character fits, else UTF-8 as a whole; which of the two it is shows from its bytes alone.
#pragma once

#include <string>
#include <string_view>

namespace quorvane {

// True when the bytes are well-formed UTF-8 with at least one character of several bytes.
bool LooksLikeUtf8(std::string_view bytes);
std::string FromWindows1252(std::string_view bytes);
// The bytes that the file gets for a UTF-8 text, so that reading them gives the same text again.
std::string EncodedForFile(std::string text);

} // namespace quorvane
