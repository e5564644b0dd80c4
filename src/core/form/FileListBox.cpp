#include "core/form/FileListBox.h"

#include <algorithm>
#include <filesystem>
#include <vector>

#include "core/form/RuntimeError.h"

namespace yarvo {

namespace {

char Fold(char c) { return (c >= 'a' && c <= 'z') ? static_cast<char>(c - 'a' + 'A') : c; }

// Glob match with backtracking to the last "*": linear in practice for the
// short patterns of a file filter.
bool Glob(std::string_view name, std::string_view pattern) {
  std::size_t n = 0, p = 0;
  std::size_t starP = std::string_view::npos, starN = 0;
  while (n < name.size()) {
    if (p < pattern.size() && pattern[p] == '*') {
      starP = p++;
      starN = n;
    } else if (p < pattern.size() && (pattern[p] == '?' || Fold(pattern[p]) == Fold(name[n]))) {
      ++p;
      ++n;
    } else if (starP != std::string_view::npos) {
      p = starP + 1;
      n = ++starN;
    } else {
      return false;
    }
  }
  while (p < pattern.size() && pattern[p] == '*') ++p;
  return p == pattern.size();
}

}  // namespace

bool MatchesPattern(std::string_view name, std::string_view pattern) {
  std::size_t start = 0;
  while (start <= pattern.size()) {
    const std::size_t end = std::min(pattern.find(';', start), pattern.size());
    const std::string_view one = pattern.substr(start, end - start);
    if (!one.empty() && Glob(name, one)) return true;
    start = end + 1;
  }
  return false;
}

bool ListingOrder(const std::string& a, const std::string& b) {
  const std::size_t common = std::min(a.size(), b.size());
  for (std::size_t i = 0; i < common; ++i) {
    const auto x = static_cast<unsigned char>(Fold(a[i]));
    const auto y = static_cast<unsigned char>(Fold(b[i]));
    if (x != y) return x < y;
  }
  if (a.size() != b.size()) return a.size() < b.size();
  return a < b;
}

FileListBox::FileListBox(std::string pattern) : pattern_(std::move(pattern)) {}

void FileListBox::Path(const std::string& folder) {
  if (folder == path_) return;
  path_ = folder;
  Refresh();
}

void FileListBox::Refresh() {
  Clear();
  namespace fs = std::filesystem;
  std::error_code error;
  fs::directory_iterator entries(path_, error);
  if (error) throw err::PathNotFound();
  std::vector<std::string> names;
  for (const auto& entry : entries) {
    std::error_code ignored;
    if (!entry.is_regular_file(ignored)) continue;
    std::string name = entry.path().filename().string();
    if (MatchesPattern(name, pattern_)) names.push_back(std::move(name));
  }
  std::sort(names.begin(), names.end(), ListingOrder);
  for (auto& name : names) AddItem(std::move(name));
}

}  // namespace yarvo
