// The program's entry.
#include <windows.h>

#include <string>
#include <vector>

#include "app/win32/program.h"
#include "platform/strings.h"
#include "platform/win32/wide_text.h"

namespace deck {
namespace {

// Libraries come from the system's folder only: one that lies beside a document or beside the
// program must not be taken for the system's.
void NarrowLibrarySearch() {
  SetDllDirectoryW(L"");
  using Function = BOOL WINAPI(DWORD);
  auto* setDirectories = reinterpret_cast<Function*>(reinterpret_cast<void*>(
      GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "SetDefaultDllDirectories")));
  if (setDirectories != nullptr) setDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
}

// Without a trailing "\".
std::u16string ApplicationFolder() {
  std::vector<wchar_t> path(MAX_PATH);
  DWORD length = 0;
  while ((length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()))) >=
         path.size()) {
    path.resize(2 * path.size());
  }
  std::u16string folder(FolderOf(FromWide({path.data(), length})));
  if (folder.ends_with(u'\\')) folder.pop_back();
  return folder;
}

}  // namespace
}  // namespace deck

int WINAPI wWinMain(HINSTANCE, HINSTANCE, wchar_t*, int) {
  deck::NarrowLibrarySearch();
  deck::Program program;
  if (!program.Load(deck::ApplicationFolder(), deck::FromWide(GetCommandLineW()))) return 1;
  // After an update or a crash Windows starts the program again, and unsaved texts come back. Where
  // it cannot, the user starts it.
  static_cast<void>(RegisterApplicationRestart(L"", 0));
  return program.Run();
}
