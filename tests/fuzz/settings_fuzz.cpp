// Any bytes can stand in the settings of the host, of the editor and in the compiler's report: the
// values that are read lie in their ranges, and what is written is read back.
#include <cmath>
#include <cstdint>
#include <string>

#include "app/recent_files.h"
#include "app/settings_store.h"
#include "compiler/hotas_ini.h"
#include "compiler/wait_settings.h"
#include "tests/fakes/fake_background_work.h"
#include "tests/fakes/fake_main_window_view.h"
#include "tests/fakes/fake_profile_files.h"
#include "tests/fuzz/fuzz_input.h"

namespace deck {
namespace {

const std::u16string kFolder = u"C:\\Host";

// Bytes from 0x80 on are the sections and keys that the program reads, and telling values.
std::u16string IniText(FuzzInput& input, std::size_t length) {
  constexpr std::u16string_view kWords[] = {u"\r\n[Unsupported]\r\n",
                                            u"\r\n[Miscellaneous]\r\n",
                                            u"\r\n[Previous Files]\r\n",
                                            u"\r\n[Compiler]\r\n",
                                            u"\r\n[TMMODE]\r\n",
                                            u"\r\nNumberPreviousFiles=",
                                            u"\r\nPreviousFilePath1=",
                                            u"\r\nPreviousFilePath2=",
                                            u"\r\nMaxPreviousFiles=",
                                            u"\r\nIndentSpaces=",
                                            u"\r\nMacroFrameWidth=",
                                            u"\r\nEditorTopAtStartup=",
                                            u"\r\nEditorLeftAtStartup=",
                                            u"\r\nEditorWidthAtStartup=",
                                            u"\r\nEditorWindowstate=",
                                            u"\r\nLineNumber=",
                                            u"\r\nMemory=",
                                            u"\r\nStatus=ERROR\r\n",
                                            u"\r\nErrorCode=",
                                            u"\r\nButtons=",
                                            u"\r\nRegainControlAfter=",
                                            u"\r\nCheckForCompletionTime=",
                                            u"-1",
                                            u"70000",
                                            u"2147483648",
                                            u"99999999999999999999",
                                            u"1e40",
                                            u"nan",
                                            u"C:\\a.tmj",
                                            u"=",
                                            u";",
                                            u"\""};
  std::u16string text;
  for (std::size_t i = 0; i < length; ++i) {
    const int byte = input.Byte();
    if (byte < 0x80) {
      text += static_cast<char16_t>(byte);
    } else {
      text += kWords[static_cast<std::size_t>(byte) % std::size(kWords)];
    }
  }
  return text;
}

void ReadEverything(const std::u16string& text) {
  FakeProfileFiles profiles;
  for (const char16_t* name : {u"\\Wren.ini", u"\\WrenDeck.ini", u"\\HOTAS.ini"})
    profiles.SetText(kFolder + name, text);
  Settings settings;
  ReadHostPreferences(profiles, kFolder, settings);
  const EditorPosition position = GetEditorPosition(profiles, settings);
  for (const float number : {position.placement.top, position.placement.left,
                             position.placement.width, position.placement.height}) {
    Require(std::isfinite(number));
  }
  const WaitSettings wait = ReadWaitSettings(profiles, settings.HostPath);
  static_cast<void>(wait);
  HotasIni report(profiles, settings);
  report.ReadCompilerResult();
  report.ReadControllerMode();
  report.ClearCompilerResult();
  report.ReadCompilerResult();
  Require(report.Result() == CompilerResult{});

  FakeMainWindowView view;
  FakeBackgroundWork background;
  RecentFileList recent(profiles, background, view, settings);
  recent.LoadRecentFiles();
  Require(view.recentFiles == recent.RecentFiles());
  recent.AddRecentFile(u"C:\\new.tmj");
  Require(settings.MaxPreviousFiles < 1 || recent.RecentFiles().front() == u"C:\\new.tmj");
  static_cast<void>(SaveEditorPosition(profiles, settings, position, view.ScreenSize()));
  RecentFileList again(profiles, background, view, settings);
  again.LoadRecentFiles();
  Require(settings.MaxPreviousFiles < 1 || again.RecentFiles().front() == u"C:\\new.tmj");
}

}  // namespace
}  // namespace deck

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  deck::FuzzInput input(bytes, size);
  deck::ReadEverything(deck::IniText(input, size));
  return 0;
}
