#pragma once
// The whole run: both skins, the icons, and the contrast report.

#include <QString>
#include <cstdio>

namespace skingen {

// Writes everything under `dataFolder` (Skins/<name>/, Icons/), prints the
// contrast report to `report` and returns the exit status: 0 when all is
// written and every text pair reaches 4.5:1, 1 when a pair falls short,
// 2 when something could not be drawn or written.
int GenerateAll(const QString& dataFolder, std::FILE* report);

}  // namespace skingen
