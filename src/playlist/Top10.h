#pragma once
// The ranking: the 20 most played songs and a waiting list of songs played
// once, all held in controls of MediaLibrary.
//
// A song is its display title (a row text of Playlist.PicList), compared
// exactly and case-sensitively. Place p is MediaLibrary.Song(p - 1), its count
// CountPlayed(p - 1) as decimal text; an empty caption is an empty place. The
// waiting list is MediaLibrary.ListaAsteptare, oldest first. Only the order
// survives a restart: Data/top.data holds titles, not counts.
//
// Every routine goes on with the next statement after a run-time error. All
// run on the interface thread; the climb is driven by
// MediaLibrary.TimerClasament (100 ms), whose tick runs MoveUpInTop.

#include <string>

namespace yarvo {

// Counts one play of `Title`: its place's count goes up by one, a new title
// takes the first empty place, a title played once outside a full list waits,
// and a waiting title played again takes place 20 with count 2 (the song that
// stood there is lost). Then a climb pass starts from the bottom.
// An empty title (a file that is not on the playlist) is not a song: nothing
// changes and no climb starts.
void CountPlay(const std::string& Title);

// One step of the climb: the next pair of places from the bottom exchange
// when the lower one has the greater count; equal counts keep their order.
// The pass ends (the timer stops) after the step that reaches place 1;
// each step ends with ShowTopPosition.
void MoveUpInTop();

// Writes to Main.PozInTop where Main.PiesaCurenta stands, in Romanian when
// row 1 of Options.LanguageSelector is selected, else in English. An empty
// current title matches no empty place.
void ShowTopPosition();

// Plays a song drawn by the ranking (the "Play the best" order mode): a
// draw r of 1 to 70 weighs places 1 to 20 against any row of the playlist.
// A place that is empty or whose title is no longer on the playlist falls
// back to a random row; an empty row there stops instead of playing.
void PlayTheBest();

// Fills the places (count "1" each) and the waiting list from
// Data/top.data, through DataForm.ListaClasament. An empty or missing line
// leaves its place as it was (empty at start-up); the waiting list is
// replaced. Called at the start of ClsMain::IncarcaSetari.
void IncarcaClasament();

// Writes Data/top.data: 20 titles (empty places as empty lines), then 20
// rows of the waiting list, its last row repeated to fill them. Called by
// ClsMain::CloseYarvo.
void SalveazaClasament();

}  // namespace yarvo
