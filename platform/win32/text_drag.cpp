#include "platform/win32/text_drag.h"

// In this order: the second and third need the first.
#include <windows.h>

#include <ole2.h>
#include <shlobj.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstring>
#include <string_view>
#include <utility>

#include "platform/win32/procedure_border.h"
#include "platform/win32/wide_text.h"

namespace deck {
namespace {

FORMATETC FormatOf(UINT format) {
  return {static_cast<CLIPFORMAT>(format), nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
}

const std::array<FORMATETC, 2> kFormats = {FormatOf(CF_UNICODETEXT), FormatOf(CF_TEXT)};

HGLOBAL MemoryWith(const void* bytes, std::size_t size) {
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, size);
  if (memory == nullptr) return nullptr;
  std::memcpy(GlobalLock(memory), bytes, size);
  GlobalUnlock(memory);
  return memory;
}

HGLOBAL UnicodeOf(const std::u16string& text) {
  return MemoryWith(text.c_str(), (text.size() + 1) * sizeof(char16_t));
}

HGLOBAL CodePageTextOf(const std::u16string& text) {
  const int size = WideCharToMultiByte(CP_ACP, 0, Wide(text), -1, nullptr, 0, nullptr, nullptr);
  if (size <= 0) return nullptr;
  std::string bytes(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(CP_ACP, 0, Wide(text), -1, bytes.data(), size, nullptr, nullptr);
  return MemoryWith(bytes.data(), bytes.size());
}

// The interfaces of OLE end objects by Release and have no destructors.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

// Counts its users and ends with the last one.
template <class Interface>
class Counted : public Interface {
 public:
  virtual ~Counted() = default;
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    const bool isKnown = id == IID_IUnknown || id == __uuidof(Interface);
    *object = isKnown ? this : nullptr;
    if (!isKnown) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++users_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --users_;
    if (left == 0) delete this;
    return left;
  }

 private:
  std::atomic<ULONG> users_ = 1;
};

class TextData final : public Counted<IDataObject> {
 public:
  explicit TextData(std::u16string text) : text_(std::move(text)) {}

  HRESULT STDMETHODCALLTYPE GetData(FORMATETC* format, STGMEDIUM* medium) override {
    *medium = {};
    const HRESULT answer = QueryGetData(format);
    if (answer != S_OK) return answer;
    return static_cast<HRESULT>(InProcedure([&]() -> LRESULT {
      const HGLOBAL memory = format->cfFormat == CF_TEXT ? CodePageTextOf(text_) : UnicodeOf(text_);
      if (memory == nullptr) return E_OUTOFMEMORY;
      medium->tymed = TYMED_HGLOBAL;
      medium->hGlobal = memory;
      return S_OK;
    }));
  }
  HRESULT STDMETHODCALLTYPE GetDataHere(FORMATETC*, STGMEDIUM*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE QueryGetData(FORMATETC* format) override {
    const bool isText = std::any_of(kFormats.begin(), kFormats.end(), [&](const FORMATETC& own) {
      return own.cfFormat == format->cfFormat;
    });
    if (!isText) return DV_E_FORMATETC;
    return (format->tymed & TYMED_HGLOBAL) != 0 ? S_OK : DV_E_TYMED;
  }
  HRESULT STDMETHODCALLTYPE GetCanonicalFormatEtc(FORMATETC*, FORMATETC* canonical) override {
    canonical->ptd = nullptr;
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE SetData(FORMATETC*, STGMEDIUM*, BOOL) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) override {
    *formats = nullptr;
    if (direction != DATADIR_GET) return E_NOTIMPL;
    return SHCreateStdEnumFmtEtc(static_cast<UINT>(kFormats.size()), kFormats.data(), formats);
  }
  HRESULT STDMETHODCALLTYPE DAdvise(FORMATETC*, DWORD, IAdviseSink*, DWORD*) override {
    return OLE_E_ADVISENOTSUPPORTED;
  }
  HRESULT STDMETHODCALLTYPE DUnadvise(DWORD) override { return OLE_E_ADVISENOTSUPPORTED; }
  HRESULT STDMETHODCALLTYPE EnumDAdvise(IEnumSTATDATA**) override {
    return OLE_E_ADVISENOTSUPPORTED;
  }

 private:
  std::u16string text_;
};

class DragSource final : public Counted<IDropSource> {
 public:
  HRESULT STDMETHODCALLTYPE QueryContinueDrag(BOOL escapePressed, DWORD keys) override {
    if (escapePressed) return DRAGDROP_S_CANCEL;
    return (keys & MK_LBUTTON) != 0 ? S_OK : DRAGDROP_S_DROP;
  }
  HRESULT STDMETHODCALLTYPE GiveFeedback(DWORD) override { return DRAGDROP_S_USEDEFAULTCURSORS; }
};

#pragma GCC diagnostic pop

}  // namespace

bool DragText(const std::u16string& text) {
  auto* data = new TextData(text);
  auto* source = new DragSource;
  DWORD effect = DROPEFFECT_NONE;
  const HRESULT result = DoDragDrop(data, source, DROPEFFECT_COPY, &effect);
  source->Release();
  data->Release();
  return result == DRAGDROP_S_DROP && effect != DROPEFFECT_NONE;
}

}  // namespace deck
