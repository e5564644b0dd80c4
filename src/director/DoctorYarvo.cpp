#include "director/DoctorYarvo.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <string_view>

#include "director/Program.h"
#include "engines/media/SoundFont.h"
#include "platform/Desktop.h"

namespace yarvo {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kMidiFile = "a MIDI file";

// The first bytes of a file, or why they could not be read.
struct Head {
  std::string bytes;
  int error = 0;
};

Head ReadHead(const std::string& path) {
  Head head;
  // Non-blocking, should the path have become a FIFO since it was looked at.
  const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (fd < 0) {
    head.error = errno;
    return head;
  }
  std::array<char, 64> buffer{};
  const ssize_t n = ::read(fd, buffer.data(), buffer.size());
  if (n < 0) head.error = errno;
  if (n > 0) head.bytes.assign(buffer.data(), static_cast<std::size_t>(n));
  ::close(fd);
  return head;
}

bool StartsWith(std::string_view bytes, std::string_view magic, std::size_t at = 0) {
  return bytes.size() >= at + magic.size() && bytes.substr(at, magic.size()) == magic;
}

// The kind of media the first bytes announce, or "" for none we know.
std::string MediaKind(std::string_view b) {
  if (StartsWith(b, "ID3")) return "an MP3 file";
  if (b.size() >= 2 && static_cast<unsigned char>(b[0]) == 0xFF &&
      (static_cast<unsigned char>(b[1]) & 0xE0) == 0xE0)
    return "an MPEG audio file";
  if (StartsWith(b, "RIFF") && StartsWith(b, "WAVE", 8)) return "a WAV file";
  if (StartsWith(b, "RIFF") && StartsWith(b, "AVI ", 8)) return "an AVI video";
  if (StartsWith(b, "RIFF") && StartsWith(b, "CDDA", 8)) return "a CD track link (.cda)";
  if (StartsWith(b, "OggS")) return "an Ogg file";
  if (StartsWith(b, "fLaC")) return "a FLAC file";
  if (StartsWith(b, "ftyp", 4)) return "an MP4 or QuickTime file";
  if (StartsWith(b, "\x1A\x45\xDF\xA3")) return "a Matroska or WebM video";
  if (StartsWith(b, "\x30\x26\xB2\x75\x8E\x66\xCF\x11")) return "a Windows Media file";
  if (StartsWith(b, "MThd") || (StartsWith(b, "RIFF") && StartsWith(b, "RMID", 8)))
    return std::string(kMidiFile);
  if (StartsWith(b, std::string_view("\x00\x00\x01\xBA", 4))) return "an MPEG video";
  if (StartsWith(b, "FLV")) return "a Flash video";
  if (StartsWith(b, "FORM") && StartsWith(b, "AIFF", 8)) return "an AIFF file";
  if (StartsWith(b, "Extended Module:") || StartsWith(b, "IMPM") || StartsWith(b, "SCRM", 44))
    return "a tracker module";
  return {};
}

bool IsWebAddress(const std::string& path) { return path.find("://") != std::string::npos; }

}  // namespace

std::string DoctorYarvo::Diagnose(const std::string& path) {
  if (path.empty()) return "No file was given to play.";
  const std::string quoted = "\"" + path + "\"";
  if (IsWebAddress(path)) {
    return quoted +
           " is a web address. Yarvo Player plays files on this computer: download it first, "
           "then open the downloaded file.";
  }
  std::error_code error;
  const auto status = fs::status(path, error);
  if (!fs::exists(status)) {
    return "The file " + quoted +
           " does not exist. It may have been moved, renamed or deleted; "
           "remove it from the playlist or add it again from its new place.";
  }
  if (fs::is_directory(status)) {
    return quoted +
           " is a folder, not a file. Use \"Add folder\" to put the media it holds on the "
           "playlist.";
  }
  if (!fs::is_regular_file(status)) {
    return quoted +
           " is a pipe or a device, not a file. Yarvo Player plays media files and does not "
           "read from pipes or devices.";
  }
  const Head head = ReadHead(path);
  if (head.error != 0) {
    return "Yarvo Player may not read " + quoted + " (" + std::strerror(head.error) +
           "). Check the file's permissions.";
  }
  if (head.bytes.empty())
    return "The file " + quoted + " is empty (0 bytes): there is nothing in it to play.";
  const std::string kind = MediaKind(head.bytes);
  if (kind == kMidiFile && !findGeneralMidiSoundFont()) {
    return quoted +
           " is a MIDI file: it holds notes, not sound, and Yarvo Player needs a General MIDI "
           "sound font to play them. None is installed: install the package "
           "timgm6mb-soundfont (or the fuller fluid-soundfont-gm), then play the file again.";
  }
  if (!kind.empty()) {
    return quoted + " looks like " + kind +
           ", but it could not be played. It may be damaged or cut short, "
           "or it needs a decoder this computer does not have.";
  }
  return quoted +
         " does not look like a media file that Yarvo Player knows. It may be another kind of "
         "file with a media name.";
}

void DoctorYarvo::Repair(const std::string& path) {
  program().desktop().MsgBox(Diagnose(path), "Doctor Yarvo");
}

}  // namespace yarvo
