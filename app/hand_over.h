// One editor for all files, for those who ask for it: a start hands its file to the editor that
// runs already from the same folder. Both sides are here, the start in the program's entry and the
// editor in its main window; how they find each other is app/win32/running_editor.
//
// What arrives may come from any program. A message can do no more than bring the window to the
// front and open a file that is there.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace deck {

// The number that tells a handed-over file from other data.
inline constexpr std::uint64_t kHandOverKind = 0x57444831;

// The bytes for an absolute path, or for no file at all: UTF-16, the lower byte first, with one
// U+0000 behind it.
std::string EncodeHandOver(std::u16string_view path);
// The path, empty for no file. Nothing for all that EncodeHandOver does not make of an absolute
// path of a drive or a share: other kinds, other lengths, devices, wildcards, streams of files.
std::optional<std::u16string> DecodeHandOver(std::uint64_t kind, std::string_view bytes);

// ---- The editor that runs.

// In the numbers that the start gets back; the system answers 0 for a window that knows nothing of
// all this.
enum class HandOverReply {
  kRefused = 0,
  kTaken = 1,
  kBusy = 2,  // to be asked again
};

enum class EditorState {
  kIdle,    // waits for the user
  kBusy,    // a box, a menu or a command, the wait for the compiler included
  kClosed,  // on its way out
};

struct HandOverAnswer {
  HandOverReply reply = HandOverReply::kRefused;
  bool comeToFront = false;
  std::u16string fileToOpen;  // empty for none

  friend bool operator==(const HandOverAnswer&, const HandOverAnswer&) = default;
};

// A file is taken by an idle editor only, and then opened at once: there is no list of files yet to
// be opened that a close could lose.
HandOverAnswer AnswerHandOver(std::uint64_t kind, std::string_view bytes, EditorState state);

// ---- The start.

enum class StartAs {
  kOnlyEditor,    // opens the file, and takes those of later starts
  kBesideOthers,  // opens the file, the other editor did not take it
  kHandedOver,    // has nothing left to do
};

// How a start reaches the other editor.
struct OtherEditor {
  // Waits so long for the right to be the only editor; true when it is ours, for as long as the
  // process lives.
  std::function<bool(int milliseconds)> claim;
  // Nothing while there is no editor that could be told. One that does not answer has refused.
  std::function<std::optional<HandOverReply>(const std::string& bytes)> tell;
};

// Brings the other editor to the front and, unless `path` is empty, asks it until it takes the
// file, ends, or has been too busy for about eight seconds.
StartAs HandOver(std::u16string_view path, const OtherEditor& other);

// The name of that right for editors in `folder`, in whatever letter case.
std::u16string OnlyEditorName(std::u16string_view folder);

}  // namespace deck
