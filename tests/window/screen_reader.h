// Asks for the names of controls as a screen reader does. Names that the program gives by itself go
// to a stand-in for the part of the system that keeps them, which is registered in its place: that
// of Wine refuses every name.
#pragma once

#include <windows.h>

#include <initguid.h>
#include <ole2.h>
#include <oleacc.h>

#include <array>
#include <map>
#include <string>

namespace deck {

// The interfaces of OLE have no virtual destructor: nothing ends this object by them.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

// Lives as long as the test; no window is made before it.
class ScreenReader final  // NOLINT(cppcoreguidelines-virtual-class-destructor): see above
    : public IAccPropServices,
      public IClassFactory {
 public:
  ScreenReader() {
    OleInitialize(nullptr);
    CoRegisterClassObject(CLSID_AccPropServices, static_cast<IClassFactory*>(this),
                          CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &registration_);
  }
  ~ScreenReader() {
    CoRevokeClassObject(registration_);
    OleUninitialize();
  }
  ScreenReader(const ScreenReader&) = delete;
  ScreenReader& operator=(const ScreenReader&) = delete;

  // Names given by the program to windows that are still there.
  std::size_t GivenNames() const { return given_.size(); }

  // Empty for a control without a name.
  std::wstring NameOf(HWND control) const {
    if (const auto given = given_.find(control); given != given_.end()) return given->second;
    const std::wstring kind = ClassOf(control);
    // What stands in a text is no name of it, even if the system says so.
    if (kind.starts_with(L"RICHEDIT") || kind == L"KEYLOGBOX") return {};
    // A combo box is called after the label in front of it, which Wine does not know.
    if (kind == L"COMBOBOX") return LabelBefore(control);
    return NameBySystem(control);
  }

  // IUnknown of both: the object belongs to the test.
  HRESULT WINAPI QueryInterface(REFIID id, void** object) override {
    if (id == IID_IAccPropServices) {
      *object = static_cast<IAccPropServices*>(this);
    } else if (id == IID_IUnknown || id == IID_IClassFactory) {
      *object = static_cast<IClassFactory*>(this);
    } else {
      *object = nullptr;
      return E_NOINTERFACE;
    }
    return S_OK;
  }
  ULONG WINAPI AddRef() override { return 1; }
  ULONG WINAPI Release() override { return 1; }

  HRESULT WINAPI CreateInstance(IUnknown*, REFIID id, void** object) override {
    return QueryInterface(id, object);
  }
  HRESULT WINAPI LockServer(BOOL) override { return S_OK; }

  HRESULT WINAPI SetHwndPropStr(HWND window, DWORD object, DWORD child, MSAAPROPID property,
                                LPCWSTR text) override {
    if (object != static_cast<DWORD>(OBJID_CLIENT) || child != CHILDID_SELF) return E_INVALIDARG;
    if (property != PROPID_ACC_NAME || !IsWindow(window)) return E_INVALIDARG;
    given_[window] = text;
    return S_OK;
  }
  HRESULT WINAPI ClearHwndProps(HWND window, DWORD, DWORD, const MSAAPROPID*, int) override {
    given_.erase(window);
    return S_OK;
  }

  HRESULT WINAPI SetPropValue(const BYTE*, DWORD, MSAAPROPID, VARIANT) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI SetPropServer(const BYTE*, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                               AnnoScope) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI ClearProps(const BYTE*, DWORD, const MSAAPROPID*, int) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI SetHwndProp(HWND, DWORD, DWORD, MSAAPROPID, VARIANT) override { return E_NOTIMPL; }
  HRESULT WINAPI SetHwndPropServer(HWND, DWORD, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                   AnnoScope) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI ComposeHwndIdentityString(HWND, DWORD, DWORD, BYTE**, DWORD*) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI DecomposeHwndIdentityString(const BYTE*, DWORD, HWND*, DWORD*, DWORD*) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI SetHmenuProp(HMENU, DWORD, MSAAPROPID, VARIANT) override { return E_NOTIMPL; }
  HRESULT WINAPI SetHmenuPropStr(HMENU, DWORD, MSAAPROPID, LPCWSTR) override { return E_NOTIMPL; }
  HRESULT WINAPI SetHmenuPropServer(HMENU, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                    AnnoScope) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI ClearHmenuProps(HMENU, DWORD, const MSAAPROPID*, int) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI ComposeHmenuIdentityString(HMENU, DWORD, BYTE**, DWORD*) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI DecomposeHmenuIdentityString(const BYTE*, DWORD, HMENU*, DWORD*) override {
    return E_NOTIMPL;
  }

 private:
  static std::wstring ClassOf(HWND window) {
    std::array<wchar_t, 100> name{};
    GetClassNameW(window, name.data(), static_cast<int>(name.size()));
    CharUpperW(name.data());
    return name.data();
  }

  static std::wstring LabelBefore(HWND control) {
    const HWND label = GetWindow(control, GW_HWNDPREV);
    return ClassOf(label) == L"STATIC" ? NameBySystem(label) : std::wstring();
  }

  static std::wstring NameBySystem(HWND control) {
    void* found = nullptr;
    if (FAILED(AccessibleObjectFromWindow(control, static_cast<DWORD>(OBJID_CLIENT),
                                          IID_IAccessible, &found))) {
      return {};
    }
    auto* object = static_cast<IAccessible*>(found);
    VARIANT self{};
    self.vt = VT_I4;
    BSTR name = nullptr;
    object->get_accName(self, &name);
    object->Release();
    std::wstring result = name == nullptr ? L"" : name;
    SysFreeString(name);
    return result;
  }

  DWORD registration_ = 0;
  std::map<HWND, std::wstring> given_;
};

#pragma GCC diagnostic pop

}  // namespace deck
