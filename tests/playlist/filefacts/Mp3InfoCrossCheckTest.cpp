// The MPEG header reader against tools no one here wrote: ffmpeg encodes,
// ffprobe and mpg123 describe, and the reader must agree with them except
// where its own rules differ on purpose. Each such difference is a named
// expectation of the case.

#include "playlist/Id3Tag.h"
#include "playlist/Mp3InfoMod.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <memory>
#include <regex>
#include <string>

#include "support/TempDir.h"

namespace yarvo {
namespace {

std::string run(const std::string& command) {
  std::string out;
  const std::unique_ptr<FILE, int (*)(FILE*)> pipe(::popen(command.c_str(), "r"), ::pclose);
  if (!pipe) return out;
  std::array<char, 4096> buffer{};
  std::size_t n = 0;
  while ((n = std::fread(buffer.data(), 1, buffer.size(), pipe.get())) > 0)
    out.append(buffer.data(), n);
  return out;
}

bool haveTool(const char* name) {
  return std::system((std::string("command -v ") + name + " >/dev/null 2>&1").c_str()) == 0;
}

// ffprobe's "flat" output as key -> value, quotes removed.
std::map<std::string, std::string> probe(const std::filesystem::path& file) {
  std::map<std::string, std::string> values;
  const std::string out =
      run("ffprobe -v error -show_streams -show_format -of flat '" + file.string() + "'");
  const std::regex line(R"re(([\w.]+)="?([^"\n]*)"?)re");
  for (auto it = std::sregex_iterator(out.begin(), out.end(), line); it != std::sregex_iterator();
       ++it)
    values[(*it)[1]] = (*it)[2];
  return values;
}

struct Mpg123Header {
  std::string version;  // "1.0", "2.0"
  std::string layer;    // "I", "II", "III"
  std::string mode;     // "Stereo", "Joint-Stereo", "Dual-Channel", "Single-Channel"
};

Mpg123Header mpg123Header(const std::filesystem::path& file) {
  const std::string out = run("mpg123 -vv -t -n 2 '" + file.string() + "' 2>&1");
  std::smatch m;
  const std::regex header(R"(MPEG (\d\.\d), Layer: (I+), Freq: \d+, mode: ([\w-]+))");
  if (!std::regex_search(out, m, header)) return {};
  return {m[1], m[2], m[3]};
}

// How the reader's length comes about, where it differs from the tool's duration.
enum class LengthRule {
  FromSize,      // constant bit rate: whole file size (tags included) over the header's bit rate
  XingCounting,  // the Xing frame count by the 38/38/39 counting rule, first 57 frames dropped
};

// Which frame's header the reader sees first.
enum class FirstFrame {
  Audio,
  // ffmpeg's mp3 muxer puts an Info (constant rate) or Xing (variable rate)
  // frame first. Its header has its own values: channel mode Stereo for any
  // two-channel stream where the audio frames say Joint Stereo, and the
  // smallest bit rate, from the stream's up, whose frame holds the Info data.
  MuxerInfoFrame,
};

// How the reader's bit rate relates to the tool's.
enum class BitRateRule {
  Tool,          // the same number
  Layer3Column,  // MPEG 1.0 layer 2: the layer 3 value of the same index
  FileAverage,   // Xing found: file bits over the counted seconds
  InfoFrame,     // the muxer's Info or Xing frame's rate: the tool's or higher
};

struct ToolCase {
  const char* name;
  const char* codec;  // ffmpeg encoder
  int sampleRate;
  int channels;
  const char* quality;  // "-b:a 128k", "-q:a 2"
  FirstFrame firstFrame;
  double seconds;
  bool appendId3v1;
  LengthRule lengthRule;
  BitRateRule bitRateRule;
};

// Index of a bit rate in MPEG 1.0 layer 2's column, read through layer 3's column.
int layer3ValueOfLayer2Rate(int kbps) {
  constexpr std::array<int, 15> layer2 = {0,   32,  48,  56,  64,  80,  96, 112,
                                          128, 160, 192, 224, 256, 320, 384};
  constexpr std::array<int, 15> layer3 = {0,   32,  40,  48,  56,  64,  80, 96,
                                          112, 128, 160, 192, 224, 256, 320};
  for (std::size_t k = 0; k < layer2.size(); ++k) {
    if (layer2[k] == kbps) return layer3[k];
  }
  return -1;
}

std::string modeText(const std::string& mpg123Mode) {
  static const std::map<std::string, std::string> modes = {{"Stereo", " Stereo"},
                                                           {"Joint-Stereo", " Joint Stereo"},
                                                           {"Dual-Channel", " 2 Channel"},
                                                           {"Single-Channel", " Mono"}};
  const auto it = modes.find(mpg123Mode);
  return it == modes.end() ? "?" + mpg123Mode : it->second;
}

std::string layerText(const std::string& roman) { return "layer " + std::to_string(roman.size()); }

void PrintTo(const ToolCase& c, std::ostream* os) { *os << c.name; }

class Mp3InfoAgainstTools : public testing::TestWithParam<ToolCase> {
 protected:
  void SetUp() override {
    for (const char* tool : {"ffmpeg", "ffprobe", "mpg123"}) {
      if (!haveTool(tool)) GTEST_SKIP() << tool << " is not installed";
    }
  }

  std::filesystem::path encode(const ToolCase& c) const {
    const bool isMp2 = std::string(c.codec) == "mp2";
    const auto file = dir_ / (std::string(c.name) + (isMp2 ? ".mp2" : ".mp3"));
    const std::string command =
        "ffmpeg -nostdin -hide_banner -loglevel error -f lavfi -i sine=frequency=440:"
        "sample_rate=" +
        std::to_string(c.sampleRate) + ":duration=" + std::to_string(c.seconds) + " -ac " +
        std::to_string(c.channels) + " -ar " + std::to_string(c.sampleRate) + " -c:a " + c.codec +
        " " + c.quality + (isMp2 ? " -f mp2" : " -f mp3") +
        (c.firstFrame == FirstFrame::MuxerInfoFrame || isMp2 ? "" : " -write_xing 0") + " -y '" +
        file.string() + "' 2>&1";
    const std::string out = run(command);
    EXPECT_TRUE(out.empty()) << command << "\n" << out;
    if (c.appendId3v1) {
      Id3Tag tag;
      setFieldText(tag.Title, "Tagged", CodePage::Latin1);
      EXPECT_TRUE(writeId3TagFile(file, tag));
    }
    return file;
  }

  test::TempDir dir_;
};

TEST_P(Mp3InfoAgainstTools, AgreesExceptWhereTheRulesDiffer) {
  const ToolCase& c = GetParam();
  const std::filesystem::path file = encode(c);
  std::map<std::string, std::string> tool = probe(file);
  const Mpg123Header header = mpg123Header(file);
  ASSERT_FALSE(header.version.empty()) << "mpg123 found no header";
  ASSERT_TRUE(tool.count("format.size") && tool.count("format.duration"))
      << "ffprobe gave no format";

  Mp3Info info;
  ReadMp3Info(file, info);

  // Exact agreement.
  EXPECT_EQ(info.Version, "MPEG " + header.version);
  EXPECT_EQ(info.Layer, layerText(header.layer));
  EXPECT_EQ(info.Frequency, tool["streams.stream.0.sample_rate"] + " Hz");
  if (c.firstFrame == FirstFrame::MuxerInfoFrame && c.channels == 2) {
    EXPECT_EQ(info.Mode, " Stereo") << "audio frames: " << header.mode;
  } else {
    EXPECT_EQ(info.Mode, modeText(header.mode));
  }
  EXPECT_EQ(info.FileSize, tool["format.size"]);
  EXPECT_EQ(std::to_string(c.channels), tool["streams.stream.0.channels"]);

  ASSERT_FALSE(info.Length.empty() || info.BitRate.empty()) << "the reader found no header";
  const double size = std::stod(tool["format.size"]);
  const double duration = std::stod(tool["format.duration"]);
  const int toolKbps =
      static_cast<int>(std::lround(std::stod(tool["streams.stream.0.bit_rate"]) / 1000));
  const int length = std::stoi(info.Length);
  const int kbps = std::stoi(info.BitRate);

  switch (c.bitRateRule) {
    case BitRateRule::Tool:
      EXPECT_EQ(kbps, toolKbps);
      break;
    case BitRateRule::Layer3Column:
      EXPECT_EQ(kbps, layer3ValueOfLayer2Rate(toolKbps)) << "tool says " << toolKbps;
      EXPECT_NE(kbps, toolKbps);
      break;
    case BitRateRule::FileAverage:
      // The tool's average over its duration, spread over the reader's seconds.
      EXPECT_NEAR(kbps, size * 8 / (1000.0 * length), 1.0);
      EXPECT_NEAR(kbps, toolKbps * duration / length, 1.5);
      break;
    case BitRateRule::InfoFrame:
      EXPECT_GE(kbps, toolKbps);
      break;
  }

  switch (c.lengthRule) {
    case LengthRule::FromSize:
      // Whole seconds, cut, of every byte of the file at the header's rate.
      EXPECT_EQ(length, static_cast<int>(std::floor(size * 8 / (kbps * 1000.0))));
      EXPECT_NEAR(length, duration * toolKbps / kbps, 1.1) << "tool duration " << duration;
      break;
    case LengthRule::XingCounting: {
      const double frames = duration * c.sampleRate / 1152.0;
      EXPECT_NEAR(length, (frames - 57) * 3.0 / 115.0, 1.5) << "tool duration " << duration;
      EXPECT_LT(length, duration) << "the first 57 frames are not counted";
      break;
    }
  }
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Encoded, Mp3InfoAgainstTools, testing::Values(
    // The muxer's header of a constant bit rate file says "Info", not "Xing": the size rule applies.
    ToolCase{"L3_44k_stereo_128_info", "libmp3lame", 44100, 2, "-b:a 128k", FirstFrame::MuxerInfoFrame, 2.5, false, LengthRule::FromSize, BitRateRule::InfoFrame},
    ToolCase{"L3_44k_stereo_320", "libmp3lame", 44100, 2, "-b:a 320k", FirstFrame::Audio, 2.5, false, LengthRule::FromSize, BitRateRule::Tool},
    ToolCase{"L3_44k_mono_32", "libmp3lame", 44100, 1, "-b:a 32k", FirstFrame::Audio, 2.5, false, LengthRule::FromSize, BitRateRule::Tool},
    ToolCase{"L3_48k_stereo_192_info", "libmp3lame", 48000, 2, "-b:a 192k", FirstFrame::MuxerInfoFrame, 2.5, false, LengthRule::FromSize, BitRateRule::InfoFrame},
    ToolCase{"L3_22k_stereo_64", "libmp3lame", 22050, 2, "-b:a 64k", FirstFrame::Audio, 2.5, false, LengthRule::FromSize, BitRateRule::Tool},
    // The size rule counts the ID3v1 tag's 128 bytes as audio.
    ToolCase{"L3_22k_mono_8_id3v1", "libmp3lame", 22050, 1, "-b:a 8k", FirstFrame::Audio, 2.5, true, LengthRule::FromSize, BitRateRule::Tool},
    // Variable bit rate, stereo MPEG 1.0: "Xing" stands at i + 36, the counting rule applies.
    ToolCase{"L3_44k_stereo_vbr", "libmp3lame", 44100, 2, "-q:a 2", FirstFrame::MuxerInfoFrame, 10.0, false, LengthRule::XingCounting, BitRateRule::FileAverage},
    // Mono MPEG 1.0 and all MPEG 2.0 have "Xing" at i + 21 or i + 13: missed, read as constant bit rate.
    ToolCase{"L3_44k_mono_vbr_missed", "libmp3lame", 44100, 1, "-q:a 5", FirstFrame::MuxerInfoFrame, 10.0, false, LengthRule::FromSize, BitRateRule::InfoFrame},
    ToolCase{"L3_22k_stereo_vbr_missed", "libmp3lame", 22050, 2, "-q:a 4", FirstFrame::MuxerInfoFrame, 10.0, false, LengthRule::FromSize, BitRateRule::InfoFrame},
    // MPEG 1.0 layer 2 shows the layer 3 bit rate of its index, and its length follows from that.
    ToolCase{"L2_44k_stereo_192", "mp2", 44100, 2, "-b:a 192k", FirstFrame::Audio, 2.3, false, LengthRule::FromSize, BitRateRule::Layer3Column},
    ToolCase{"L2_44k_stereo_384", "mp2", 44100, 2, "-b:a 384k", FirstFrame::Audio, 2.3, false, LengthRule::FromSize, BitRateRule::Layer3Column},
    // MPEG 2.0 layer 2 shares layer 3's column: no difference.
    ToolCase{"L2_22k_mono_64", "mp2", 22050, 1, "-b:a 64k", FirstFrame::Audio, 2.5, false, LengthRule::FromSize, BitRateRule::Tool}),
    [](const testing::TestParamInfo<ToolCase>& p) { return std::string(p.param.name); });
// clang-format on

}  // namespace
}  // namespace yarvo
