#include "playlist/DataClass.h"

#include "core/form/StringList.h"
#include "platform/Files.h"

namespace yarvo {

void IncarcaData(const std::string& TheFile, StringList& TheListBox) {
  if (TheFile.empty()) return;
  const auto bytes = ReadWholeFile(TheFile);
  if (!bytes) return;
  SplitLines(*bytes, [&](std::string row) { TheListBox.AddItem(std::move(row)); });
}

void SalveazaData(const std::string& TheFile, const StringList& TheListBox, Durability durability) {
  std::string bytes;
  for (int i = 0; i < TheListBox.ListCount(); ++i) {
    bytes += TheListBox.List(i);
    bytes += "\r\n";
  }
  WriteFileAtomically(TheFile, bytes, durability);
}

}  // namespace yarvo
