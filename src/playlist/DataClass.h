#pragma once
// The line file: the one reader and writer of every list-shaped file.
//
// A line file is plain 8-bit text, one row per line, each line ended by CR LF
// (the last one too). The reader also ends a line at a lone CR, and at a lone
// LF so that files written by hand on Linux load; it cuts trailing blanks (' '
// only) and keeps empty rows. There is no header, escape or quoting. Bytes
// pass through unchanged: the program's text is UTF-8 and so are the files.

#include <string>
#include <string_view>

#include "core/Conversions.h"
#include "platform/Files.h"

namespace yarvo {

class StringList;

// Appends the rows of `TheFile` to `TheListBox`, which is not cleared first.
// An empty name, or a file that cannot be read, leaves the list as it was.
void IncarcaData(const std::string& TheFile, StringList& TheListBox);

// Replaces `TheFile` with the rows of `TheListBox`. A write that fails leaves
// the old file whole (see WriteFileAtomically) and is not reported.
void SalveazaData(const std::string& TheFile, const StringList& TheListBox,
                  Durability durability = Durability::Disk);

// The reader's rule on bytes already read: calls `row` for each row.
template <class RowSink>
void SplitLines(std::string_view bytes, RowSink&& row);

template <class RowSink>
void SplitLines(std::string_view bytes, RowSink&& row) {
  std::size_t start = 0;
  while (start < bytes.size()) {
    std::size_t end = start;
    while (end < bytes.size() && bytes[end] != '\r' && bytes[end] != '\n') ++end;
    row(RTrim(bytes.substr(start, end - start)));
    if (end == bytes.size()) return;
    start = end + 1;
    if (bytes[end] == '\r' && start < bytes.size() && bytes[start] == '\n') ++start;
  }
}

}  // namespace yarvo
