#pragma once
// Where the player keeps its files: the program folder that every data path
// of the program is joined to.
//
// A player started from a folder that holds what ships with it (a build
// folder, an unpacked copy) and that it may write to keeps its files there:
// the folder is the player's own. Any other player, an installed one above
// all (bin/yarvo-player beside share/yarvo-player/), keeps them in the user's
// data folder, $XDG_DATA_HOME/yarvo-player/ (~/.local/share/yarvo-player/ by
// default), and never writes where it was installed. Each start copies into
// the user's folder what ships and is missing there; nothing the user has is
// overwritten.

#include <filesystem>
#include <functional>

namespace yarvo {

struct ProgramFolderPlaces {
  std::filesystem::path executableFolder;
  // What an installation ships beside bin/: share/yarvo-player/.
  std::filesystem::path shippedData;
  // UserDataFolder(); empty when the user has no home.
  std::filesystem::path userData;
};

// $XDG_DATA_HOME/yarvo-player when XDG_DATA_HOME is an absolute path (a
// relative one is to be ignored), else <home>/.local/share/yarvo-player;
// empty when neither is known. Null or empty arguments are unset.
std::filesystem::path UserDataFolder(const char* xdgDataHome, const char* home);

// Whether `folder` holds what ships with the player: its Data and Skins folders.
bool HoldsShippedData(const std::filesystem::path& folder);

// Copies every file under `from` that `to` lacks, making the folders on the
// way. A file that exists, whatever its content, is left alone; a copy that
// fails is skipped. Copies belong to the user, who may write them even when
// the shipped files were read-only: the saves leave alone a file nobody may
// write.
void CopyMissingFiles(const std::filesystem::path& from, const std::filesystem::path& to);

// The rule above. Makes and fills the user's folder when it is the one;
// with no user folder known, the executable's folder stays the program
// folder. `mayWrite` tells whether the process may write in a folder.
std::filesystem::path ChooseProgramFolder(
    const ProgramFolderPlaces& places,
    const std::function<bool(const std::filesystem::path&)>& mayWrite);

// Whether this process may create files in `folder`.
bool MayWrite(const std::filesystem::path& folder);

}  // namespace yarvo
