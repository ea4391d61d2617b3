#include "platform/win32/accessible_name.h"

#include <initguid.h>
#include <oleacc.h>

namespace deck {
namespace {

constexpr DWORD kInside = static_cast<DWORD>(OBJID_CLIENT);

// The part of the system that keeps the names, for as long as this lives; null without one.
class Names {
 public:
  Names() {
    void* made = nullptr;
    if (SUCCEEDED(CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER,
                                   IID_IAccPropServices, &made))) {
      services_ = static_cast<IAccPropServices*>(made);
    }
  }
  ~Names() {
    if (services_ != nullptr) services_->Release();
  }
  Names(const Names&) = delete;
  Names& operator=(const Names&) = delete;

  IAccPropServices* Get() const { return services_; }

 private:
  IAccPropServices* services_ = nullptr;
};

}  // namespace

void SetAccessibleName(HWND control, const wchar_t* name) {
  const Names names;
  if (names.Get() == nullptr || control == nullptr) return;
  names.Get()->SetHwndPropStr(control, kInside, CHILDID_SELF, PROPID_ACC_NAME, name);
}

void ForgetAccessibleName(HWND control) {
  const Names names;
  if (names.Get() == nullptr || control == nullptr) return;
  names.Get()->ClearHwndProps(control, kInside, CHILDID_SELF, &PROPID_ACC_NAME, 1);
}

}  // namespace deck
