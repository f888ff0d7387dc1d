// Text files of the program are in the Windows-1252 code page; inside, every text is UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace torvale {

// Whether the bytes are UTF-8 from the first to the last.
bool IsUtf8(std::string_view bytes);

// UTF-8 of a text in the code page. The five bytes that the page leaves open become the control characters of the same
// number, so that any bytes come back as they were.
std::string FromCodePage(std::string_view bytes);

// The text in the code page, "?" for each character that the page lacks and for each byte that is no UTF-8.
std::string ToCodePage(std::string_view utf8);

}  // namespace torvale
