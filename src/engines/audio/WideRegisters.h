#pragma once
// Whether the effects run their frame loops for AVX2 and FMA, or those for
// SSE: the wide ones where the processor has both. Tests turn them off to
// check the others as well.

namespace yarvo::audio {

// Output thread, once a block.
[[nodiscard]] bool wideRegisters() noexcept;

// Asking for the wide loops without the processor's support does nothing.
// Returns whether they are in use.
bool useWideRegisters(bool wanted) noexcept;

}  // namespace yarvo::audio
