#include "tests/desktop/probe/menu_reader.h"

#include <windows.h>

#include <tlhelp32.h>

#include <array>
#include <memory>
#include <stdexcept>

#include "tests/desktop/probe/menu_guest.h"
#include "tests/desktop/probe/remote.h"

namespace deck::probe {
namespace {

constexpr DWORD kPatience = 5000;  // milliseconds
constexpr const wchar_t* kGuestName = L"menu_guest.dll";

std::wstring GuestPath() {
  std::array<wchar_t, 1024> path{};
  GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
  std::wstring text = path.data();
  return text.substr(0, text.rfind(L'\\') + 1) + kGuestName;
}

void RunThere(HANDLE process, LPTHREAD_START_ROUTINE function, void* argument) {
  HANDLE thread = CreateRemoteThread(process, nullptr, 0, function, argument, 0, nullptr);
  if (thread == nullptr) ThrowLastError("starting a thread in the window's process");
  const DWORD waited = WaitForSingleObject(thread, kPatience);
  CloseHandle(thread);
  if (waited != WAIT_OBJECT_0) throw std::runtime_error("the window's process did not answer");
}

// Where the guest lies in the process, or null.
std::byte* GuestBase(HANDLE process) {
  HANDLE modules = CreateToolhelp32Snapshot(TH32CS_SNAPMODULE, GetProcessId(process));
  if (modules == INVALID_HANDLE_VALUE) ThrowLastError("listing the process's modules");
  MODULEENTRY32W module{};
  module.dwSize = sizeof module;
  std::byte* base = nullptr;
  for (BOOL more = Module32FirstW(modules, &module); more != 0;
       more = Module32NextW(modules, &module)) {
    if (lstrcmpiW(module.szModule, kGuestName) == 0) {
      base = reinterpret_cast<std::byte*>(module.modBaseAddr);
    }
  }
  CloseHandle(modules);
  return base;
}

// System libraries lie at the same address in every process, so their functions do too.
template <class Function>
LPTHREAD_START_ROUTINE AsThread(Function function) {
  return reinterpret_cast<LPTHREAD_START_ROUTINE>(reinterpret_cast<void*>(function));
}

// The guest inside the process for as long as this lives.
class LoadedGuest {
 public:
  LoadedGuest(HWND window, HANDLE process) : process_(process) {
    const std::wstring path = GuestPath();
    here_ = LoadLibraryW(path.c_str());
    if (here_ == nullptr) ThrowLastError("loading menu_guest.dll");
    RemoteMemory remotePath(window, (path.size() + 1) * sizeof(wchar_t));
    remotePath.Write(path.c_str(), (path.size() + 1) * sizeof(wchar_t));
    RunThere(process, AsThread(LoadLibraryW), remotePath.address());
    there_ = GuestBase(process);
    if (there_ == nullptr) throw std::runtime_error("the process did not load menu_guest.dll");
  }
  ~LoadedGuest() {
    try {
      RunThere(process_, AsThread(FreeLibrary), there_);
    } catch (const std::exception&) {
      // The process ended meanwhile, and the guest with it.
    }
    FreeLibrary(here_);
  }
  LoadedGuest(const LoadedGuest&) = delete;
  LoadedGuest& operator=(const LoadedGuest&) = delete;

  // The function is as far from the library's beginning there as it is here.
  LPTHREAD_START_ROUTINE Function(const char* name) const {
    auto* local = reinterpret_cast<std::byte*>(GetProcAddress(here_, name));
    return AsThread(there_ + (local - reinterpret_cast<std::byte*>(here_)));
  }

 private:
  HANDLE process_;
  HMODULE here_ = nullptr;
  std::byte* there_ = nullptr;
};

}  // namespace

std::string ReadMenuOf(HWND window) {
  auto request = std::make_unique<MenuRequest>();
  request->window = window;
  RemoteMemory memory(window, sizeof *request);
  memory.Put(*request);
  {
    const LoadedGuest guest(window, memory.process());
    RunThere(memory.process(), guest.Function(kReadMenuName), memory.address());
  }
  memory.Read(request.get(), sizeof *request);
  if (request->length > request->answer.size()) throw std::runtime_error("the menu is too long");
  return {request->answer.data(), request->length};
}

}  // namespace deck::probe
