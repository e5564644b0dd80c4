#pragma once
// The file lister of the store (DataForm.File1): the names of the files of one
// folder that match a multiple pattern, sorted by name, as an ordered string
// list whose rows are file names without their folder.
//
// Writing a different Path re-reads the folder; writing the folder it already
// shows keeps the rows as they are (the folder walk writes the same path at
// every step and relies on that), and Refresh() re-reads it in any case. A
// folder that cannot be listed gives no rows and raises PathNotFound.

#include <string>
#include <string_view>

#include "core/form/StringList.h"

namespace yarvo {

// The pattern of DataForm.File1, the folder walk's lister. "*rmi" and "*3gp"
// have no dot on purpose: they match any name that ends in those letters.
inline constexpr const char* kMediaFilePattern =
    "*.mp3;*.mp4;*.wav;*.mpg;*.avi;*.mov;*.wmv;*.mpv;*.mpe;*.mpa;*.qt;*.ogm;*.snd;*rmi;*.divx;"
    "*.wma;*.mpeg;*.cda;*.mp2;*.mp1;*.mid;*.midi;*.vob;*.dat;*.asf;*.flv;*.M2V;*3gp";

class FileListBox : public StringList {
 public:
  // `pattern`: alternatives separated by ";", each with "*" for any run of
  // characters and "?" for one byte, compared without regard to ASCII case.
  explicit FileListBox(std::string pattern);

  const std::string& Pattern() const { return pattern_; }
  const std::string& Path() const { return path_; }
  void Path(const std::string& folder);
  void Refresh();

 private:
  std::string pattern_;
  std::string path_;
};

// Whether `name` matches one of the ";"-separated alternatives of `pattern`.
bool MatchesPattern(std::string_view name, std::string_view pattern);

// The names in listing order: ASCII case folded first, bytes as the tie-break,
// so that the order does not depend on the file system's.
bool ListingOrder(const std::string& a, const std::string& b);

}  // namespace yarvo
