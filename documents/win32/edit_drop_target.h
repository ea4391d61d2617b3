// Where text and files dragged over an edit box arrive. The system keeps the object as long as it
// is registered for a window; the box that made it is told of drops until it disconnects.
#pragma once

#include <oleidl.h>
#include <windows.h>

#include <functional>
#include <string>
#include <vector>

namespace deck {

// The interfaces of OLE end objects by Release and have no virtual destructor.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

class EditDropTarget final  // NOLINT(cppcoreguidelines-virtual-class-destructor): see above
    : public IDropTarget {
 public:
  struct Receiver {
    // The point is in screen coordinates.
    std::function<void(POINT where, const std::u16string& text)> text;
    std::function<void(std::vector<std::u16string> paths)> files;  // unset: files are not taken
  };

  // With one reference, which is the caller's.
  explicit EditDropTarget(Receiver receiver) : receiver_(std::move(receiver)) {}

  // From now on nothing is taken.
  void Disconnect() { receiver_ = {}; }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override;

  HRESULT STDMETHODCALLTYPE DragEnter(IDataObject* data, DWORD keys, POINTL where,
                                      DWORD* effect) override;
  HRESULT STDMETHODCALLTYPE DragOver(DWORD keys, POINTL where, DWORD* effect) override;
  HRESULT STDMETHODCALLTYPE DragLeave() override;
  HRESULT STDMETHODCALLTYPE Drop(IDataObject* data, DWORD keys, POINTL where,
                                 DWORD* effect) override;

 private:
  ~EditDropTarget() = default;

  bool Takes(IDataObject& data) const;
  DWORD Effect(DWORD allowed) const;

  Receiver receiver_;
  ULONG references_ = 1;
  bool takes_ = false;
};

#pragma GCC diagnostic pop

}  // namespace deck
