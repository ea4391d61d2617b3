#include "platform/win32/subclass.h"

#include <unordered_map>

#include "platform/win32/procedure_border.h"

namespace deck {
namespace {

struct Layer {
  SubclassProcedure procedure;
  void* owner;
  WNDPROC below;
};

// All windows belong to one thread.
std::unordered_map<HWND, Layer>& Layers() {
  static std::unordered_map<HWND, Layer> layers;
  return layers;
}

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  return InProcedure([&]() -> LRESULT {
    const auto found = Layers().find(window);
    if (found == Layers().end()) return DefWindowProcW(window, message, wParam, lParam);
    // A copy: whatever the message leads to may end the window.
    const Layer layer = found->second;
    const LRESULT result = layer.procedure(layer.owner, window, message, wParam, lParam);
    if (message == WM_NCDESTROY) Layers().erase(window);
    return result;
  });
}

}  // namespace

void SubclassWith(SubclassProcedure procedure, HWND window, void* owner) {
  if (window == nullptr || Layers().contains(window)) return;
  const auto below = reinterpret_cast<WNDPROC>(GetWindowLongPtrW(window, GWLP_WNDPROC));
  Layers()[window] = {procedure, owner, below};
  SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(Procedure));
}

LRESULT CallSubclassed(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  const auto found = Layers().find(window);
  if (found == Layers().end()) return DefWindowProcW(window, message, wParam, lParam);
  return CallWindowProcW(found->second.below, window, message, wParam, lParam);
}

}  // namespace deck
