#include "core/form/Property.h"

namespace yarvo {

std::uint64_t& modelRevision() {
  static std::uint64_t revision = 0;
  return revision;
}

}  // namespace yarvo
