#include "documents/win32/edit_drop_target.h"

#include <shellapi.h>

#include <algorithm>
#include <iterator>
#include <utility>

#include "platform/win32/wide_text.h"
#include "platform/win32/win32_clipboard.h"

namespace deck {
namespace {

FORMATETC InMemory(UINT format) {
  return {static_cast<CLIPFORMAT>(format), nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
}

bool Offers(IDataObject& data, UINT format) {
  FORMATETC wanted = InMemory(format);
  return data.QueryGetData(&wanted) == S_OK;
}

bool OffersText(IDataObject& data) {
  return std::any_of(std::begin(kTextFormats), std::end(kTextFormats),
                     [&](UINT format) { return Offers(data, format); });
}

// Empty when the source does not keep its offer.
std::u16string TextOf(IDataObject& data) {
  for (const UINT format : kTextFormats) {
    FORMATETC wanted = InMemory(format);
    STGMEDIUM medium{};
    if (FAILED(data.GetData(&wanted, &medium))) continue;
    std::u16string text = TextInMemory(medium.hGlobal, format);
    ReleaseStgMedium(&medium);
    return text;
  }
  return {};
}

std::vector<std::u16string> FilesOf(IDataObject& data) {
  FORMATETC wanted = InMemory(CF_HDROP);
  STGMEDIUM medium{};
  if (FAILED(data.GetData(&wanted, &medium))) return {};
  auto* const list = static_cast<HDROP>(medium.hGlobal);
  std::vector<std::u16string> paths;
  const UINT count = DragQueryFileW(list, 0xFFFFFFFF, nullptr, 0);
  for (UINT i = 0; i < count; ++i) {
    std::wstring path(DragQueryFileW(list, i, nullptr, 0), L'\0');
    DragQueryFileW(list, i, path.data(), static_cast<UINT>(path.size()) + 1);
    paths.push_back(FromWide(path));
  }
  ReleaseStgMedium(&medium);
  return paths;
}

}  // namespace

HRESULT EditDropTarget::QueryInterface(REFIID id, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (!IsEqualIID(id, IID_IUnknown) && !IsEqualIID(id, IID_IDropTarget)) return E_NOINTERFACE;
  *object = static_cast<IDropTarget*>(this);
  AddRef();
  return S_OK;
}

ULONG EditDropTarget::Release() {
  const ULONG left = --references_;
  // The system decides how long a drag in progress needs the object.
  if (left == 0) delete this;
  return left;
}

HRESULT EditDropTarget::DragEnter(IDataObject* data, DWORD, POINTL, DWORD* effect) {
  if (data == nullptr || effect == nullptr) return E_INVALIDARG;
  takes_ = Takes(*data);
  *effect = Effect(*effect);
  return S_OK;
}

HRESULT EditDropTarget::DragOver(DWORD, POINTL, DWORD* effect) {
  if (effect == nullptr) return E_INVALIDARG;
  *effect = Effect(*effect);
  return S_OK;
}

HRESULT EditDropTarget::DragLeave() {
  takes_ = false;
  return S_OK;
}

HRESULT EditDropTarget::Drop(IDataObject* data, DWORD, POINTL where, DWORD* effect) {
  if (data == nullptr || effect == nullptr) return E_INVALIDARG;
  takes_ = Takes(*data);
  *effect = Effect(*effect);
  takes_ = false;
  if (*effect == DROPEFFECT_NONE) return S_OK;
  // The receiver may destroy the box, which disconnects this object, while the function runs.
  const Receiver receiver = receiver_;
  if (receiver.files && Offers(*data, CF_HDROP)) {
    receiver.files(FilesOf(*data));
  } else if (const std::u16string text = TextOf(*data); !text.empty()) {
    receiver.text({where.x, where.y}, text);
  }
  return S_OK;
}

bool EditDropTarget::Takes(IDataObject& data) const {
  return (receiver_.files && Offers(data, CF_HDROP)) || (receiver_.text && OffersText(data));
}

// Copies where the source allows it: a source that moves would erase its own selection afterwards,
// which in this very box is not where it was any more.
DWORD EditDropTarget::Effect(DWORD allowed) const {
  if (!takes_) return DROPEFFECT_NONE;
  if ((allowed & DROPEFFECT_COPY) != 0) return DROPEFFECT_COPY;
  return allowed & DROPEFFECT_MOVE;
}

}  // namespace deck
