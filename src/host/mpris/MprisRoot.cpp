#include "host/mpris/MprisRoot.h"

#include "host/mpris/MprisService.h"

namespace yarvo {

MprisRoot::MprisRoot(MprisService* service) : QDBusAbstractAdaptor(service), service_(*service) {}

QString MprisRoot::Identity() const { return QStringLiteral("Yarvo Player"); }

QString MprisRoot::DesktopEntry() const { return QStringLiteral(YARVO_APP_ID); }

QStringList MprisRoot::SupportedUriSchemes() const { return {QStringLiteral("file")}; }

QStringList MprisRoot::SupportedMimeTypes() const {
  return QStringLiteral(YARVO_MIME_TYPES).split(u',');
}

void MprisRoot::Raise() { service_.Raise(); }

void MprisRoot::Quit() { service_.Quit(); }

}  // namespace yarvo
