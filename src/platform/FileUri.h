#pragma once
// File addresses as file managers and the desktop bus hand them over
// ("file:///music/My%20Song.mp3"), turned back into the bytes of a local
// path. Percent escapes are decoded byte for byte, so a name that is not
// UTF-8 arrives as it stands on disk.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace yarvo {

// The local path of one address; nothing for another scheme, another host,
// or a malformed escape.
std::optional<std::string> LocalPathOfUri(std::string_view uri);

// The address of a local path: every byte but the unreserved ones and '/'
// escaped.
std::string UriOfLocalPath(std::string_view path);

// The local paths of a text/uri-list (CR LF or LF lines, '#' comments);
// nothing when any entry is not a local file or the list is empty.
std::optional<std::vector<std::string>> LocalPathsOfUriList(std::string_view list);

}  // namespace yarvo
