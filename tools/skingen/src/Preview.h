#pragma once
// The preview mode: mock-ups of every window of one skin folder, written as
// PNG files at 1x and 2x.

#include <QString>
#include <QStringList>

namespace skingen {

// Writes the previews of the skin in `skinFolder` into `outFolder` and
// returns their paths; an empty list when the folder holds no skin.ini.
QStringList WritePreviews(const QString& skinFolder, const QString& outFolder);

}  // namespace skingen
