// settings.ini: 72 lines in a fixed order, every preference back after a
// restart, and the first start without a file.

#include <gtest/gtest.h>

#include <memory>

#include "core/ClsMain.h"
#include "core/DataForm.h"
#include "core/Program.h"
#include "core/form/RuntimeError.h"
#include "playlist/DataClass.h"
#include "playlist/MediaLibrary.h"
#include "playlist/Playlist.h"
#include "settings/Options.h"
#include "support/ProgramFixture.h"
#include "windows/Main.h"
#include "windows/MiniForm.h"

namespace yarvo {
namespace {

using Strings = std::vector<std::string>;

class SettingsFile : public test::ProgramFixture {
 protected:
  Strings SavedLines() {
    StringList lines;
    IncarcaData(folder / "settings.ini", lines);
    return test::Rows(lines);
  }
};

TEST_F(SettingsFile, AFirstStartWithoutAFileComesUpInMiniModeWithTheDefaults) {
  Start();
  auto& store = P().DataForm();
  EXPECT_EQ(store.MiniMode.get(), "True");
  EXPECT_FALSE(P().Main().Visible);
  ASSERT_NE(P().LoadedMiniForm(), nullptr);
  EXPECT_TRUE(P().MiniForm().Visible);
  EXPECT_FALSE(P().Playlist().Visible);
  EXPECT_EQ(store.PlaylistON.get(), "0");
  EXPECT_FALSE(P().MediaLibrary().Visible);
  auto& options = P().Options();
  EXPECT_TRUE(options.Option1.Value);
  EXPECT_TRUE(options.Option15.Value);
  EXPECT_EQ(options.Check2.Value, 1);
  EXPECT_EQ(options.SkinName.Text.get(), "Default");
}

TEST_F(SettingsFile, ASaveWritesTheSeventyTwoLinesInTheirOrder) {
  Start();
  P().Main().Show();
  P().Playlist().Show();
  P().MediaLibrary().FrameTop10.Visible = true;
  P().MediaLibrary().FrameIDTag.Visible = false;
  ClsMain().SalveazaSetari();
  const Strings lines = SavedLines();
  ASSERT_EQ(lines.size(), 72u);
  EXPECT_EQ(lines[0], "1.0.0");
  for (auto [line, text] : {std::pair{1, "[Main]"},
                            {6, "[Playlist]"},
                            {12, "[Options]"},
                            {19, "[Skin]"},
                            {16, "Playlist=True"},
                            {13, "True"},
                            {14, "False"},
                            {20, "Default"},
                            {28, "1"},
                            {53, "Full"},
                            {56, "main"},
                            {57, "True"},
                            {62, "0"},
                            {71, "2"}}) {
    SCOPED_TRACE(line);
    EXPECT_EQ(lines[static_cast<std::size_t>(line)], text);
  }
  EXPECT_EQ(lines[2], std::to_string(P().Main().Left.get())) << "coordinates are whole twips";
}

TEST_F(SettingsFile, WithNoLibraryPageOnTopTheFileHasSeventyOneLines) {
  Start();
  auto& library = P().MediaLibrary();
  for (auto* page : {&library.FrameIDTag, &library.FrameTop10, &library.FrameLibrary})
    page->Visible = false;
  ClsMain().SalveazaSetari();
  EXPECT_EQ(SavedLines().size(), 71u);
}

TEST_F(SettingsFile, ARestartRestoresEveryPreference) {
  Start();
  auto& options = P().Options();
  auto& main = P().Main();
  main.Show();
  main.Move(1200, 900, 6100, 3530);
  main.Volum.Value = 73;
  options.Option2.Value = true;
  options.Option5.Value = true;
  options.Option10.Value = true;
  options.Option13.Value = true;
  options.Option17.Value = true;
  options.Option19.Value = true;
  options.Check1.Value = 1;
  options.Check3.Value = 1;
  options.Check4.Value = 0;
  options.Check7.Value = 0;
  options.SubDelay.Text = "250";
  options.PlaylistFontSize.SetListIndex(4);
  options.LanguageSelector.SetListIndex(1);
  options.TagCodePage.SetText("cp1250");
  main.sldEQR(3).Value = 12;
  main.sldEQR(10).Value = 88;
  P().DataForm().MainMode = "Small";
  ClsMain().ChangeMainMode();
  P().DataForm().VideoSizeWidth2 = "7000";
  P().Playlist().Show();
  P().MediaLibrary().Show();
  ClsMain().SalveazaSetari();
  const Strings first = SavedLines();

  Restart();
  EXPECT_EQ(P().Main().Left.get(), 1200);
  EXPECT_EQ(P().Main().Volum.Value.get(), 73);
  EXPECT_TRUE(P().Options().Option2.Value);
  EXPECT_FALSE(P().Options().Option1.Value);
  EXPECT_TRUE(P().Options().Option19.Value);
  EXPECT_EQ(P().Options().PlaylistFontSize.ListIndex(), 4);
  EXPECT_EQ(P().Playlist().PicList.FontSize.get(), 12) << "the font size ran its handler";
  EXPECT_EQ(P().Main().sldEQR(10).Value.get(), 88);
  EXPECT_EQ(P().Options().TagCodePage.Text(), "cp1250") << "kept beside the settings";
  EXPECT_EQ(P().DataForm().MainMode.get(), "Small");
  EXPECT_EQ(P().Main().Height.get(), 2000) << "the small layout was applied";
  EXPECT_TRUE(P().Playlist().Visible);
  EXPECT_TRUE(P().MediaLibrary().Visible);
  EXPECT_EQ(P().DataForm().MiniMode.get(), "False");
  ClsMain().SalveazaSetari();
  EXPECT_EQ(SavedLines(), first) << "every line came back as it was saved";
}

TEST_F(SettingsFile, BadOrShortLinesLeaveTheirTargetsAsCreated) {
  std::string text = "0.9\r\n[Main]\r\nleft?\r\n-100\r\n";
  test::WriteBytes(folder / "settings.ini", text);
  Start();
  EXPECT_EQ(P().Main().Top.get(), 500) << "a negative top is brought back on screen";
  EXPECT_EQ(P().Main().Left.get(), 2000) << "a line that is no number is skipped";
  EXPECT_EQ(P().DataForm().MiniMode.get(), "True") << "the missing window line reads as empty";
}

std::string SettingsWith(std::initializer_list<std::pair<int, const char*>> values) {
  Strings lines(72);
  for (auto [line, text] : values) lines[static_cast<std::size_t>(line)] = text;
  std::string bytes;
  for (const auto& line : lines) bytes += line + "\r\n";
  return bytes;
}

TEST_F(SettingsFile, TheWindowLineIsComparedExactly) {
  test::WriteBytes(folder / "settings.ini", SettingsWith({{56, "Main"}}));
  Start();
  EXPECT_EQ(P().DataForm().MiniMode.get(), "True");
  Restart(SettingsWith({{56, "main  "}}));
  EXPECT_EQ(P().DataForm().MiniMode.get(), "False") << "trailing blanks are cut on reading";
}

TEST_F(SettingsFile, TheSecondInstanceEndsAtTheInstanceLineWhenOnlyOneMayRun) {
  const std::string bytes = SettingsWith({{27, "1"}, {28, "0"}, {45, "True"}, {56, "main"}});
  test::WriteBytes(folder / "settings.ini", bytes);
  process.anotherInstance = true;
  EXPECT_THROW(Start(), ProcessEnd);
  EXPECT_EQ(P().Options().Check1.Value, 1) << "the lines before it were applied";
  EXPECT_FALSE(P().Options().Option9.Value) << "nothing behind it";
  EXPECT_EQ(test::ReadBytes(folder / "settings.ini"), bytes);
  EXPECT_FALSE(std::filesystem::exists(folder / "Data/plst.data"));
}

}  // namespace
}  // namespace yarvo
