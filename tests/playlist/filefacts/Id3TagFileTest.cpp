#include "playlist/Id3Tag.h"

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/stat.h>
#include <csignal>

#include <algorithm>
#include <string>
#include <vector>

#include "FileBytes.h"
#include "support/TempDir.h"

namespace yarvo {
namespace {

using test::readAll;
using test::TempDir;
using test::writeFile;

std::vector<std::uint8_t> audioBytes(std::size_t size) {
  std::vector<std::uint8_t> bytes(size);
  for (std::size_t k = 0; k < size; ++k) bytes[k] = static_cast<std::uint8_t>((k * 131) ^ (k >> 8));
  return bytes;
}

// The audio part must come out of every save unchanged.
bool startsWithAudio(const std::filesystem::path& file, const std::vector<std::uint8_t>& audio) {
  const std::vector<std::uint8_t> bytes = readAll(file);
  return bytes.size() >= audio.size() && std::equal(audio.begin(), audio.end(), bytes.begin());
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

// A file shorter than a tag has no bytes before it that could read as one.
TEST(Id3TagFile, FirstSaveAppends128BytesSecondWritesInPlace) {
  TempDir dir;
  for (std::size_t size : {std::size_t{5000}, std::size_t{50}}) {
    SCOPED_TRACE(size);
    const std::vector<std::uint8_t> audio = audioBytes(size);
    const auto file = writeFile(dir / "a.mp3", audio);
    Id3Tag back = sampleTag();
    ASSERT_FALSE(readId3TagFile(file, back));
    EXPECT_EQ(back, sampleTag()) << "a failed read leaves the record alone";

    ASSERT_TRUE(writeId3TagFile(file, sampleTag()));
    ASSERT_EQ(std::filesystem::file_size(file), size + 128);
    EXPECT_TRUE(startsWithAudio(file, audio));
    back = Id3Tag{};
    ASSERT_TRUE(readId3TagFile(file, back));
    EXPECT_EQ(back, sampleTag());

    Id3Tag changed = sampleTag();
    setFieldText(changed.Title, "Another title", CodePage::Latin1);
    ASSERT_TRUE(writeId3TagFile(file, changed));
    EXPECT_EQ(std::filesystem::file_size(file), size + 128) << "the old tag is overwritten";
    EXPECT_TRUE(startsWithAudio(file, audio));
    ASSERT_TRUE(readId3TagFile(file, back));
    EXPECT_EQ(back, changed);
  }
}

TEST(Id3TagFile, LongTextsAreCutAndGenresKept) {
  TempDir dir;
  const auto file = writeFile(dir / "a.mp3", audioBytes(200));
  for (int genre : {0, 147, 148, 255}) {
    SCOPED_TRACE(genre);
    Id3Tag tag;
    setFieldText(tag.Title, std::string(40, 'T') + "end", CodePage::Latin1);
    setFieldText(tag.Year, "19999", CodePage::Latin1);
    tag.Genre = static_cast<std::uint8_t>(genre);
    ASSERT_TRUE(writeId3TagFile(file, tag));
    Id3Tag back;
    ASSERT_TRUE(readId3TagFile(file, back));
    EXPECT_EQ(fieldText(back.Title, CodePage::Latin1), std::string(30, 'T'));
    EXPECT_EQ(fieldText(back.Year, CodePage::Latin1), "1999");
    EXPECT_EQ(back.Genre, genre);
  }
  EXPECT_EQ(std::filesystem::file_size(file), 200u + 128u);
}

TEST(Id3TagFile, Windows1250TagShowsRomanianLetters) {
  TempDir dir;
  const auto file = writeFile(dir / "a.mp3", audioBytes(300));
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

TEST(Id3TagFile, MissingFolderFifoOrZeroByteNameGiveNoTag) {
  TempDir dir;
  const Id3Tag before = sampleTag();
  Id3Tag tag = before;

  const auto missing = dir / "missing.mp3";
  EXPECT_FALSE(readId3TagFile(missing, tag));
  EXPECT_FALSE(writeId3TagFile(missing, sampleTag()));
  EXPECT_FALSE(std::filesystem::exists(missing));

  // A zero byte in the name must not open the file named by the part before it.
  const auto tagged = writeFile(dir / "tagged.mp3", audioBytes(300));
  ASSERT_TRUE(writeId3TagFile(tagged, sampleTag()));
  const std::filesystem::path withZero = tagged.native() + std::string("\0.other", 7);
  EXPECT_FALSE(readId3TagFile(withZero, tag));
  EXPECT_FALSE(writeId3TagFile(withZero, sampleTag()));

  EXPECT_FALSE(readId3TagFile(dir.path(), tag));
  EXPECT_FALSE(writeId3TagFile(dir.path(), sampleTag()));

  // A FIFO without a writer would block a plain open for reading.
  const auto fifo = dir / "pipe.mp3";
  ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
  EXPECT_FALSE(readId3TagFile(fifo, tag));
  EXPECT_FALSE(writeId3TagFile(fifo, sampleTag()));
  EXPECT_EQ(tag, before);
}

// A write under a file size limit, SIGXFSZ ignored; both restored behind it.
bool writeWithSizeLimit(const std::filesystem::path& file, const Id3Tag& tag, rlim_t bytes) {
  rlimit old{};
  ::getrlimit(RLIMIT_FSIZE, &old);
  const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
  rlimit limit = old;
  limit.rlim_cur = bytes;
  ::setrlimit(RLIMIT_FSIZE, &limit);
  const bool written = writeId3TagFile(file, tag);
  ::setrlimit(RLIMIT_FSIZE, &old);
  std::signal(SIGXFSZ, oldHandler);
  return written;
}

TEST(Id3TagFile, FailedWritesLeaveTheFileAsItWas) {
  TempDir dir;
  const std::vector<std::uint8_t> audio = audioBytes(1000);
  const auto file = writeFile(dir / "full.mp3", audio);
  // Room for 50 of the 128 bytes: the first write is short, the next fails.
  EXPECT_FALSE(writeWithSizeLimit(file, sampleTag(), audio.size() + 50));
  EXPECT_EQ(readAll(file), audio) << "a failed append is cut back";

  ASSERT_TRUE(writeId3TagFile(file, sampleTag()));
  const std::vector<std::uint8_t> before = readAll(file);
  Id3Tag changed = sampleTag();
  setFieldText(changed.Title, "Changed", CodePage::Latin1);
  setFieldText(changed.Comment, "Changed too", CodePage::Latin1);
  // Writes end 60 bytes before the end: the title goes in, the comment fails.
  EXPECT_FALSE(writeWithSizeLimit(file, changed, before.size() - 60));
  EXPECT_EQ(readAll(file), before) << "a failed write in place is restored";
}

}  // namespace
}  // namespace yarvo
