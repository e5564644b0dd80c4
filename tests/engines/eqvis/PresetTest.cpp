// The equalizer presets: eqpreset.ini as records of 11 lines, the dialog's
// three modes, and a click that loads a record into the sliders and the
// channel at once.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "engines/FormPreset.h"
#include "engines/frmBass.h"
#include "support/ProgramFixture.h"
#include "windows/Main.h"

namespace yarvo {
namespace {

using test::ReadBytes;
using test::Rows;
using test::WriteBytes;

// A record: the name, then ten values counting from `first` by `step`.
std::string Record(const std::string& name, int first, int step = 1) {
  std::string lines = name + "\r\n";
  for (int i = 0; i < 10; ++i) lines += std::to_string(first + step * i) + "\r\n";
  return lines;
}

class PresetTest : public test::ProgramFixture {
 protected:
  void SetUp() override {
    Start();
    bass.AddFile("/m/a.mp3", 30);
  }

  std::string File() { return folder / "eqpreset.ini"; }
  void WriteFile(const std::string& bytes) { WriteBytes(File(), bytes); }
  FormPreset& Dialog() { return P().FormPreset(); }
  int Slider(int b) { return P().Main().sldEQR(b).Value; }

  void Play() {
    auto& engine = P().frmBass();
    engine.FileToPlay.Text = "/m/a.mp3";
    engine.PLAYtheBass();
  }
  float Gain(int band) {
    return bass.bands.at(P().frmBass().fx[static_cast<std::size_t>(band)]).fGain;
  }

  void ClickName(int row) { Dialog().ListaPreset.SetListIndex(row); }
};

TEST_F(PresetTest, TheDialogStartsAsTheLoadDialogWhoseOkWritesNothing) {
  auto& dialog = Dialog();
  EXPECT_EQ(dialog.Caption.get(), "Load Equalizer Preset");
  EXPECT_FALSE(dialog.NumePreset.Visible.get());
  EXPECT_FALSE(dialog.DelButton.Visible.get());
  EXPECT_FALSE(dialog.ValoriPreset.Visible.get());
  EXPECT_EQ(dialog.ListaPreset.ListCount(), 0) << "no file yet";
  LoadPreset();
  Dialog().Command1.Click();
  EXPECT_FALSE(std::filesystem::exists(File()));
  EXPECT_EQ(P().LoadedFormPreset(), nullptr);
}

TEST_F(PresetTest, SaveAppendsARecordOfTheNameAndTheTenBands) {
  WriteFile(Record("Flat", 50, 0));
  for (int b = 0; b <= 10; ++b) P().Main().sldEQR(b).Value = 5 * b;
  SavePreset();
  auto& dialog = Dialog();
  EXPECT_TRUE(dialog.Visible.get());
  EXPECT_TRUE(dialog.NumePreset.Visible.get());
  dialog.NumePreset.Text = "Rock";
  dialog.Command1.Click();
  EXPECT_EQ(ReadBytes(File()), Record("Flat", 50, 0) + Record("Rock", 0, 5))
      << "the reverb is no part of a preset";
  EXPECT_EQ(P().LoadedFormPreset(), nullptr) << "Ok closes the dialog";
  // Opened again, the dialog reads the file again, and in load mode.
  LoadPreset();
  EXPECT_EQ(Rows(Dialog().ListaPreset), (std::vector<std::string>{"Flat", "Rock"}));
  EXPECT_FALSE(Dialog().NumePreset.Visible.get());
}

TEST_F(PresetTest, AClickLoadsTheTenSlidersAndTheChannelHearsThemAtOnce) {
  WriteFile(Record("Low", 0, 0) + Record("Ramp", 10, 5));
  Play();
  LoadPreset();
  EXPECT_EQ(Rows(Dialog().ListaPreset), (std::vector<std::string>{"Low", "Ramp"}));
  ClickName(1);
  for (int b = 0; b < 10; ++b) {
    SCOPED_TRACE(b);
    EXPECT_EQ(Slider(b), 10 + 5 * b);
    EXPECT_EQ(Gain(b), static_cast<float>(10 - (2 + b)));
  }
  EXPECT_EQ(Slider(10), 100) << "the reverb stays";
  EXPECT_TRUE(Dialog().DelButton.Enabled.get());
  EXPECT_NE(P().LoadedFormPreset(), nullptr) << "the dialog stays open";
  Dialog().Command2.Click();
  EXPECT_EQ(P().LoadedFormPreset(), nullptr);
  EXPECT_EQ(Slider(0), 10) << "Cancel does not undo a loaded preset";
}

// A name is looked up as the first row that equals it, wherever that is.
TEST_F(PresetTest, ANameLikeAValueFindsThatValueRow) {
  // "12" is also row 3 of the first record: its rows 4 to 13 are read.
  WriteFile(Record("A", 10) + Record("12", 60));
  LoadPreset();
  ClickName(1);
  EXPECT_EQ(Slider(0), 13);
  EXPECT_EQ(Slider(6), 19);
  EXPECT_EQ(Slider(7), 12) << "row 11, the next name, read as a value";
  EXPECT_EQ(Slider(8), 60);
}

TEST_F(PresetTest, OnlyTheFirstThirtyRecordsAreListed) {
  std::string bytes;
  for (int r = 0; r < 31; ++r) bytes += Record("P" + std::to_string(r), r);
  WriteFile(bytes);
  LoadPreset();
  EXPECT_EQ(Dialog().ListaPreset.ListCount(), 30);
  EXPECT_EQ(Dialog().ListaPreset.List(29), "P29");
  EXPECT_EQ(Dialog().ValoriPreset.ListCount(), 31 * 11) << "the 31st stays in the file";
}

TEST_F(PresetTest, DeleteRemovesTheNameAndItsElevenRows) {
  WriteFile(Record("A", 1) + Record("B", 2) + Record("C", 3));
  DeletePreset();
  auto& dialog = Dialog();
  EXPECT_TRUE(dialog.DelButton.Visible.get());
  EXPECT_FALSE(dialog.DelButton.Enabled.get());
  ClickName(1);
  dialog.DelButton.Click();
  EXPECT_EQ(ReadBytes(File()), Record("A", 1) + Record("C", 3));
  EXPECT_EQ(Rows(dialog.ListaPreset), (std::vector<std::string>{"A", "C"}));
  EXPECT_EQ(dialog.ValoriPreset.ListCount(), 22);
  EXPECT_NE(P().LoadedFormPreset(), nullptr) << "the dialog stays open";
}

TEST_F(PresetTest, DeletingTheLastNameLeavesAnEmptyFile) {
  WriteFile(Record("Only", 40));
  DeletePreset();
  Dialog().DelButton.Click();
  EXPECT_EQ(ReadBytes(File()), Record("Only", 40)) << "with no name selected nothing goes";
  ClickName(0);
  Dialog().DelButton.Click();
  EXPECT_TRUE(std::filesystem::exists(File()));
  EXPECT_EQ(ReadBytes(File()), "");
  EXPECT_EQ(Dialog().ListaPreset.ListCount(), 0);
}

TEST_F(PresetTest, ARecordCutShortShiftsTheNamesBehindIt) {
  std::string shortRecord = "Cut\r\n1\r\n2\r\n";
  WriteFile(shortRecord + Record("Next", 5));
  LoadPreset();
  EXPECT_EQ(Rows(Dialog().ListaPreset), (std::vector<std::string>{"Cut", "12"}))
      << "row 11 is a value of the next record";
}

}  // namespace
}  // namespace yarvo
