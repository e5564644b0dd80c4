#include "MediaFiles.h"

#include <cstdlib>
#include <fstream>
#include <string>

namespace yarvo::test {
namespace {

bool runFfmpeg(const std::string& arguments, const std::filesystem::path& output) {
  const std::string command = "ffmpeg -nostdin -hide_banner -loglevel error -y " + arguments +
                              " \"" + output.string() + "\"";
  return std::system(command.c_str()) == 0 && std::filesystem::exists(output);
}

}  // namespace

const MediaFiles& MediaFiles::get() {
  static const MediaFiles files;
  return files;
}

MediaFiles::MediaFiles() {
  std::ofstream(broken()) << "This is plain text, not a movie.\n";
  ready_ = runFfmpeg(
               "-f lavfi -i testsrc=size=320x240:rate=25 -f lavfi -i sine=frequency=440 "
               "-t 4 -c:v mpeg4 -q:v 5 -c:a pcm_s16le",
               video()) &&
           runFfmpeg("-f lavfi -i sine=frequency=440:duration=3 -ac 2 -c:a flac", audio()) &&
           runFfmpeg(
               "-f lavfi -i sine=frequency=440:duration=2 "
               "-f lavfi -i color=c=red:size=64x64:duration=0.04 -map 0:a -map 1:v "
               "-c:a flac -c:v png -frames:v 1 -disposition:v attached_pic",
               withCover());
}

}  // namespace yarvo::test
