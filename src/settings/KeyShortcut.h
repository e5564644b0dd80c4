#pragma once
// Keyboard shortcuts: ten player actions, one key each.
//
// The bindings are the text boxes of the keyboard page of Options, read on
// every key press: AsciBox(i) holds the key code of action i as decimal text
// (a Windows virtual-key code, see host/VirtualKey.h), AsciText(i)
// the character the key typed, for display. "0" binds nothing: no key has
// code 0. Data/keyboard.data is their image, 20 lines: the ten codes, then
// the ten display texts.
//
// Actions, by index: 0 show JumpForm, 1 Play, 2 Pause, 3 Stop, 4 next song,
// 5 previous song, 6 minimize, 7 close the player, 8 volume up 10,
// 9 volume down 10. Minimize and close do nothing while the video is full
// screen. Every statement goes on after a run-time error, without a message.

namespace yarvo {

class Options;

// Runs every action bound to `KeyCode`, in index order; the code is left as
// it is. Called by the key-down handlers of Main, Main.KeyFocus,
// MiniForm.KeyFocus, Playlist and Playlist.PicList.
void HandleShortcutKey(int& KeyCode);

// Fills the boxes from Data/keyboard.data through DataForm.KeyboardSettings:
// a missing file leaves them as they are, a short one fills what it has.
void LoadKeyboardData();

// Writes the 20 lines of Data/keyboard.data.
void SaveKeyboardData();

// Assigning a key on the keyboard page. A click puts the caret at the start,
// so that the key's character lands in front of the old text; at key-up the
// first character goes to AsciText(Index) and the box takes the key code. A
// key that types nothing leaves the first character of the old code.
void Options_AsciBox_Click(int Index);
void Options_AsciBox_KeyUp(int Index, int& KeyCode, int Shift);

// Binds the two handlers above to the ten boxes; for the Options constructor.
void BindShortcutBoxes(Options& options);

}  // namespace yarvo
