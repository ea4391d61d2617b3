#include "compiler/texts.h"

#include <utility>

#include "platform/strings.h"

namespace deck {

Message NothingToCompile() {
  return {
      u"The current file is empty, so there's not much point in me trying to compile it!. "
      u"Load up a joystick file, or select one, or just put your feet up and watch TV.",
      u"Nothing to compile ...", BoxStyle::kInformation};
}

Message CompilerNotSetUp() {
  return {
      u"You haven't setup your preferences in Wren to tell me where the Compiler file is, "
      u"so I cannot compile the file. Sorry buddy!",
      u"Compiler not found", BoxStyle::kExclamation};
}

Message CompilerNotFound(const std::u16string& compilerPath) {
  return {u"I couldn't locate the Compiler, which according to Wren's preferences should be at: " +
              compilerPath + u", so I cannot compile the file. Sorry buddy!",
          u"Compiler not found", BoxStyle::kExclamation};
}

Message NotSaved() {
  return {u"The current file isn't saved, which it needs to be for me to be able to compile it",
          u"Hang on a minute ...", BoxStyle::kYesNoExclamationDefaultNo};
}

Message NoFileToDownload() {
  return {
      u"You need to save your joystick file first before I can download it to your "
      u"controllers.\r\nGoto the File menu and select Save or Save as to do this.",
      u"Unable to download file ...", BoxStyle::kInformation};
}

Message NoCompilerForDownload(const std::u16string& compilerPath) {
  return {u"I can't find the Compiler, which should be located at: " + compilerPath +
              u"\r\nMake sure you've setup your preferences correctly in Wren to fix this.",
          u"Unable to download file ...", BoxStyle::kInformation};
}

Message TakingTooLong(CompilerTask task) {
  const bool compile = task == CompilerTask::kCompile;
  std::u16string text =
      u"I'm going to pass control back to you now, as I'm worried that there may be a problem";
  text += compile ? u" with the compiler and its communication with your Cougar"
                  : u" with the download and the Compiler's communication with your Cougar";
  text +=
      u" - it's just taking too long for my liking."
      u" I could be wrong of course, but I'd prefer to play it safe, and I presume you do too."
      u"\r\n\r\n"
      u"If you know for certain that there isn't a problem with your Cougar or your files, then"
      u" you can increase the amount of time I sit around waiting for the compiler to ";
  text += compile ? u"compile your file." : u"download your file.";
  text += u" To do this, see the help topic 'Unsupported options.'";
  return {std::move(text), u"Now this is taking rather a long time buddy, isn't it?!",
          BoxStyle::kExclamation};
}

Message LineNumberInvalid() {
  return {
      u"Hmmm ... bizarre! The line number is invalid. That doesn't make sense.\r\n\r\n"
      u"Please report this on the Hangar forums so I can investigate further. Interesting!",
      u"Hmmm....bizarre...", BoxStyle::kExclamation};
}

Message LineNotFound() {
  return {u"Line not found", u"Oops!", BoxStyle::kExclamation};
}

ResultTexts TextsOf(const CompilerResult& result, CompilerTask task,
                    const std::u16string& caption) {
  if (!result.Failed()) {
    const std::u16string memory = Decimal(result.Memory);
    return {u" Compiled successfully. (Memory used: " + memory + u"%)",
            {caption + u" was compiled successfully.\r\nCompiled file size: " + memory +
                 u"% of the Cougar memory.",
             u"Compile results", BoxStyle::kInformation}};
  }
  const std::u16string report = result.LineNumber == 0
                                    ? u"Compiler reported the following error: " + result.ErrorCode
                                    : u"Compiler reported an error at line" +
                                          DecimalWithSignPlace(result.LineNumber) + u": " +
                                          result.ErrorCode;
  const char16_t* title = task == CompilerTask::kCompile ? u"The compile was unsuccessful"
                                                         : u"The download was unsuccessful";
  return {u" " + report, {report, title, BoxStyle::kExclamation}};
}

std::u16string Compiling(const std::u16string& caption) {
  return u"Compiling " + caption + u" ..... please wait ...";
}

std::u16string Downloading(const std::u16string& caption) {
  return u"Downloading " + caption + u" ..... please wait ...";
}

}  // namespace deck
