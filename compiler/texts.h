// What compile and download say to the user, letter for letter. Boxes break their lines with CR LF;
// numbers behind "at line" keep a place for their sign.
#pragma once

#include <string>

#include "compiler/hotas_ini.h"
#include "platform/prompts.h"

namespace deck {

enum class CompilerTask { kCompile, kDownload };

Message NothingToCompile();
Message CompilerNotSetUp();
Message CompilerNotFound(const std::u16string& compilerPath);
Message NotSaved();

Message NoFileToDownload();
Message NoCompilerForDownload(const std::u16string& compilerPath);

Message TakingTooLong(CompilerTask task);

Message LineNumberInvalid();
Message LineNotFound();

// One result: as the message panel tells it, and in a box. `caption` is the document's.
struct ResultTexts {
  std::u16string status;
  Message box;
};
ResultTexts TextsOf(const CompilerResult& result, CompilerTask task, const std::u16string& caption);

// The message panel on the way.
std::u16string Compiling(const std::u16string& caption);
std::u16string Downloading(const std::u16string& caption);
inline constexpr char16_t kWaitingForDownload[] =
    u" Waiting for compiler to download your file. Please be patient ....";
inline constexpr char16_t kDone[] = u"Done";
inline constexpr char16_t kControlReturned[] = u"Control returned to you";
inline constexpr char16_t kChangingButtonsMode[] = u" Changing buttons mode - hold on ...";
inline constexpr char16_t kButtonsModeDone[] = u" Done";

}  // namespace deck
