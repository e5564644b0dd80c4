#include "support/TempDir.h"

#include <cstdlib>
#include <stdexcept>
#include <string>

namespace yarvo::test {

TempDir::TempDir() {
  std::string pattern = (std::filesystem::temp_directory_path() / "yarvo-test-XXXXXX").string();
  if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("mkdtemp failed");
  path_ = pattern;
}

TempDir::~TempDir() {
  std::error_code ignored;
  // A test may have taken its own rights away to make a write fail.
  std::filesystem::permissions(path_, std::filesystem::perms::owner_all,
                               std::filesystem::perm_options::add, ignored);
  std::filesystem::remove_all(path_, ignored);
}

}  // namespace yarvo::test
