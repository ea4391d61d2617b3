#include "platform/win32/win32_file_dialogs.h"

#include <cderr.h>
#include <commdlg.h>

#include <algorithm>
#include <string>
#include <vector>

#include "platform/strings.h"
#include "platform/win32/pointer_motion.h"
#include "platform/win32/wide_text.h"

namespace deck {
namespace {

constexpr DWORD kCommonFlags = OFN_EXPLORER | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
// Large from the start: Wine writes past the end of one that is too small instead of saying so.
constexpr std::size_t kUsualBuffer = std::size_t{512} * 1024;
constexpr std::size_t kLargestBuffer = std::size_t{4} * 1024 * 1024;

using DialogFunction = BOOL WINAPI(OPENFILENAMEW*);

struct Selection {
  std::wstring names;  // fields separated by U+0000
  int filterIndex = 1;
};

// The name field's text in a buffer of that size, which the dialog fills with the selection.
std::vector<wchar_t> NameBuffer(const std::u16string& name, std::size_t size) {
  std::vector<wchar_t> buffer(size, L'\0');
  std::copy_n(name.begin(), std::min(name.size(), size - 1), buffer.begin());
  return buffer;
}

// Up to the first two U+0000 in a row.
std::wstring Fields(const std::vector<wchar_t>& buffer) {
  constexpr wchar_t kEnd[] = {L'\0', L'\0'};
  const auto end = std::search(buffer.begin(), buffer.end(), std::begin(kEnd), std::end(kEnd));
  return {buffer.begin(), end};
}

std::optional<Selection> Show(DialogFunction* show, const FileDialogRequest& request, DWORD flags,
                              HWND owner) {
  // Each pattern ends in U+0000 and the list in one more, which is the text's own end.
  const std::u16string filter = ReplaceAll(request.filter, u'|', u'\0') + u'\0';
  std::u16string name = request.fileName;
  std::size_t size = kUsualBuffer;
  while (true) {
    std::vector<wchar_t> buffer = NameBuffer(name, size);
    OPENFILENAMEW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = owner;
    dialog.lpstrFilter = Wide(filter);
    dialog.nFilterIndex = static_cast<DWORD>(request.filterIndex);
    dialog.lpstrFile = buffer.data();
    dialog.nMaxFile = static_cast<DWORD>(buffer.size());
    dialog.lpstrInitialDir = request.initialFolder.empty() ? nullptr : Wide(request.initialFolder);
    dialog.Flags = flags;
    const bool chosen = show(&dialog) != 0;
    // What brought the pointer here was the way to the button.
    NotePointer();
    if (chosen) return Selection{Fields(buffer), static_cast<int>(dialog.nFilterIndex)};

    const DWORD error = CommDlgExtendedError();
    if (error == FNERR_BUFFERTOOSMALL && size < kLargestBuffer) {
      size *= 8;
    } else if (error == FNERR_INVALIDFILENAME && !name.empty()) {
      name.clear();
    } else {
      return std::nullopt;
    }
  }
}

}  // namespace

std::optional<std::u16string> Win32FileDialogs::Open(const FileDialogRequest& request) {
  const auto selection =
      Show(GetOpenFileNameW, request, kCommonFlags | OFN_ALLOWMULTISELECT, owner_());
  if (!selection) return std::nullopt;
  return FromWide(selection->names);
}

std::optional<SaveChoice> Win32FileDialogs::Save(const FileDialogRequest& request) {
  const auto selection = Show(GetSaveFileNameW, request, kCommonFlags, owner_());
  if (!selection) return std::nullopt;
  return SaveChoice{FromWide(selection->names), selection->filterIndex};
}

}  // namespace deck
