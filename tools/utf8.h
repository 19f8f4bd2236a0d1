/// Texts of the library as the terminal and files take them.
#pragma once

#include <string>

/// The wide text as UTF-8; half a surrogate pair becomes U+FFFD.
std::string ToUtf8(const wchar_t* text);
