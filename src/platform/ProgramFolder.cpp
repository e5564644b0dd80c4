#include "platform/ProgramFolder.h"

#include <unistd.h>

#include <system_error>

namespace yarvo {

namespace fs = std::filesystem;

namespace {

constexpr const char* kFolderName = "yarvo-player";

bool IsSet(const char* value) { return value != nullptr && *value != '\0'; }

void CopyMissingFile(const fs::path& from, const fs::path& to) {
  std::error_code error;
  if (fs::exists(fs::symlink_status(to, error))) return;
  fs::create_directories(to.parent_path(), error);
  if (error || !fs::copy_file(from, to, fs::copy_options::skip_existing, error)) return;
  fs::permissions(to, fs::perms::owner_read | fs::perms::owner_write, fs::perm_options::add, error);
}

}  // namespace

fs::path UserDataFolder(const char* xdgDataHome, const char* home) {
  if (IsSet(xdgDataHome) && fs::path(xdgDataHome).is_absolute())
    return fs::path(xdgDataHome) / kFolderName;
  if (IsSet(home)) return fs::path(home) / ".local/share" / kFolderName;
  return {};
}

bool HoldsShippedData(const fs::path& folder) {
  std::error_code error;
  return fs::is_directory(folder / "Data", error) && fs::is_directory(folder / "Skins", error);
}

void CopyMissingFiles(const fs::path& from, const fs::path& to) {
  std::error_code error;
  fs::recursive_directory_iterator entry(from, error), end;
  for (; !error && entry != end; entry.increment(error)) {
    const fs::path target = to / fs::relative(entry->path(), from, error);
    if (error) return;
    if (entry->is_directory(error)) {
      fs::create_directories(target, error);
      error.clear();  // a folder that cannot be made fails its files one by one
    } else if (entry->is_regular_file(error)) {
      CopyMissingFile(entry->path(), target);
    }
  }
}

fs::path ChooseProgramFolder(const ProgramFolderPlaces& places,
                             const std::function<bool(const fs::path&)>& mayWrite) {
  const fs::path& own = places.executableFolder;
  if (places.userData.empty() || (HoldsShippedData(own) && mayWrite(own))) return own;
  std::error_code error;
  fs::create_directories(places.userData, error);
  if (HoldsShippedData(places.shippedData)) CopyMissingFiles(places.shippedData, places.userData);
  // One folder, one spelling: the instance lock is named after it.
  const fs::path folder = fs::weakly_canonical(places.userData, error);
  return error ? places.userData : folder;
}

bool MayWrite(const fs::path& folder) { return ::access(folder.c_str(), W_OK) == 0; }

}  // namespace yarvo
