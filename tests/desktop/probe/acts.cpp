#include "tests/desktop/probe/acts.h"

#include "tests/desktop/probe/remote.h"

namespace deck::probe {

void PostTo(HWND window, UINT message, WPARAM wParam, LPARAM lParam, JsonWriter& json) {
  if (PostMessageW(window, message, wParam, lParam) == 0) ThrowLastError("posting");
  json.BeginObject().EndObject();
}

void InsertInto(HWND edit, const std::string& text, JsonWriter& json) {
  const std::wstring wide(text.begin(), text.end());
  Ask(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(wide.c_str()));
  json.BeginObject().EndObject();
}

void Terminate(DWORD processId, JsonWriter& json) {
  HANDLE process = OpenProcess(PROCESS_TERMINATE, FALSE, processId);
  if (process == nullptr) ThrowLastError("opening the process");
  const bool ended = TerminateProcess(process, 1) != 0;
  CloseHandle(process);
  if (!ended) ThrowLastError("ending the process");
  json.BeginObject().EndObject();
}

}  // namespace deck::probe
