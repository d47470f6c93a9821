#pragma once
// The seven calls made directly on this system (a Windows build, or a program run by Wine).
#include "series/Win32Api.h"

namespace aq {

Win32Api& systemWin32Api();

}  // namespace aq
