#pragma once
// Whole-file reads and crash-safe writes.

#include <optional>
#include <string>
#include <string_view>

namespace yarvo {

// The bytes of the file, or nothing when it cannot be opened or read.
std::optional<std::string> ReadWholeFile(const std::string& path);

// Replaces `path` with `bytes` so that no crash or failure leaves a short
// file: the bytes go to a temporary file beside the target, are flushed to the
// disk, and the temporary file is renamed over the target. On failure the old
// file stays as it was and false is returned.
bool WriteFileAtomically(const std::string& path, std::string_view bytes);

}  // namespace yarvo
