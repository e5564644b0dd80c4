#pragma once

// 8-bit text of ID3v1 tags <-> UTF-8, the program's own text.
//
// A tag holds single-byte text in whatever code page its writer used; the
// player cannot tell which, so the user picks one and it applies to every tag
// read and written. The choice is stored by its stable name.

#include <optional>
#include <string>
#include <string_view>

namespace yarvo {

enum class CodePage {
  Latin1,  // ISO-8859-1, the default
  Cp1250,  // Windows-1250: Romanian and Central European
  Cp1251,  // Windows-1251: Cyrillic
};

inline constexpr CodePage kDefaultCodePage = CodePage::Latin1;

// "latin1", "cp1250", "cp1251": the names the settings store. Never change them.
std::string_view codePageName(CodePage page) noexcept;

// The code page of a stored name (exact, lower case); nullopt for any other text.
std::optional<CodePage> codePageFromName(std::string_view name) noexcept;

// Every byte becomes one character. Bytes that the code page leaves undefined
// (0x81 in Windows-1250, for example) become the C1 control of the same value,
// as Windows itself reads them, so that a read and a write give the bytes back.
std::string codePageToUtf8(std::string_view bytes, CodePage page);
// The same, appended to `out`.
void appendCodePageText(std::string& out, std::string_view bytes, CodePage page);

// Every character becomes one byte: the result has as many bytes as the text
// has characters. A character without a byte in the code page, and every byte
// of malformed UTF-8, becomes "?". In Windows-1250 the Romanian letters with a
// comma below (U+0218..U+021B) are written as the same letters with a cedilla,
// the only form that code page has of them.
std::string utf8ToCodePage(std::string_view utf8, CodePage page);

}  // namespace yarvo
