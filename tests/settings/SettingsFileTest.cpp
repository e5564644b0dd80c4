// settings.ini: 72 lines in a fixed order, every preference back after a
// restart, and the first start without a file.

#include <gtest/gtest.h>

#include <memory>

#include "core/DataForm.h"
#include "core/form/RuntimeError.h"
#include "director/ClsMain.h"
#include "director/Program.h"
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

TEST_F(SettingsFile, AFirstStartComesUpInMiniModeAndSavesItsLinesInTheirOrder) {
  Start();
  auto& library = P().MediaLibrary();
  EXPECT_EQ(P().DataForm().MiniMode.get(), "True");
  EXPECT_FALSE(P().Main().Visible);
  ASSERT_NE(P().LoadedMiniForm(), nullptr);
  EXPECT_TRUE(P().MiniForm().Visible);
  EXPECT_FALSE(P().Playlist().Visible);
  EXPECT_EQ(P().DataForm().PlaylistON.get(), "0");
  EXPECT_FALSE(library.Visible);

  P().Main().Show();
  P().Playlist().Show();
  library.FrameTop10.Visible = true;
  library.FrameIDTag.Visible = false;
  ClsMain().SalveazaSetari();
  const Strings lines = SavedLines();
  ASSERT_EQ(lines.size(), 72u);
  // The sections, and first-start defaults in the forms they are written in.
  Strings picked;
  for (int line : {1, 6, 12, 19, 13, 14, 16, 20, 28, 56, 57, 71})
    picked.push_back(lines[static_cast<std::size_t>(line)]);
  EXPECT_EQ(picked, (Strings{"[Main]", "[Playlist]", "[Options]", "[Skin]", "True", "False",
                             "Playlist=True", "Default", "1", "main", "True", "2"}));
  EXPECT_EQ(lines[2], std::to_string(P().Main().Left.get())) << "coordinates are whole twips";

  for (auto* page : {&library.FrameIDTag, &library.FrameTop10, &library.FrameLibrary})
    page->Visible = false;
  ClsMain().SalveazaSetari();
  EXPECT_EQ(SavedLines().size(), 71u) << "no page on top, no line for it";
}

TEST_F(SettingsFile, ARestartRestoresEveryPreference) {
  Start();
  auto& options = P().Options();
  auto& main = P().Main();
  main.Show();
  main.Move(1200, 900, 6100, 3530);
  main.Volum.value = 73;
  for (auto* option : {&options.Option2, &options.Option5, &options.Option10, &options.Option13,
                       &options.Option17, &options.Option19})
    option->Value = true;
  for (auto* check : {&options.Check1, &options.Check3}) check->Value = 1;
  for (auto* check : {&options.Check4, &options.Check7}) check->Value = 0;
  options.SubDelay.Text = "250";
  options.PlaylistFontSize.SetListIndex(4);
  options.LanguageSelector.SetListIndex(1);
  options.TagCodePage.SetText("cp1250");
  main.sldEQR(3).value = 12;
  main.sldEQR(10).value = 88;
  P().DataForm().MainMode = "Small";
  ClsMain().ChangeMainMode();
  P().DataForm().VideoSizeWidth2 = "7000";
  P().Playlist().Show();
  P().MediaLibrary().Show();
  ClsMain().SalveazaSetari();
  const Strings first = SavedLines();

  Restart();
  // Every line read back writes itself out again; what a line sets off
  // beyond its value is checked on its own.
  ClsMain().SalveazaSetari();
  EXPECT_EQ(SavedLines(), first);
  EXPECT_EQ(P().Playlist().PicList.FontSize.get(), 12) << "the font size ran its handler";
  EXPECT_EQ(P().Options().TagCodePage.Text(), "cp1250") << "kept beside the settings";
  EXPECT_EQ(P().Main().Height.get(), 2000) << "the small layout was applied";
  EXPECT_TRUE(P().Playlist().Visible);
  EXPECT_TRUE(P().MediaLibrary().Visible);
  EXPECT_EQ(P().DataForm().MiniMode.get(), "False");
}

TEST_F(SettingsFile, BadOrShortLinesLeaveTheirTargetsAsCreated) {
  test::WriteBytes(folder / "settings.ini", "0.9\r\n[Main]\r\nleft?\r\n-100\r\n");
  Start();
  EXPECT_EQ(P().Main().Top.get(), 500) << "a negative top is brought back on screen";
  EXPECT_EQ(P().Main().Left.get(), 2000) << "a line that is no number is skipped";
  EXPECT_EQ(P().DataForm().MiniMode.get(), "True") << "the missing window line reads as empty";
  Restart(test::SettingsWith({{56, "Main"}}));
  EXPECT_EQ(P().DataForm().MiniMode.get(), "True") << "the window line is compared exactly";
  Restart(test::SettingsWith({{56, "main  "}}));
  EXPECT_EQ(P().DataForm().MiniMode.get(), "False") << "trailing blanks are cut on reading";
}

TEST_F(SettingsFile, TheSecondInstanceEndsAtTheInstanceLineWhenOnlyOneMayRun) {
  const std::string bytes = test::SettingsWith({{27, "1"}, {28, "0"}, {45, "True"}, {56, "main"}});
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
