// The system's message boxes. Owned by the program's entry.
#pragma once

#include <windows.h>

#include <functional>

#include "platform/prompts.h"

namespace deck {

class Win32Prompts : public Prompts {
 public:
  // `owner` tells the window that a box stands in front of and keeps from being used; null for
  // none.
  explicit Win32Prompts(std::function<HWND()> owner) : owner_(std::move(owner)) {}

  Answer Show(const Message& message) override;

 private:
  std::function<HWND()> owner_;
};

}  // namespace deck
