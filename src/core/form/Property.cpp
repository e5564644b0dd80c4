#include "core/form/Property.h"

namespace yarvo {

std::uint64_t& modelRevision() {
  static std::uint64_t revision = 0;
  return revision;
}

PropertyOwner::~PropertyOwner() {
  // No property made later may take a dead owner.
  if (detail::constructingOwner == this) detail::constructingOwner = nullptr;
}

}  // namespace yarvo
