#include "app/win32/running_editor.h"

#include <array>
#include <vector>

#include "platform/strings.h"
#include "platform/win32/wide_text.h"

namespace deck {
namespace {

constexpr const wchar_t* kClassName = L"Editor";
constexpr const wchar_t* kTakesFiles = L"WrenDeck.TakesFiles";
constexpr UINT kAnswerWithin = 3000;  // milliseconds

std::u16string FolderOfProcess(DWORD process) {
  const KernelHandle handle(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, process));
  if (!handle) return {};
  std::vector<wchar_t> path(32768);
  auto length = static_cast<DWORD>(path.size());
  if (!QueryFullProcessImageNameW(handle.Get(), 0, path.data(), &length)) return {};
  return std::u16string(FolderOf(FromWide({path.data(), length})));
}

DWORD ProcessOf(HWND window) {
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  return process;
}

bool IsMarked(HWND window) {
  std::array<wchar_t, 16> name{};
  GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  return std::wstring_view(name.data()) == kClassName && GetPropW(window, kTakesFiles) != nullptr;
}

struct Search {
  std::u16string_view folder;
  HWND found;
};

BOOL CALLBACK LookAt(HWND window, LPARAM parameter) {
  auto& search = *reinterpret_cast<Search*>(parameter);
  if (!IsMarked(window)) return TRUE;
  const DWORD process = ProcessOf(window);
  if (process == GetCurrentProcessId()) return TRUE;
  if (!EqualsIgnoringCase(FolderOfProcess(process), search.folder)) return TRUE;
  search.found = window;
  return FALSE;
}

HandOverReply ReplyOf(DWORD_PTR answer) {
  switch (answer) {
    case static_cast<DWORD_PTR>(HandOverReply::kTaken):
      return HandOverReply::kTaken;
    case static_cast<DWORD_PTR>(HandOverReply::kBusy):
      return HandOverReply::kBusy;
    default:
      return HandOverReply::kRefused;
  }
}

}  // namespace

RunningEditor::RunningEditor() : folder_(FolderOfProcess(GetCurrentProcessId())) {
  if (folder_.empty()) return;
  const std::u16string name = u"Local\\" + OnlyEditorName(folder_);
  right_.Reset(CreateMutexW(nullptr, FALSE, Wide(name)));
}

bool RunningEditor::Claim(int milliseconds) {
  if (!right_) return false;
  const DWORD result = WaitForSingleObject(right_.Get(), static_cast<DWORD>(milliseconds));
  return result == WAIT_OBJECT_0 || result == WAIT_ABANDONED;
}

std::optional<HandOverReply> RunningEditor::Tell(const std::string& bytes) const {
  if (!right_) return HandOverReply::kRefused;
  Search search{folder_, nullptr};
  EnumWindows(LookAt, reinterpret_cast<LPARAM>(&search));
  if (search.found == nullptr) return std::nullopt;
  // Only the program that the user has just started may hand the foreground on.
  AllowSetForegroundWindow(ProcessOf(search.found));
  std::string copy = bytes;
  COPYDATASTRUCT data{static_cast<ULONG_PTR>(kHandOverKind), static_cast<DWORD>(copy.size()),
                      copy.data()};
  DWORD_PTR answer = 0;
  const bool answered =
      SendMessageTimeoutW(search.found, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data),
                          SMTO_ABORTIFHUNG, kAnswerWithin, &answer) != 0;
  const HandOverReply reply = answered ? ReplyOf(answer) : HandOverReply::kRefused;
  // For a window that ended meanwhile the system answers, and that is no refusal.
  if (reply == HandOverReply::kRefused && !IsWindow(search.found)) return std::nullopt;
  return reply;
}

void LetItBeFound(HWND window) {
  // One that cannot be found takes no files: every start is then an editor of its own.
  SetPropW(window, kTakesFiles, reinterpret_cast<HANDLE>(1));
}

}  // namespace deck
