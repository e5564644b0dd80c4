#include "engines/media/CdTray.h"

#include <fcntl.h>
#include <linux/cdrom.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <initializer_list>

namespace yarvo {

void moveCdTray(bool openTray) {
  for (const char* device : {"/dev/cdrom", "/dev/sr0"}) {
    // O_NONBLOCK opens the drive even with no disc in it.
    const int fd = ::open(device, O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0) {
      continue;
    }
    ::ioctl(fd, openTray ? CDROMEJECT : CDROMCLOSETRAY, 0);
    ::close(fd);
    return;
  }
}

}  // namespace yarvo
