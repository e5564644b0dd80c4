#pragma once
// The genre filter: each file that has begun to play, on either engine, is
// checked against the blocked artist names of Data/mnin.data
// (DataForm.ListaManelisti). A hit stops both engines, tells the user and
// closes the program; so does a list of fewer than 10 names, a missing file
// included. There is no switch that turns the check off.

#include <string>

namespace yarvo {

// Searches the path, Main.Titlu, the cursor row of Playlist.PicList and the
// tag's title and artist (MediaLibrary.Text1T, Text2T), joined by one blank
// each, for every blocked name: anywhere, across the blanks too, without
// regard to case. Throws ProcessEnd on a hit or a short list; returns when
// the file may play.
void CheckManea(const std::string& FileName);

// Stops both engines, names the file (Main.LbFileName(0)) in a message and
// closes the program through ClsMain::CloseYarvo. Does not return.
[[noreturn]] void StopOnManea();

}  // namespace yarvo
