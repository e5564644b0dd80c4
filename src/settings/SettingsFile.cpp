// settings.ini: every preference and window place, one value a line, the
// meaning of a value given by its line number (72 lines). The live values are
// the controls of Options and a few store fields; the file is their image.
//
// Numbers and coordinates are written in their shortest round-trip decimal
// form with "." as the decimal point and no grouping ("4320", "-100",
// "37.5"), whatever the desktop's regional settings, and read the same way.
// Coordinates are twips.

#include <functional>
#include <string>
#include <vector>

#include "core/Conversions.h"
#include "core/DataForm.h"
#include "core/Version.h"
#include "core/form/RuntimeError.h"
#include "director/ClsMain.h"
#include "director/Program.h"
#include "platform/ProcessControl.h"
#include "playlist/DataClass.h"
#include "playlist/MediaLibrary.h"
#include "playlist/Playlist.h"
#include "playlist/Top10.h"
#include "settings/Options.h"
#include "windows/Main.h"
#include "windows/MiniForm.h"

namespace yarvo {

namespace {

constexpr int kLines = 72;
constexpr const char* kCodePageFile = "/Data/codepage.data";

std::string Bool(bool value) { return value ? "True" : "False"; }

bool ToBool(const std::string& text) {
  if (text == "True") return true;
  if (text == "False") return false;
  return CDbl(text) != 0;  // a number counts as a boolean; other text fails
}

int ToCoordinate(const std::string& text) { return static_cast<int>(CLng(CDbl(text))); }

void SetIndex(ListBox& list, const std::string& text) {
  const int index = CInt(text);
  list.SetListIndex(index);
  if (index >= 0) list.Selected(index);
}

// What one line means: how it is written, and how its text is applied.
struct Line {
  std::function<std::string()> write;
  std::function<void(const std::string&)> read;  // empty: not read
  // A line that compares its text with a word, rather than storing it, also
  // runs for a file too short to hold it, with empty text: the comparison
  // fails. Every other missing line leaves its target as created.
  bool comparesText = false;
};

void AddGeometry(std::vector<Line>& lines, Form& form) {
  lines.push_back(
      {[&] { return Str(form.Left); }, [&](const std::string& t) { form.Left = ToCoordinate(t); }});
  lines.push_back(
      {[&] { return Str(form.Top); }, [&](const std::string& t) { form.Top = ToCoordinate(t); }});
  lines.push_back({[&] { return Str(form.Width); },
                   [&](const std::string& t) { form.Width = ToCoordinate(t); }});
  lines.push_back({[&] { return Str(form.Height); },
                   [&](const std::string& t) { form.Height = ToCoordinate(t); }});
}

Line Literal(std::string text) {
  return {[text] { return text; }, {}};
}

Line Option(OptionButton& option) {
  return {[&] { return Bool(option.Value); },
          [&](const std::string& t) { option.Value = ToBool(t); }};
}

Line Check(CheckBox& check) {
  return {[&] { return std::to_string(check.Value.get()); },
          [&](const std::string& t) { check.Value = CInt(t); }};
}

Line Field(StringField& field) {
  return {[&] { return field.get(); }, [&](const std::string& t) { field = t; }};
}

Line Index(ListBox& list) {
  return {[&] { return std::to_string(list.ListIndex()); },
          [&](const std::string& t) { SetIndex(list, t); }};
}

void ShowWindowMode(const std::string& text) {
  auto& p = program();
  auto& main = p.Main();
  if (text == "main") {
    main.Show();
    p.DataForm().MiniMode = "False";
    return;
  }
  ShowMiniForm();
}

void ShowLibraryPage(const std::string& text) {
  auto& library = program().MediaLibrary();
  if (text != "1" && text != "2" && text != "3") return;
  library.FrameLibrary.Visible = text == "1";
  library.FrameTop10.Visible = text == "2";
  library.FrameIDTag.Visible = text == "3";
}

// The lines of the file, in order; each knows its control.
std::vector<Line> Lines() {
  auto& p = program();
  auto& main = p.Main();
  auto& options = p.Options();
  auto& store = p.DataForm();
  auto& library = p.MediaLibrary();
  auto& playlist = p.Playlist();
  std::vector<Line> lines;
  lines.push_back(Literal(kVersionText));
  lines.push_back(Literal("[Main]"));
  AddGeometry(lines, main);
  lines.push_back(Literal("[Playlist]"));
  AddGeometry(lines, playlist);
  lines.push_back({[&] { return Str(main.Volum.value); },
                   [&](const std::string& t) { main.Volum.value = CDbl(t); }});
  lines.push_back(Literal("[Options]"));
  for (auto* option : {&options.Option1, &options.Option2, &options.Option3})
    lines.push_back(Option(*option));
  lines.push_back(
      {[&] { return std::string(playlist.Visible ? "Playlist=True" : "Playlist=False"); },
       [&](const std::string& t) {
         if (t == "Playlist=True") {
           playlist.Show();
         } else {
           playlist.Hide();
           store.PlaylistON = "0";
         }
       },
       true});
  lines.push_back(Option(options.Option4));
  lines.push_back(Option(options.Option5));
  lines.push_back(Literal("[Skin]"));
  lines.push_back(Field(options.SkinName.Text));
  lines.push_back(Index(options.SkinSelector));
  lines.push_back(Index(options.LanguageSelector));
  for (int i = 0; i < 3; ++i) lines.push_back(Literal(""));
  lines.push_back({[&] { return std::to_string(options.Slider1.Value.get()); },
                   [&](const std::string& t) { options.Slider1.Value = CLng(t); }});
  lines.push_back(Check(options.Check1));
  lines.push_back({[&] { return std::to_string(options.Check2.Value.get()); },
                   [&](const std::string& t) {
                     options.Check2.Value = CInt(t);
                     // One instance only: the second ends here, saving nothing.
                     if (options.Check2.Value == 0 && p.process().AnotherInstanceRunning())
                       Program::End();
                   }});
  lines.push_back(Field(store.VideoSizeHeight2));
  lines.push_back(Field(store.VideoSizeWidth2));
  lines.push_back(Check(options.Check17));
  lines.push_back(Check(options.Check18));
  for (int b = 0; b <= 10; ++b) {
    auto& slider = main.sldEQR(b);
    lines.push_back(
        {[&] { return Str(slider.value); }, [&](const std::string& t) { slider.value = CDbl(t); }});
  }
  for (auto* option :
       {&options.Option8, &options.Option9, &options.Option10, &options.Option11, &options.Option12,
        &options.Option13, &options.Option14, &options.Option16, &options.Option17}) {
    lines.push_back(Option(*option));
  }
  lines.push_back({[&] { return store.MainMode.get(); },
                   [&](const std::string& t) {
                     store.MainMode = t;
                     ClsMain().ChangeMainMode();
                   }});
  lines.push_back(Index(options.PlaylistFontSize));
  lines.push_back(Check(options.Check3));
  lines.push_back(
      {[&] { return std::string(main.Visible ? "main" : "mini"); }, ShowWindowMode, true});
  for (auto* option : {&options.Option15, &options.Option18, &options.Option19})
    lines.push_back(Option(*option));
  lines.push_back(Check(options.Check4));
  lines.push_back(Check(options.Check5));
  lines.push_back(Field(options.SubDelay.Text));
  lines.push_back(Check(options.Check6));
  lines.push_back(Check(options.Check7));
  lines.push_back(Check(options.Check8));
  AddGeometry(lines, library);
  lines.push_back({[&] { return std::string(library.Visible ? "1" : "0"); },
                   [&](const std::string& t) { library.Visible = t == "1"; }, true});
  lines.push_back({{}, ShowLibraryPage, true});
  return lines;
}

}  // namespace

void ClsMain::IncarcaSetari() {
  auto& p = program();
  auto& store = p.DataForm();
  ResumeNext([] { IncarcaClasament(); });
  ResumeNext([&] { IncarcaData(store.ProgramPath("/settings.ini"), store.MSettings); });
  const auto lines = Lines();
  for (int i = 0; i < kLines; ++i) {
    const auto& line = lines[static_cast<std::size_t>(i)];
    if (!line.read || (i >= store.MSettings.ListCount() && !line.comparesText)) continue;
    ResumeNext([&] { line.read(store.MSettings.List(i)); });
  }
  ResumeNext([&] { IncarcaValoriAsociere(); });
  ResumeNext([&] {
    IncarcaData(store.ProgramPath("/Skins/" + p.Options().SkinName.Text.get() + "/skin.ini"),
                store.SkinSettings);
  });
  ResumeNext([&] { IncarcaData(store.ProgramPath("/Data/mnin.data"), store.ListaManelisti); });
  LoadTagCodePage();
}

// The code page of tag text is a preference of its own, kept beside the
// other data files so that settings.ini keeps its lines.
void ClsMain::LoadTagCodePage() {
  auto& p = program();
  StringList lines;
  ResumeNext([&] { IncarcaData(p.DataForm().ProgramPath(kCodePageFile), lines); });
  ResumeNext([&] {
    if (lines.ListCount() > 0) p.Options().TagCodePage.SetText(lines.List(0));
    if (p.Options().TagCodePage.ListIndex() < 0) p.Options().TagCodePage.SetListIndex(0);
  });
}

void ClsMain::SaveTagCodePage() {
  auto& p = program();
  StringList lines;
  lines.AddItem(p.Options().TagCodePage.Text());
  ResumeNext([&] { SalveazaData(p.DataForm().ProgramPath(kCodePageFile), lines); });
}

void ClsMain::SalveazaSetari() {
  auto& p = program();
  auto& store = p.DataForm();
  auto& library = p.MediaLibrary();
  ResumeNext([&] { store.MSettings.Clear(); });
  const auto lines = Lines();
  for (std::size_t i = 0; i + 1 < lines.size(); ++i) {
    ResumeNext([&] { store.MSettings.AddItem(lines[i].write()); });
  }
  // One line per page on top; with none the file has 71 lines.
  for (auto [page, text] :
       {std::pair{&library.FrameLibrary, "1"}, std::pair{&library.FrameTop10, "2"},
        std::pair{&library.FrameIDTag, "3"}}) {
    if (page->Visible) store.MSettings.AddItem(text);
  }
  ResumeNext([&] { SalveazaData(store.ProgramPath("/settings.ini"), store.MSettings); });
  ResumeNext([&] { SalveazaValoriAsociere(); });
  SaveTagCodePage();
}

void ClsMain::IncarcaValoriAsociere() {
  auto& p = program();
  auto& options = p.Options();
  auto& store = p.DataForm();
  options.FAudio.Clear();
  options.FVideo.Clear();
  ResumeNext([&] { IncarcaData(store.ProgramPath("/Data/tpfaudio.data"), options.FAudio); });
  ResumeNext([&] { IncarcaData(store.ProgramPath("/Data/tpfvideo.data"), options.FVideo); });
  for (auto [ticks, list] : {std::pair{&options.FAudio, &options.TpfAudio},
                             std::pair{&options.FVideo, &options.TpfVideo}}) {
    for (int row = 0; row < list->ListCount(); ++row) {
      ResumeNext([&] {
        if (ticks->List(row) == "1") list->SetTicked(row, true);  // nothing is unticked here
      });
    }
  }
}

void ClsMain::SalveazaValoriAsociere() {
  auto& p = program();
  auto& options = p.Options();
  auto& store = p.DataForm();
  for (auto [ticks, list, file] :
       {std::tuple{&options.FAudio, &options.TpfAudio, "/Data/tpfaudio.data"},
        std::tuple{&options.FVideo, &options.TpfVideo, "/Data/tpfvideo.data"}}) {
    ticks->Clear();
    for (int row = 0; row < list->ListCount(); ++row) ticks->AddItem(list->Ticked(row) ? "1" : "0");
    ResumeNext([&] { SalveazaData(store.ProgramPath(file), *ticks); });
  }
}

}  // namespace yarvo
