// The program's entry.
#include <windows.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/hand_over.h"
#include "app/settings_store.h"
#include "app/startup_file.h"
#include "app/win32/program.h"
#include "app/win32/running_editor.h"
#include "platform/strings.h"
#include "platform/win32/wide_text.h"
#include "platform/win32/win32_code_page.h"
#include "platform/win32/win32_files.h"
#include "platform/win32/win32_profile_files.h"

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

// Without the setting every start is an editor of its own, and `other` is left empty.
StartAs HowToStart(const std::u16string& applicationFolder, std::u16string_view commandLine,
                   std::optional<RunningEditor>& other) {
  const Win32CodePage codePage;
  if (!WantsSingleInstance(Win32ProfileFiles(codePage), applicationFolder)) {
    return StartAs::kBesideOthers;
  }
  other.emplace();
  const Win32Files files;
  const std::u16string file = StartupFileOf(commandLine);
  return HandOver(FileExists(files, file) ? files.Absolute(file) : std::u16string(),
                  {.claim = [&](int milliseconds) { return other->Claim(milliseconds); },
                   .tell = [&](const std::string& bytes) { return other->Tell(bytes); }});
}

}  // namespace
}  // namespace deck

int WINAPI wWinMain(HINSTANCE, HINSTANCE, wchar_t*, int) {
  deck::NarrowLibrarySearch();
  const std::u16string folder = deck::ApplicationFolder();
  const std::u16string commandLine = deck::FromWide(GetCommandLineW());
  std::optional<deck::RunningEditor> other;
  const deck::StartAs startAs = deck::HowToStart(folder, commandLine, other);
  if (startAs == deck::StartAs::kHandedOver) return 0;
  deck::Program program;
  if (!program.Load(folder, commandLine)) return 1;
  if (startAs == deck::StartAs::kOnlyEditor) program.TakeHandedOverFiles();
  // After an update or a crash Windows starts the program again, and unsaved texts come back. Where
  // it cannot, the user starts it.
  static_cast<void>(RegisterApplicationRestart(L"", 0));
  return program.Run();
}
