#include "tests/desktop/probe/menu_guest.h"

#include <algorithm>
#include <array>
#include <string>

#include "tests/desktop/probe/json_parts.h"

namespace deck::probe {
namespace {

constexpr UINT kGetPopupMenu = 0x01E1;  // MN_GETHMENU of the system's popup windows

HMENU MenuOf(HWND window) {
  std::array<wchar_t, 16> name{};
  GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  if (std::wstring_view(name.data()) == L"#32768") {
    return reinterpret_cast<HMENU>(SendMessageW(window, kGetPopupMenu, 0, 0));
  }
  return GetMenu(window);
}

void WriteItems(HWND window, HMENU menu, JsonWriter& json);

void WriteItem(HWND window, HMENU menu, UINT index, JsonWriter& json) {
  std::array<wchar_t, 1024> caption{};
  MENUITEMINFOW item{};
  item.cbSize = sizeof item;
  item.fMask = MIIM_ID | MIIM_STATE | MIIM_FTYPE | MIIM_SUBMENU | MIIM_STRING;
  item.dwTypeData = caption.data();
  item.cch = static_cast<UINT>(caption.size());
  GetMenuItemInfoW(menu, index, TRUE, &item);
  RECT rect{};
  GetMenuItemRect(window, menu, index, &rect);

  json.BeginObject().Key("caption").Text(caption.data());
  json.Key("id").Number(item.hSubMenu == nullptr ? static_cast<long long>(item.wID) : -1);
  json.Key("separator").Flag((item.fType & MFT_SEPARATOR) != 0);
  json.Key("enabled").Flag((item.fState & MFS_DISABLED) == 0);
  json.Key("checked").Flag((item.fState & MFS_CHECKED) != 0);
  WriteRect("rect", rect, json);
  json.Key("items");
  WriteItems(window, item.hSubMenu, json);
  json.EndObject();
}

void WriteItems(HWND window, HMENU menu, JsonWriter& json) {
  json.BeginArray();
  const int count = menu == nullptr ? 0 : GetMenuItemCount(menu);
  for (int i = 0; i < count; ++i) WriteItem(window, menu, static_cast<UINT>(i), json);
  json.EndArray();
}

}  // namespace
}  // namespace deck::probe

extern "C" __declspec(dllexport) DWORD WINAPI ReadMenu(void* menuRequest) {
  using namespace deck::probe;
  auto& request = *static_cast<MenuRequest*>(menuRequest);
  JsonWriter json;
  WriteItems(request.window, MenuOf(request.window), json);
  const std::string& written = json.Written();
  request.length = static_cast<DWORD>(written.size());
  if (written.size() <= request.answer.size()) {
    std::copy(written.begin(), written.end(), request.answer.begin());
  }
  return 0;
}
