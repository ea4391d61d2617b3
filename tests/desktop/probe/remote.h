// Messages to windows of another process. Messages of the common controls and of rich edit carry
// pointers that Windows does not carry across, so what they point to must lie in that process.
#pragma once

#include <windows.h>

#include <span>
#include <string>

namespace deck::probe {

// The result of the message. Throws std::runtime_error when the window is gone or does not answer
// within five seconds.
LRESULT Ask(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

// Throws std::runtime_error that names what failed, with the system's error number.
[[noreturn]] void ThrowLastError(const char* what);

// Memory inside the process that owns a window. Zero at first.
class RemoteMemory {
 public:
  RemoteMemory(HWND window, std::size_t size);
  ~RemoteMemory();
  RemoteMemory(const RemoteMemory&) = delete;
  RemoteMemory& operator=(const RemoteMemory&) = delete;

  HANDLE process() const { return process_; }
  void* address() const { return address_; }
  LPARAM Parameter(std::size_t offset = 0) const;

  void Write(const void* from, std::size_t size, std::size_t offset = 0);
  void Read(void* to, std::size_t size, std::size_t offset = 0) const;

  template <class T>
  void Put(const T& value, std::size_t offset = 0) {
    Write(&value, sizeof value, offset);
  }
  template <class T>
  T Get(std::size_t offset = 0) const {
    T value{};
    Read(&value, sizeof value, offset);
    return value;
  }
  // The text up to its final zero, at most `limit` units long.
  std::wstring Text(std::size_t limit, std::size_t offset = 0) const;

 private:
  HANDLE process_ = nullptr;
  void* address_ = nullptr;
};

}  // namespace deck::probe
