#include "platform/win32/wine.h"

#include <windows.h>

namespace deck {

bool RunsUnderWine() {
  return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

}  // namespace deck
