#include <windows.h>

#include <utility>

#include "platform/text_encoding.h"
#include "platform/win32/wide_text.h"
#include "platform/win32/win32_code_page.h"
#include "platform/win32/win32_files.h"
#include "platform/win32/win32_profile_files.h"
#include "platform/win32/win32_programs.h"
#include "tests/contract/win32/reporting_program.h"
#include "tests/contract/win32/temporary_folder.h"
#include "tests/contract/worlds.h"

namespace deck {
namespace {

class RealFilesWorld : public FilesWorld {
 public:
  Files& Port() override { return files_; }
  std::u16string Folder() const override { return folder_.Path(); }
  void SetReadOnly(const std::u16string& path, bool readOnly) override {
    SetFileAttributesW(Wide(path), readOnly ? FILE_ATTRIBUTE_READONLY : FILE_ATTRIBUTE_NORMAL);
  }
  int CountFiles() const override { return folder_.CountFiles(); }

 private:
  TemporaryFolder folder_;
  Win32Files files_;
};

class RealProfileWorld : public ProfileWorld {
 public:
  ProfileFiles& Port() override { return profiles_; }
  std::u16string Path() const override { return folder_.In(u"test.ini"); }
  std::u16string UnwritablePath() override { return folder_.In(u"missing\\test.ini"); }
  void SetContent(const std::u16string& text) override {
    if (!files_.Replace(Path(), EncodeValue(text, codePage_))) std::abort();
  }
  std::u16string Content() const override {
    const Result<std::string> bytes = files_.Read(Path());
    return bytes ? DecodeValue(*bytes, codePage_) : std::u16string();
  }

 private:
  TemporaryFolder folder_;
  Win32Files files_;
  Win32CodePage codePage_;
  Win32ProfileFiles profiles_{codePage_};
};

class RealProgramsWorld : public ProgramsWorld {
 public:
  Programs& Port() override { return programs_; }
  Files& FilesPort() override { return files_; }
  std::u16string Folder() const override { return folder_.Path(); }
  std::u16string ReportingCommand(const std::u16string& argument) const override {
    return ReportingCommandLine(folder_.In(u"report"), argument);
  }
  std::u16string MakeProgram(const std::u16string& name) override {
    return files_.Copy(OwnProgram(), folder_.In(name)) ? folder_.In(name) : std::u16string();
  }
  std::u16string ReportingArguments(const std::u16string& argument) const override {
    return deck::ReportingArguments(folder_.In(u"report"), argument);
  }
  std::optional<Report> WaitForReport() override { return TakeReport(folder_.In(u"report")); }
  std::u16string ImpossibleCommand() override { return folder_.In(u"missing.exe") + u" /x"; }

 private:
  TemporaryFolder folder_;
  Win32Files files_;
  Win32Programs programs_;
};

}  // namespace

std::unique_ptr<CodePage> MakeWesternCodePage() {
  return GetACP() == 1252 ? std::make_unique<Win32CodePage>() : nullptr;
}

std::unique_ptr<FilesWorld> MakeFilesWorld() {
  return std::make_unique<RealFilesWorld>();
}
std::unique_ptr<ProfileWorld> MakeProfileWorld() {
  return std::make_unique<RealProfileWorld>();
}
std::unique_ptr<ProgramsWorld> MakeProgramsWorld() {
  return std::make_unique<RealProgramsWorld>();
}

}  // namespace deck
