#include "documents/win32/edit_drop_target.h"

#include <shellapi.h>

#include <optional>
#include <utility>

#include "documents/win32/edit_clipboard.h"
#include "platform/win32/wide_text.h"

namespace deck {
namespace {

FORMATETC FileList() {
  return {CF_HDROP, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
}

bool HasFiles(IDataObject& data) {
  FORMATETC wanted = FileList();
  return data.QueryGetData(&wanted) == S_OK;
}

std::vector<std::u16string> FilesOf(IDataObject& data) {
  FORMATETC wanted = FileList();
  STGMEDIUM medium{};
  if (FAILED(data.GetData(&wanted, &medium))) return {};
  const HDROP list = static_cast<HDROP>(medium.hGlobal);
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
  if (receiver.files && HasFiles(*data)) {
    receiver.files(FilesOf(*data));
  } else if (const std::optional<std::u16string> text = TextOf(*data)) {
    receiver.text({where.x, where.y}, *text);
  }
  return S_OK;
}

bool EditDropTarget::Takes(IDataObject& data) const {
  return (receiver_.files && HasFiles(data)) || (receiver_.text && HasText(data));
}

// Copies where the source allows it: a source that moves would erase its own selection afterwards,
// which in this very box is not where it was any more.
DWORD EditDropTarget::Effect(DWORD allowed) const {
  if (!takes_) return DROPEFFECT_NONE;
  if ((allowed & DROPEFFECT_COPY) != 0) return DROPEFFECT_COPY;
  return allowed & DROPEFFECT_MOVE;
}

}  // namespace deck
