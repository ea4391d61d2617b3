// The download command and the start of programs, on top of the compiler's fixture.
#pragma once

#include <string>

#include "compiler/download_command.h"
#include "compiler/run_apps.h"
#include "tests/core/compiler/compiler_fixture.h"
#include "tests/fakes/fake_code_page.h"

namespace deck {

class DownloadFixture : public CompilerFixture {
 protected:
  static constexpr char16_t kTempFolder[] = u"C:\\HOTAS\\Temp";
  static constexpr char16_t kCopy[] = u"C:\\HOTAS\\Temp\\Original.txt";

  DownloadFixture() {
    files.AddFolder(kTempFolder);
    download.enableAfterDownload = [this] { return enableAfterDownload; };
    runApps.ignoreRunApp = [this] { return ignoreRunApp; };
  }

  FakeCodePage codePage;
  RunApps runApps{settings, wait, {files, programs, events, codePage}};
  DownloadCommand download{documents, settings, wait, runAndReport, runApps, {files, prompts}};

  bool enableAfterDownload = false;
  bool ignoreRunApp = false;
};

}  // namespace deck
