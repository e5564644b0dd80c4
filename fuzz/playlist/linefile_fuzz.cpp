// The line-file reader on hostile bytes. Checks the rules every list file
// relies on: no row holds a line break or ends in a blank, the rows come in
// file order, and a list written back as CR LF lines reads as itself.

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "playlist/DataClass.h"

namespace {

[[noreturn]] void Fail(const char* what) {
  std::fprintf(stderr, "linefile: %s\n", what);
  std::abort();
}

std::vector<std::string> Rows(std::string_view bytes) {
  std::vector<std::string> rows;
  yarvo::SplitLines(bytes, [&](std::string row) { rows.push_back(std::move(row)); });
  return rows;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const std::vector<std::string> rows = Rows(bytes);

  std::size_t from = 0;  // where the next row must begin in the input
  for (const std::string& row : rows) {
    if (row.find_first_of("\r\n") != std::string::npos) Fail("a row holds a line break");
    if (!row.empty() && row.back() == ' ') Fail("a row ends in a blank");
    if (bytes.compare(from, row.size(), row) != 0) Fail("a row is not the next line's text");
    const std::size_t end = bytes.find_first_of("\r\n", from);
    if (end == std::string_view::npos) {
      from = bytes.size();
      continue;
    }
    from = end + 1;
    if (bytes[end] == '\r' && from < bytes.size() && bytes[from] == '\n') ++from;
  }
  if (from != bytes.size()) Fail("bytes left over behind the last row");

  std::string written;
  for (const std::string& row : rows) written += row + "\r\n";
  if (Rows(written) != rows) Fail("a written list does not read back as itself");
  return 0;
}
