// Members that several of the probe's answers have.
#pragma once

#include <windows.h>

#include <string_view>

#include "tests/desktop/probe/json_writer.h"

namespace deck::probe {

inline void WriteHandle(std::string_view key, HWND window, JsonWriter& json) {
  json.Key(key).Number(static_cast<long long>(reinterpret_cast<INT_PTR>(window)));
}

inline void WriteRect(std::string_view key, const RECT& rect, JsonWriter& json) {
  json.Key(key).BeginArray();
  json.Number(rect.left).Number(rect.top).Number(rect.right).Number(rect.bottom);
  json.EndArray();
}

}  // namespace deck::probe
