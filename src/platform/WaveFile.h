#pragma once

#include "platform/FileSystem.h"

#include <string>

namespace kaz {

// The format of a wave sound as its file states it: what the device is asked whether it plays it. Reads the
// start of the file only. Throws DeviceError with plain words when the file is no wave sound, and as
// FileSystem does.
std::string WaveFormatOf(FileSystem& files, const std::string& path);

}  // namespace kaz
