// Owners of system handles: a handle is given back when its owner ends. Windows other than
// top-level ones need none, they belong to their parent window.
#pragma once

#include <windows.h>

#include <utility>

namespace deck {

// `Kind` tells the handle's type, the value that stands for none, and how it is given back.
template <class Kind>
class Handle {
 public:
  using Value = typename Kind::Value;

  Handle() = default;
  explicit Handle(Value value) : value_(value) {}
  Handle(Handle&& other) noexcept : value_(other.Release()) {}
  Handle& operator=(Handle&& other) noexcept {
    if (this != &other) Reset(other.Release());
    return *this;
  }
  ~Handle() { Reset(); }

  Value Get() const { return value_; }
  explicit operator bool() const { return value_ != Kind::None(); }
  // Gives the ownership away.
  Value Release() { return std::exchange(value_, Kind::None()); }
  void Reset(Value value = Kind::None()) {
    const Value old = std::exchange(value_, value);
    if (old != Kind::None()) Kind::Close(old);
  }

 private:
  Value value_ = Kind::None();
};

template <class T, auto CloseFunction>
struct HandleKind {
  using Value = T;
  static Value None() { return nullptr; }
  static void Close(Value value) { CloseFunction(value); }
};

struct FileHandleKind : HandleKind<HANDLE, CloseHandle> {
  static HANDLE None() { return INVALID_HANDLE_VALUE; }
};

struct FindHandleKind : HandleKind<HANDLE, FindClose> {
  static HANDLE None() { return INVALID_HANDLE_VALUE; }
};

using FileHandle = Handle<FileHandleKind>;
using FindHandle = Handle<FindHandleKind>;
using KernelHandle = Handle<HandleKind<HANDLE, CloseHandle>>;  // processes, threads, events
using WindowHandle = Handle<HandleKind<HWND, DestroyWindow>>;
using MenuHandle = Handle<HandleKind<HMENU, DestroyMenu>>;
using AcceleratorsHandle = Handle<HandleKind<HACCEL, DestroyAcceleratorTable>>;
using FontHandle = Handle<HandleKind<HFONT, DeleteObject>>;
using BrushHandle = Handle<HandleKind<HBRUSH, DeleteObject>>;
using BitmapHandle = Handle<HandleKind<HBITMAP, DeleteObject>>;
using IconHandle = Handle<HandleKind<HICON, DestroyIcon>>;
using DeviceContextHandle = Handle<HandleKind<HDC, DeleteDC>>;

}  // namespace deck
