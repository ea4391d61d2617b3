// Members that several of the probe's answers have.
#pragma once

#include <windows.h>

#include <string_view>

#include "tests/desktop/probe/json_writer.h"

namespace deck::probe {

inline void WriteHandle(std::string_view key, HWND window, JsonWriter& json) {
  json.Key(key).Number(static_cast<long long>(reinterpret_cast<INT_PTR>(window)));
}

inline void WriteRectValue(const RECT& rect, JsonWriter& json) {
  json.BeginArray().Number(rect.left).Number(rect.top);
  json.Number(rect.right).Number(rect.bottom).EndArray();
}

inline void WriteRect(std::string_view key, const RECT& rect, JsonWriter& json) {
  WriteRectValue(rect, json.Key(key));
}

}  // namespace deck::probe
