#pragma once
// Doctor Yarvo: called with the path of a file that would not play. It looks
// at the file and tells the user, in plain words, the most likely reason:
// missing, a folder, unreadable, empty, a web address, or not a media file
// at all; for a file that looks like media, that it may be damaged or need a
// decoder this computer lacks. It changes nothing on disk and shows one
// message; the player goes on behind it.

#include <string>

namespace yarvo {

class DoctorYarvo {
 public:
  // What Repair tells the user about `path`.
  static std::string Diagnose(const std::string& path);
  // Shows the diagnosis in a message box.
  void Repair(const std::string& path);
};

}  // namespace yarvo
