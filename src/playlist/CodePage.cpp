#include "playlist/CodePage.h"

#include <array>
#include <cstdint>

namespace yarvo {
namespace {

using HighHalf = std::array<char16_t, 128>;  // characters of the bytes 0x80..0xFF

// Windows-1250 as Microsoft publishes it (cp1250.txt); the five undefined
// bytes 0x81, 0x83, 0x88, 0x90, 0x98 keep their own value.
// clang-format off
constexpr HighHalf kCp1250 = {
    0x20AC, 0x0081, 0x201A, 0x0083, 0x201E, 0x2026, 0x2020, 0x2021,
    0x0088, 0x2030, 0x0160, 0x2039, 0x015A, 0x0164, 0x017D, 0x0179,
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
    0x0098, 0x2122, 0x0161, 0x203A, 0x015B, 0x0165, 0x017E, 0x017A,
    0x00A0, 0x02C7, 0x02D8, 0x0141, 0x00A4, 0x0104, 0x00A6, 0x00A7,
    0x00A8, 0x00A9, 0x015E, 0x00AB, 0x00AC, 0x00AD, 0x00AE, 0x017B,
    0x00B0, 0x00B1, 0x02DB, 0x0142, 0x00B4, 0x00B5, 0x00B6, 0x00B7,
    0x00B8, 0x0105, 0x015F, 0x00BB, 0x013D, 0x02DD, 0x013E, 0x017C,
    0x0154, 0x00C1, 0x00C2, 0x0102, 0x00C4, 0x0139, 0x0106, 0x00C7,
    0x010C, 0x00C9, 0x0118, 0x00CB, 0x011A, 0x00CD, 0x00CE, 0x010E,
    0x0110, 0x0143, 0x0147, 0x00D3, 0x00D4, 0x0150, 0x00D6, 0x00D7,
    0x0158, 0x016E, 0x00DA, 0x0170, 0x00DC, 0x00DD, 0x0162, 0x00DF,
    0x0155, 0x00E1, 0x00E2, 0x0103, 0x00E4, 0x013A, 0x0107, 0x00E7,
    0x010D, 0x00E9, 0x0119, 0x00EB, 0x011B, 0x00ED, 0x00EE, 0x010F,
    0x0111, 0x0144, 0x0148, 0x00F3, 0x00F4, 0x0151, 0x00F6, 0x00F7,
    0x0159, 0x016F, 0x00FA, 0x0171, 0x00FC, 0x00FD, 0x0163, 0x02D9,
};
// clang-format on

// Windows-1251 as Microsoft publishes it (cp1251.txt); 0x98 is undefined.
// clang-format off
constexpr HighHalf kCp1251 = {
    0x0402, 0x0403, 0x201A, 0x0453, 0x201E, 0x2026, 0x2020, 0x2021,
    0x20AC, 0x2030, 0x0409, 0x2039, 0x040A, 0x040C, 0x040B, 0x040F,
    0x0452, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
    0x0098, 0x2122, 0x0459, 0x203A, 0x045A, 0x045C, 0x045B, 0x045F,
    0x00A0, 0x040E, 0x045E, 0x0408, 0x00A4, 0x0490, 0x00A6, 0x00A7,
    0x0401, 0x00A9, 0x0404, 0x00AB, 0x00AC, 0x00AD, 0x00AE, 0x0407,
    0x00B0, 0x00B1, 0x0406, 0x0456, 0x0491, 0x00B5, 0x00B6, 0x00B7,
    0x0451, 0x2116, 0x0454, 0x00BB, 0x0458, 0x0405, 0x0455, 0x0457,
    0x0410, 0x0411, 0x0412, 0x0413, 0x0414, 0x0415, 0x0416, 0x0417,
    0x0418, 0x0419, 0x041A, 0x041B, 0x041C, 0x041D, 0x041E, 0x041F,
    0x0420, 0x0421, 0x0422, 0x0423, 0x0424, 0x0425, 0x0426, 0x0427,
    0x0428, 0x0429, 0x042A, 0x042B, 0x042C, 0x042D, 0x042E, 0x042F,
    0x0430, 0x0431, 0x0432, 0x0433, 0x0434, 0x0435, 0x0436, 0x0437,
    0x0438, 0x0439, 0x043A, 0x043B, 0x043C, 0x043D, 0x043E, 0x043F,
    0x0440, 0x0441, 0x0442, 0x0443, 0x0444, 0x0445, 0x0446, 0x0447,
    0x0448, 0x0449, 0x044A, 0x044B, 0x044C, 0x044D, 0x044E, 0x044F,
};
// clang-format on

constexpr char kNoByte = '?';

char32_t characterOf(unsigned char byte, CodePage page) noexcept {
  if (byte < 0x80 || page == CodePage::Latin1) return byte;
  const HighHalf& half = page == CodePage::Cp1250 ? kCp1250 : kCp1251;
  return half[byte - 0x80u];
}

void appendUtf8(std::string& out, char32_t c) {
  if (c < 0x80) {
    out.push_back(static_cast<char>(c));
  } else if (c < 0x800) {
    out.push_back(static_cast<char>(0xC0 | (c >> 6)));
    out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
  } else {  // the tables hold nothing above U+FFFF
    out.push_back(static_cast<char>(0xE0 | (c >> 12)));
    out.push_back(static_cast<char>(0x80 | ((c >> 6) & 0x3F)));
    out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
  }
}

struct Decoded {
  char32_t character;  // kInvalid for malformed input
  std::size_t length;  // bytes taken, at least 1
};
constexpr char32_t kInvalid = 0xFFFFFFFF;

// One UTF-8 character at the front of text, which is not empty. Overlong
// forms, surrogates and values above U+10FFFF are malformed; a malformed
// sequence takes one byte, so the next call resynchronises.
Decoded decodeUtf8(std::string_view text) noexcept {
  const auto lead = static_cast<unsigned char>(text[0]);
  if (lead < 0x80) return {lead, 1};
  // Lead byte -> sequence length; 0x80..0xC1 and 0xF5..0xFF never lead.
  const std::size_t length = lead >= 0xC2 && lead <= 0xDF   ? 2
                             : lead >= 0xE0 && lead <= 0xEF ? 3
                             : lead >= 0xF0 && lead <= 0xF4 ? 4
                                                            : 0;
  if (length == 0) return {kInvalid, 1};
  constexpr char32_t kMinimum[] = {0, 0, 0x80, 0x800, 0x10000};
  char32_t c = lead & (0x7Fu >> length);
  if (text.size() < length) return {kInvalid, 1};
  for (std::size_t k = 1; k < length; ++k) {
    const auto next = static_cast<unsigned char>(text[k]);
    if ((next & 0xC0) != 0x80) return {kInvalid, 1};
    c = (c << 6) | (next & 0x3Fu);
  }
  if (c < kMinimum[length] || c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF)) return {kInvalid, 1};
  return {c, length};
}

char32_t windows1250Fallback(char32_t c) noexcept {
  switch (c) {
    case 0x0218:
      return 0x015E;  // Ș -> Ş
    case 0x0219:
      return 0x015F;  // ș -> ş
    case 0x021A:
      return 0x0162;  // Ț -> Ţ
    case 0x021B:
      return 0x0163;  // ț -> ţ
    default:
      return c;
  }
}

char byteOf(char32_t c, CodePage page) noexcept {
  if (c < 0x80 || (page == CodePage::Latin1 && c <= 0xFF)) return static_cast<char>(c);
  if (page == CodePage::Latin1 || c == kInvalid) return kNoByte;
  if (page == CodePage::Cp1250) c = windows1250Fallback(c);
  const HighHalf& half = page == CodePage::Cp1250 ? kCp1250 : kCp1251;
  for (std::size_t k = 0; k < half.size(); ++k) {
    if (half[k] == c) return static_cast<char>(0x80 + k);
  }
  return kNoByte;
}

}  // namespace

std::string_view codePageName(CodePage page) noexcept {
  switch (page) {
    case CodePage::Cp1250:
      return "cp1250";
    case CodePage::Cp1251:
      return "cp1251";
    case CodePage::Latin1:
      break;
  }
  return "latin1";
}

std::optional<CodePage> codePageFromName(std::string_view name) noexcept {
  for (CodePage page : {CodePage::Latin1, CodePage::Cp1250, CodePage::Cp1251}) {
    if (codePageName(page) == name) return page;
  }
  return std::nullopt;
}

void appendCodePageText(std::string& out, std::string_view bytes, CodePage page) {
  for (std::size_t i = 0; i < bytes.size();) {
    // The lower half is ASCII in every one of these code pages and in UTF-8:
    // it goes across in runs.
    std::size_t ascii = i;
    while (ascii < bytes.size() && static_cast<unsigned char>(bytes[ascii]) < 0x80) ++ascii;
    out.append(bytes.substr(i, ascii - i));
    if (ascii == bytes.size()) break;
    appendUtf8(out, characterOf(static_cast<unsigned char>(bytes[ascii]), page));
    i = ascii + 1;
  }
}

std::string codePageToUtf8(std::string_view bytes, CodePage page) {
  std::string out;
  out.reserve(bytes.size() * 2);
  appendCodePageText(out, bytes, page);
  return out;
}

std::string utf8ToCodePage(std::string_view utf8, CodePage page) {
  std::string out;
  out.reserve(utf8.size());
  while (!utf8.empty()) {
    const Decoded d = decodeUtf8(utf8);
    out.push_back(byteOf(d.character, page));
    utf8.remove_prefix(d.length);
  }
  return out;
}

}  // namespace yarvo
