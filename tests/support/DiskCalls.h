#pragma once

#include <functional>
#include <string>

namespace test {

// Sees each call by which this program's files reach the disk or get their names, before it is made: its name
// and the file. True lets it be made; else it fails as on a bad disk. An empty one lets all be made.
using DiskWatch = std::function<bool(const std::string& call, const std::string& file)>;
void WatchDisk(DiskWatch watch);

}  // namespace test
