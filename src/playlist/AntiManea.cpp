#include "playlist/AntiManea.h"

#include <cstdint>

#include "core/DataForm.h"
#include "core/form/RuntimeError.h"
#include "director/ClsMain.h"
#include "director/Program.h"
#include "engines/frmBass.h"
#include "platform/Desktop.h"
#include "playlist/CBoyerMoore.h"
#include "playlist/MediaLibrary.h"
#include "playlist/Playlist.h"
#include "windows/Main.h"

namespace yarvo {

namespace {

constexpr int kMinimumNames = 10;

// Both engines fall silent: the media service through the director, the
// audio library through its form (made now if it is not loaded).
void SilenceBothEngines() {
  ResumeNext([] { ClsMain().SStop(); });
  ResumeNext([] { program().frmBass().StopBass(); });
}

std::string SearchedText(const std::string& FileName) {
  auto& p = program();
  const auto& library = p.MediaLibrary();
  return FileName + " " + p.Main().Titlu.Caption.get() + " " + p.Playlist().PicList.Text() + " " +
         library.Text1T.Text.get() + " " + library.Text2T.Text.get();
}

// Collects in DataForm.lstFoundWords every match of `name`; true when any.
bool FindName(CBoyerMoore& search, const std::string& name, const std::string& text) {
  auto& found = program().DataForm().lstFoundWords;
  search.CaseSensitive(false);
  search.FindText(name);
  search.Text(text);
  search.Reset();
  found.Clear();
  std::int32_t start = 0;
  std::int32_t length = 0;
  while (search.FindNext(start, length)) {
    const auto from = static_cast<std::size_t>(start - 1);
    found.AddItem(from < text.size() ? text.substr(from, static_cast<std::size_t>(length)) : "");
  }
  return found.ListCount() > 0;
}

}  // namespace

void CheckManea(const std::string& FileName) {
  auto& store = program().DataForm();
  auto& names = store.ListaManelisti;
  CBoyerMoore search;
  ResumeNext([&] { store.CuvinteCheieManele.SetText(SearchedText(FileName)); });
  const std::string text = store.CuvinteCheieManele.Text;
  for (int row = 0; row < names.ListCount(); ++row) {
    names.Selected(row);
    if (FindName(search, names.Text(), text)) StopOnManea();
  }
  store.CuvinteCheieManele.SetText("");
  if (names.ListCount() < kMinimumNames) {
    SilenceBothEngines();
    program().desktop().MsgBox(
        "Lista manelisti invalida, posibil incercare de ascultare a manelelor. Yarvo Player se va "
        "inchide acum.",
        "Yarvo Player");
    ClsMain().CloseYarvo();
  }
}

void StopOnManea() {
  SilenceBothEngines();
  program().desktop().MsgBox("Manea detectata! Yarvo Player nu poate deschide fisierul " +
                                 program().Main().LbFileName(0).Caption.get(),
                             "Yarvo Player");
  ClsMain().CloseYarvo();
}

}  // namespace yarvo
