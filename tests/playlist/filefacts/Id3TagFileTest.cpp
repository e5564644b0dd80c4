#include "playlist/Id3Tag.h"

#include "TempFolder.h"

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/stat.h>
#include <csignal>

#include <algorithm>
#include <string>
#include <vector>

namespace yarvo {
namespace {

using test::readAll;
using test::TempFolder;

// FNV-1a over the bytes: the audio part must come out of every save unchanged.
std::uint64_t checksum(const std::vector<std::uint8_t>& bytes, std::size_t count) {
  std::uint64_t h = 0xcbf29ce484222325ULL;
  for (std::size_t k = 0; k < count; ++k) h = (h ^ bytes[k]) * 0x100000001b3ULL;
  return h;
}

std::vector<std::uint8_t> audioBytes(std::size_t size) {
  std::vector<std::uint8_t> bytes(size);
  for (std::size_t k = 0; k < size; ++k) bytes[k] = static_cast<std::uint8_t>((k * 131) ^ (k >> 8));
  return bytes;
}

Id3Tag sampleTag() {
  Id3Tag tag;
  setFieldText(tag.Title, "Song", CodePage::Latin1);
  setFieldText(tag.Artist, "Artist", CodePage::Latin1);
  setFieldText(tag.Album, "Album", CodePage::Latin1);
  setFieldText(tag.Year, "2001", CodePage::Latin1);
  setFieldText(tag.Comment, "Comment", CodePage::Latin1);
  tag.Genre = 17;
  return tag;
}

TEST(Id3TagFile, FirstSaveAppends128BytesSecondWritesInPlace) {
  TempFolder dir;
  const std::vector<std::uint8_t> audio = audioBytes(5000);
  const auto file = dir.write("a.mp3", audio);
  Id3Tag back;
  ASSERT_FALSE(readId3TagFile(file, back));

  ASSERT_TRUE(writeId3TagFile(file, sampleTag()));
  ASSERT_EQ(std::filesystem::file_size(file), audio.size() + 128);
  EXPECT_EQ(checksum(readAll(file), audio.size()), checksum(audio, audio.size()));
  ASSERT_TRUE(readId3TagFile(file, back));
  EXPECT_EQ(back, sampleTag());

  Id3Tag changed = sampleTag();
  setFieldText(changed.Title, "Another title", CodePage::Latin1);
  ASSERT_TRUE(writeId3TagFile(file, changed));
  EXPECT_EQ(std::filesystem::file_size(file), audio.size() + 128) << "the old tag is overwritten";
  EXPECT_EQ(checksum(readAll(file), audio.size()), checksum(audio, audio.size()));
  ASSERT_TRUE(readId3TagFile(file, back));
  EXPECT_EQ(back, changed);
}

TEST(Id3TagFile, LongTextsAreCutAndGenresKept) {
  TempFolder dir;
  const auto file = dir.write("a.mp3", audioBytes(200));
  for (int genre : {0, 147, 148, 255}) {
    SCOPED_TRACE(genre);
    Id3Tag tag;
    setFieldText(tag.Title, std::string(40, 'T') + "end", CodePage::Latin1);
    setFieldText(tag.Artist, "An artist whose name is longer than thirty", CodePage::Latin1);
    setFieldText(tag.Year, "19999", CodePage::Latin1);
    setFieldText(tag.Comment, std::string(31, 'c'), CodePage::Latin1);
    tag.Genre = static_cast<std::uint8_t>(genre);
    ASSERT_TRUE(writeId3TagFile(file, tag));
    Id3Tag back;
    ASSERT_TRUE(readId3TagFile(file, back));
    EXPECT_EQ(fieldText(back.Title, CodePage::Latin1), std::string(30, 'T'));
    EXPECT_EQ(fieldText(back.Artist, CodePage::Latin1), "An artist whose name is longer");
    EXPECT_EQ(fieldText(back.Year, CodePage::Latin1), "1999");
    EXPECT_EQ(fieldText(back.Comment, CodePage::Latin1), std::string(30, 'c'));
    EXPECT_EQ(back.Genre, genre);
  }
  EXPECT_EQ(std::filesystem::file_size(file), 200u + 128u);
}

TEST(Id3TagFile, Windows1250TagShowsRomanianLetters) {
  TempFolder dir;
  const auto file = dir.write("a.mp3", audioBytes(300));
  Id3Tag tag;
  setFieldText(tag.Title, "Şi ţară, îţi", CodePage::Cp1250);
  setFieldText(tag.Artist, "ĂÂÎŞŢ ăâîşţ", CodePage::Cp1250);
  setFieldText(tag.Album, "Ce știi € ж", CodePage::Cp1250);
  ASSERT_TRUE(writeId3TagFile(file, tag));

  const std::vector<std::uint8_t> bytes = readAll(file);
  const std::string artistOnDisk(bytes.end() - 128 + 33, bytes.end() - 128 + 44);
  EXPECT_EQ(artistOnDisk, "\xC3\xC2\xCE\xAA\xDE \xE3\xE2\xEE\xBA\xFE");

  Id3Tag back;
  ASSERT_TRUE(readId3TagFile(file, back));
  EXPECT_EQ(tagTitleText(back.Title, CodePage::Cp1250), "Şi ţară, îţi");
  // Eleven bytes and nineteen blanks of padding: one blank stays.
  EXPECT_EQ(tagTitleText(back.Artist, CodePage::Cp1250), "ĂÂÎŞŢ ăâîşţ ");
  EXPECT_EQ(tagTitleText(back.Album, CodePage::Cp1250), "Ce ştii € ? ");
  EXPECT_EQ(tagTitleText(back.Artist, CodePage::Latin1), "ÃÂÎªÞ ãâîºþ ");
}

TEST(Id3TagFile, FileShorterThanATagGetsOneAppended) {
  TempFolder dir;
  const std::vector<std::uint8_t> audio = audioBytes(50);
  const auto file = dir.write("short.mp3", audio);
  Id3Tag tag = sampleTag();
  EXPECT_FALSE(readId3TagFile(file, tag));
  EXPECT_EQ(tag, sampleTag()) << "no bytes before the file read as a tag";

  ASSERT_TRUE(writeId3TagFile(file, sampleTag()));
  const std::vector<std::uint8_t> after = readAll(file);
  ASSERT_EQ(after.size(), 178u);
  EXPECT_TRUE(std::equal(audio.begin(), audio.end(), after.begin()));
}

TEST(Id3TagFile, MissingFolderFifoOrZeroByteNameGiveNoTag) {
  TempFolder dir;
  const Id3Tag before = sampleTag();
  Id3Tag tag = before;

  const auto missing = dir.path() / "missing.mp3";
  EXPECT_FALSE(readId3TagFile(missing, tag));
  EXPECT_FALSE(writeId3TagFile(missing, sampleTag()));
  EXPECT_FALSE(std::filesystem::exists(missing));

  // A zero byte in the name must not open the file named by the part before it.
  const auto tagged = dir.write("tagged.mp3", audioBytes(300));
  ASSERT_TRUE(writeId3TagFile(tagged, sampleTag()));
  const std::filesystem::path withZero = tagged.native() + std::string("\0.other", 7);
  EXPECT_FALSE(readId3TagFile(withZero, tag));
  EXPECT_FALSE(writeId3TagFile(withZero, sampleTag()));

  EXPECT_FALSE(readId3TagFile(dir.path(), tag));
  EXPECT_FALSE(writeId3TagFile(dir.path(), sampleTag()));

  // A FIFO without a writer would block a plain open for reading.
  const auto fifo = dir.path() / "pipe.mp3";
  ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
  EXPECT_FALSE(readId3TagFile(fifo, tag));
  EXPECT_FALSE(writeId3TagFile(fifo, sampleTag()));
  EXPECT_EQ(tag, before);
}

// Restores the file size limit and the SIGXFSZ handler on the way out.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) {
    ::getrlimit(RLIMIT_FSIZE, &old_);
    oldHandler_ = std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit = old_;
    limit.rlim_cur = bytes;
    ::setrlimit(RLIMIT_FSIZE, &limit);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;
  ~FileSizeLimit() {
    ::setrlimit(RLIMIT_FSIZE, &old_);
    std::signal(SIGXFSZ, oldHandler_);
  }

 private:
  rlimit old_{};
  void (*oldHandler_)(int) = nullptr;
};

TEST(Id3TagFile, FailedAppendIsCutBack) {
  TempFolder dir;
  const std::vector<std::uint8_t> audio = audioBytes(1000);
  const auto file = dir.write("full.mp3", audio);
  {
    // Room for 50 of the 128 bytes: the first write is short, the next fails.
    const FileSizeLimit limit(audio.size() + 50);
    EXPECT_FALSE(writeId3TagFile(file, sampleTag()));
  }
  EXPECT_EQ(readAll(file), audio);
}

TEST(Id3TagFile, FailedInPlaceWriteIsRestored) {
  TempFolder dir;
  const auto file = dir.write("tagged.mp3", audioBytes(1000));
  ASSERT_TRUE(writeId3TagFile(file, sampleTag()));
  const std::vector<std::uint8_t> before = readAll(file);
  Id3Tag changed = sampleTag();
  setFieldText(changed.Title, "Changed", CodePage::Latin1);
  setFieldText(changed.Comment, "Changed too", CodePage::Latin1);
  {
    // Writes end 60 bytes before the end: the title goes in, the comment fails.
    const FileSizeLimit limit(before.size() - 60);
    EXPECT_FALSE(writeId3TagFile(file, changed));
  }
  EXPECT_EQ(readAll(file), before);
}

}  // namespace
}  // namespace yarvo
