// ReadMp3Info on hostile bytes: the memory core with a claimed file size, and
// the file function on the same bytes through a memfd, which must agree.

#include "MemFile.h"
#include "playlist/Mp3InfoMod.h"

#include <algorithm>
#include <cstring>
#include <initializer_list>
#include <string>
#include <string_view>

namespace {

using yarvo::Mp3Info;
using yarvo::fuzz::fail;

bool oneOf(const std::string& value, std::initializer_list<std::string_view> allowed) {
  return value.empty() || std::find(allowed.begin(), allowed.end(), value) != allowed.end();
}

bool decimal(const std::string& value) {
  return std::all_of(value.begin(), value.end(), [](char c) { return c >= '0' && c <= '9'; });
}

void checkValues(const Mp3Info& i, std::uint64_t fileSize) {
  if (!oneOf(i.Mode, {" Stereo", " Joint Stereo", " 2 Channel", " Mono"})) fail("Mode");
  if (!oneOf(i.Copyright, {" Yes", " No"}) || !oneOf(i.Original, {" Yes", " No"}))
    fail("Copyright or Original");
  if (!oneOf(i.Crc, {"Yes", "No"})) fail("Crc");
  if (!oneOf(i.Emphasis, {" None", " 50/15 microsec", " invalid", " CITT j. 17"})) fail("Emphasis");
  if (!oneOf(i.Layer, {"layer 1", "layer 2", "layer 3"}) ||
      !oneOf(i.Version, {"MPEG 1.0", "MPEG 2.0"}))
    fail("Layer or Version");
  if (!oneOf(i.Frequency, {"22050 Hz", "24000 Hz", "16000 Hz", "44100 Hz", "48000 Hz", "32000 Hz"}))
    fail("Frequency");
  if (!decimal(i.BitRate) || !decimal(i.Length)) fail("BitRate or Length not decimal");
  if (!i.FileSize.empty() && i.FileSize != std::to_string(fileSize)) fail("FileSize");
  const bool header = !i.Version.empty();
  if (header && (i.Crc.empty() || i.Layer.empty() || i.Frequency.empty() || i.BitRate.empty()))
    fail("header half filled");
  if (!header && (!i.BitRate.empty() || !i.Mode.empty() || !i.Length.empty() || i.FileSize.empty()))
    fail("no header but fields set");
  if (!i.Mode.empty() && (i.Length.empty() || i.FileSize.empty() || i.Emphasis.empty()))
    fail("tail half filled");
}

bool same(const Mp3Info& a, const Mp3Info& b) {
  return a.BitRate == b.BitRate && a.Mode == b.Mode && a.Copyright == b.Copyright &&
         a.Crc == b.Crc && a.Emphasis == b.Emphasis && a.Frequency == b.Frequency &&
         a.Layer == b.Layer && a.Length == b.Length && a.Version == b.Version &&
         a.Original == b.Original && a.FileSize == b.FileSize;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::span<const std::uint8_t> input(data, size);

  // First 8 bytes: a claimed size of the whole file, so that huge files are covered too.
  if (input.size() >= 8) {
    std::uint64_t claimed = 0;
    std::memcpy(&claimed, input.data(), sizeof claimed);
    Mp3Info info;
    yarvo::readMp3InfoBytes(input.subspan(8), claimed, info);
    checkValues(info, claimed);
  }

  Mp3Info fromMemory;
  yarvo::readMp3InfoBytes(input, input.size(), fromMemory);
  checkValues(fromMemory, input.size());
  const yarvo::fuzz::MemFile file(input);
  Mp3Info fromFile;
  yarvo::ReadMp3Info(file.path(), fromFile);
  if (!same(fromMemory, fromFile)) fail("file and memory readers disagree");
  return 0;
}
