#include "tests/desktop/probe/remote.h"

#include <stdexcept>

namespace deck::probe {

constexpr UINT kPatience = 5000;  // milliseconds

void ThrowLastError(const char* what) {
  const DWORD error = GetLastError();
  throw std::runtime_error(std::string(what) + " failed with error " + std::to_string(error));
}

LRESULT Ask(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  DWORD_PTR result = 0;
  if (SendMessageTimeoutW(window, message, wParam, lParam, SMTO_NORMAL, kPatience, &result) == 0) {
    ThrowLastError("asking the window");
  }
  return static_cast<LRESULT>(result);
}

RemoteMemory::RemoteMemory(HWND window, std::size_t size) {
  DWORD processId = 0;
  GetWindowThreadProcessId(window, &processId);
  process_ = OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE |
                             PROCESS_CREATE_THREAD | PROCESS_QUERY_INFORMATION,
                         FALSE, processId);
  if (process_ == nullptr) ThrowLastError("opening the window's process");
  address_ = VirtualAllocEx(process_, nullptr, size, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE);
  if (address_ == nullptr) {
    CloseHandle(process_);
    ThrowLastError("getting memory in the window's process");
  }
}

RemoteMemory::~RemoteMemory() {
  VirtualFreeEx(process_, address_, 0, MEM_RELEASE);
  CloseHandle(process_);
}

LPARAM RemoteMemory::Parameter(std::size_t offset) const {
  return reinterpret_cast<LPARAM>(address_) + static_cast<LPARAM>(offset);
}

void RemoteMemory::Write(const void* from, std::size_t size, std::size_t offset) {
  if (WriteProcessMemory(process_, static_cast<char*>(address_) + offset, from, size, nullptr) ==
      0) {
    ThrowLastError("writing the process's memory");
  }
}

void RemoteMemory::Read(void* to, std::size_t size, std::size_t offset) const {
  if (ReadProcessMemory(process_, static_cast<char*>(address_) + offset, to, size, nullptr) == 0) {
    ThrowLastError("reading the process's memory");
  }
}

std::wstring RemoteMemory::Text(std::size_t limit, std::size_t offset) const {
  std::wstring text(limit, L'\0');
  Read(text.data(), limit * sizeof(wchar_t), offset);
  text.resize(text.find(L'\0') == std::wstring::npos ? limit : text.find(L'\0'));
  return text;
}

}  // namespace deck::probe
