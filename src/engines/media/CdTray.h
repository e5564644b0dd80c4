#pragma once

namespace yarvo {

// Opens (true) or closes the tray of the machine's CD drive (/dev/cdrom, else
// /dev/sr0). Does nothing, and reports nothing, where there is no drive or
// the drive refuses.
void moveCdTray(bool openTray);

}  // namespace yarvo
