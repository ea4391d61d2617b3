// OLE, which drag and drop needs, on for the thread as long as the object lives.
#pragma once

#include <windows.h>

#include <ole2.h>

namespace deck {

class Ole {
 public:
  Ole() : result_(OleInitialize(nullptr)) {}
  ~Ole() {
    if (SUCCEEDED(result_)) OleUninitialize();
  }
  Ole(const Ole&) = delete;
  Ole& operator=(const Ole&) = delete;

 private:
  HRESULT result_;
};

}  // namespace deck
