#include "playlist/Top10.h"

#include <cstdint>

#include "core/Conversions.h"
#include "core/DataForm.h"
#include "core/RandomSource.h"
#include "core/form/RuntimeError.h"
#include "director/ClsMain.h"
#include "director/Program.h"
#include "playlist/DataClass.h"
#include "playlist/MediaLibrary.h"
#include "playlist/Playlist.h"
#include "settings/Options.h"
#include "windows/Main.h"

namespace yarvo {

namespace {

constexpr int kPlaces = 20;
constexpr int kWaitingRows = 20;  // rows of the waiting list that are looked at and saved
constexpr const char* kTopFile = "/Data/top.data";

// The two places (control indexes) that the next climb step compares; the
// module's own variables, kept with the program.
struct Climb {
  std::int16_t RankLower = 0;
  std::int16_t RankUpper = 0;
};

Climb& Ranks() { return program().State<Climb>(); }

MediaLibrary& Library() { return program().MediaLibrary(); }

bool InTop(const std::string& title) {
  auto& library = Library();
  for (int i = 0; i < kPlaces; ++i) {
    if (library.Song(i).Caption.get() == title) return true;
  }
  return false;
}

void AddOnePlay(int index) {
  auto& count = Library().CountPlayed(index).Caption;
  count = Str(CDbl(count.get()) + 1);
}

void Exchange(int lower, int upper) {
  auto& library = Library();
  auto& lowerSong = library.Song(lower).Caption;
  auto& upperSong = library.Song(upper).Caption;
  auto& lowerCount = library.CountPlayed(lower).Caption;
  auto& upperCount = library.CountPlayed(upper).Caption;
  const std::string title = lowerSong;
  const std::string count = lowerCount;
  lowerSong = upperSong.get();
  lowerCount = upperCount.get();
  upperSong = title;
  upperCount = count;
}

// A title already on the list gains a play (a title shown twice gains on both).
bool CountKnownTitle(const std::string& title) {
  bool found = false;
  for (int i = 0; i < kPlaces; ++i) {
    ResumeNext([&] {
      if (Library().Song(i).Caption.get() != title) return;
      ResumeNext([&] { AddOnePlay(i); });
      found = true;
    });
  }
  return found;
}

// A new title takes the first empty place; once it is there, it is no longer new.
bool EnterEmptyPlace(const std::string& title) {
  bool found = false;
  for (int i = 0; i < kPlaces; ++i) {
    ResumeNext([&] {
      if (!Library().Song(i).Caption.get().empty() || InTop(title)) return;
      ResumeNext([&] { AddOnePlay(i); });
      Library().Song(i).Caption = title;
      found = true;
    });
  }
  return found;
}

// A waiting title's second play puts it in place 20 with count 2, over the
// song that stood there.
bool PromoteWaiting(const std::string& title) {
  auto& library = Library();
  auto& waiting = library.ListaAsteptare;
  bool found = false;
  for (int i = 0; i < kWaitingRows; ++i) {
    ResumeNext([&] {
      waiting.Selected(i);
      if (waiting.Text() != title) return;
      library.Song(kPlaces - 1).Caption = title;
      library.CountPlayed(kPlaces - 1).Caption = "2";
      waiting.RemoveItem(i);
      found = true;
    });
  }
  return found;
}

std::string TopPositionText(const std::string& title, bool romanian) {
  auto& library = Library();
  if (!title.empty()) {
    for (int i = 0; i < kPlaces; ++i) {
      if (library.Song(i).Caption.get() != title) continue;
      const std::string place = std::to_string(i + 1);
      return romanian ? "Locul " + place + " in clasament" : "Position " + place + " in Top 20";
    }
  }
  auto& waiting = library.ListaAsteptare;
  bool isWaiting = false;
  for (int i = 0; i < kWaitingRows && !isWaiting; ++i) {
    ResumeNext([&] {
      waiting.Selected(i);
      isWaiting = waiting.Text() == title;
    });
  }
  if (isWaiting) return romanian ? "Nu se afla in Top 20" : "Not in Top 20";
  return romanian ? "Nu se afla in clasament" : "Not in Top 20";
}

// The place that a draw r of 1 to 70 plays; 0 for any row of the playlist.
int PlaceForDraw(int r) {
  if (r >= 1 && r <= 5) return 3;
  if (r >= 6 && r <= 11) return 2;
  if (r >= 12 && r <= 24) return 1;
  if (r >= 25 && r <= 27) return 4;
  if (r >= 28 && r <= 59) return (r - 18) / 2;  // places 5 to 20, two draws each
  return 0;
}

void MoveToRandomRow() {
  auto& p = program();
  auto& picList = p.Playlist().PicList;
  p.random().Randomize();
  picList.Selected(p.random().Below(picList.ListCount()));
}

void SelectSameRowInPaths() {
  auto& p = program();
  p.DataForm().ListaCale.Selected(p.Playlist().PicList.ListIndex());
}

// Raises a run-time error when the place is empty or its title is on no row.
void PlayPlace(int place) {
  auto& picList = program().Playlist().PicList;
  const std::string title = Library().Song(place - 1).Caption;
  if (title.empty()) throw err::InvalidPropertyValue();
  picList.SetText(title);
  SelectSameRowInPaths();
  ClsMain().Play();
}

void PlayAnyRow() {
  MoveToRandomRow();
  SelectSameRowInPaths();
  ClsMain().Play();
}

void PlayTheBestFailed() {
  ResumeNext(MoveToRandomRow);
  ResumeNext(SelectSameRowInPaths);
  ResumeNext([] {
    if (!program().Playlist().PicList.Text().empty()) {
      ClsMain().Play();
    } else {
      ClsMain().SStop();
    }
  });
}

}  // namespace

void CountPlay(const std::string& Title) {
  if (Title.empty()) return;
  bool found = CountKnownTitle(Title);
  if (EnterEmptyPlace(Title)) found = true;
  if (!found) found = PromoteWaiting(Title);
  auto& library = Library();
  ResumeNext([&] {
    if (!found) library.ListaAsteptare.AddItem(Title);
  });
  ResumeNext([&] {
    if (library.ListaAsteptare.ListCount() >= kWaitingRows) library.ListaAsteptare.RemoveItem(0);
  });
  Ranks().RankLower = kPlaces;
  Ranks().RankUpper = kPlaces - 1;
  ResumeNext([&] { library.TimerClasament.Interval = 100; });
  ResumeNext([&] { library.TimerClasament.Enabled = true; });
}

void MoveUpInTop() {
  auto& library = Library();
  // 16-bit as the places are counted; leaving that range is an overflow.
  ResumeNext([] { Ranks().RankLower = CInt(Ranks().RankLower - 1.0); });
  ResumeNext([] { Ranks().RankUpper = CInt(Ranks().RankLower - 1.0); });
  ResumeNext([&] {
    if (CDbl(library.CountPlayed(Ranks().RankLower).Caption.get()) >
        CDbl(library.CountPlayed(Ranks().RankUpper).Caption.get())) {
      Exchange(Ranks().RankLower, Ranks().RankUpper);
    }
  });
  ResumeNext([&] {
    if (Ranks().RankLower == 0) library.TimerClasament.Enabled = false;
  });
  ResumeNext(ShowTopPosition);
}

void ShowTopPosition() {
  ResumeNext([] {
    auto& p = program();
    const bool romanian = p.Options().LanguageSelector.IsSelected(1);
    const std::string current = p.Main().PiesaCurenta.Caption;
    const std::string text = TopPositionText(current, romanian);
    p.Main().PozInTop.Caption = text;
  });
}

void PlayTheBest() {
  auto& random = program().random();
  random.Randomize();
  const int place = PlaceForDraw(random.Below(70) + 1);
  try {
    if (place > 0) {
      PlayPlace(place);
    } else {
      PlayAnyRow();
    }
  } catch (const std::exception&) {
    PlayTheBestFailed();
  }
}

void IncarcaClasament() {
  auto& store = program().DataForm();
  auto& rows = store.ListaClasament;
  auto& library = Library();
  ResumeNext([&] { rows.Clear(); });
  // The file replaces the waiting list, so a second load does not double it.
  ResumeNext([&] { library.ListaAsteptare.Clear(); });
  ResumeNext([&] { IncarcaData(store.ProgramPath(kTopFile), rows); });
  // A row the file does not have is skipped whole, so it cannot repeat the
  // text under the cursor.
  for (int row = 0; row < kPlaces; ++row) {
    ResumeNext([&] {
      rows.Selected(row);
      if (rows.Text().empty()) return;
      library.Song(row).Caption = rows.Text();
      library.CountPlayed(row).Caption = "1";
    });
  }
  for (int row = kPlaces; row < kPlaces + kWaitingRows; ++row) {
    ResumeNext([&] {
      rows.Selected(row);
      if (!rows.Text().empty()) library.ListaAsteptare.AddItem(rows.Text());
    });
  }
}

void SalveazaClasament() {
  auto& store = program().DataForm();
  auto& rows = store.ListaClasament;
  auto& library = Library();
  auto& waiting = library.ListaAsteptare;
  ResumeNext([&] { rows.Clear(); });
  for (int i = 0; i < kPlaces; ++i) {
    ResumeNext([&] { rows.AddItem(library.Song(i).Caption.get()); });
  }
  // A row the list does not have leaves the cursor on its last row, which is
  // written again: the file always has 40 lines.
  for (int i = 0; i < kWaitingRows; ++i) {
    ResumeNext([&] { waiting.Selected(i); });
    ResumeNext([&] { rows.AddItem(waiting.Text()); });
  }
  ResumeNext([&] { SalveazaData(store.ProgramPath(kTopFile), rows); });
}

}  // namespace yarvo
