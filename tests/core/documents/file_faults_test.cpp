// Everything that can go wrong with a file, met by every command that reads or writes one: text,
// flag, path, caption and what is on disk stay what they were, the user is told why, and the same
// command works when the fault is gone.
#include <gtest/gtest.h>

#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "tests/core/documents/documents_fixture.h"

namespace deck {
namespace {

const std::u16string kPath = u"C:\\d\\a.tmj";
const std::u16string kTarget = u"C:\\d\\b.tmj";

struct Fault {
  std::string name;
  std::u16string reason;  // as the user is told; empty when the disk has a text of its own
  // Makes the fault at the path, and takes it away.
  std::function<void(FakeFiles&, const std::u16string&)> make;
  std::function<void(FakeFiles&, const std::u16string&)> end;
  bool readToo = false;  // reading fails as well

  friend void PrintTo(const Fault& fault, std::ostream* stream) { *stream << fault.name; }
};

void StopFailing(FakeFiles& files, const std::u16string&) {
  files.StopFailing();
}

Fault Refused(const std::string& name, const std::u16string& reason, bool readToo = false) {
  return {name, reason,
          [reason, readToo](FakeFiles& files, const std::u16string& path) {
            files.Fail(FileOperation::kReplace, path, reason);
            if (readToo) files.Fail(FileOperation::kRead, path, reason);
          },
          StopFailing, readToo};
}

std::vector<Fault> Faults() {
  return {
      Refused("NoSpace", u"There is not enough space on the disk."),
      Refused("NoRights", u"Access is denied."),
      Refused("NoRightsAtAll", u"Access is denied.", true),
      Refused("UsedByAnotherProgram",
              u"The process cannot access the file because it is being used by another process.",
              true),
      Refused("VanishedFolder", u"The system cannot find the path specified.", true),
      Refused("ReservedName", u"The filename, directory name, or volume label syntax is incorrect.",
              true),
      Refused("DeviceGone", u"The device is not ready.", true),
      Refused("ErrorInTheMiddle", u"Data error (cyclic redundancy check).", true),
      {"FolderInItsPlace", u"",
       [](FakeFiles& files, const std::u16string& path) {
         files.Delete(path);
         files.AddFolder(path);
       },
       [](FakeFiles& files, const std::u16string& path) { files.AddFile(path, "old"); }, true},
  };
}

class FileFaults : public DocumentsFixture, public testing::WithParamInterface<Fault> {
 protected:
  FileFaults() {
    OpenNew(kPath, "old");
    Box().Type(u"x");
  }
  void Make(const std::u16string& path) { GetParam().make(files, path); }
  void End(const std::u16string& path) { GetParam().end(files, path); }

  void ExpectUntouched() {
    EXPECT_EQ(Box(0).Text(), u"xold");
    EXPECT_EQ(documents[0].modifiedFlag, 1);
    EXPECT_EQ(documents[0].path, kPath);
    EXPECT_EQ(view.TabAt(1).caption, u"a.tmj");
    EXPECT_EQ(view.TabAt(1).toolTip, kPath);
  }
  void ExpectToldOnce(const std::u16string& title) {
    ASSERT_EQ(prompts.shown.size(), 1u);
    EXPECT_EQ(prompts.shown[0].title, title);
    EXPECT_TRUE(prompts.shown[0].text.ends_with(u"\r\n" + GetParam().reason) ||
                GetParam().reason.empty());
    prompts.shown.clear();
  }
};

TEST_P(FileFaults, Save) {
  Make(kPath);
  EXPECT_FALSE(commands.FileSave());
  ExpectUntouched();
  ExpectToldOnce(u"Can't save file");
  EXPECT_EQ(Panel(1), u"a.tmj could not be saved");
  EXPECT_EQ(documents.CompilerBusy, 0);
  End(kPath);
  EXPECT_TRUE(commands.FileSave());
  EXPECT_EQ(files.Content(kPath), "xold");
  EXPECT_EQ(documents[0].modifiedFlag, 0);
}

TEST_P(FileFaults, SaveAs) {
  Make(kTarget);
  dialogs.saveResults.push_back(SaveChoice{kTarget, 1});
  EXPECT_FALSE(commands.FileSaveAs());
  ExpectUntouched();
  ExpectToldOnce(u"Can't save file");
  EXPECT_EQ(files.Content(kPath), "old");
  End(kTarget);
  if (files.Exists(kTarget)) prompts.answers = {Answer::kYes};
  dialogs.saveResults.push_back(SaveChoice{kTarget, 1});
  EXPECT_TRUE(commands.FileSaveAs());
  EXPECT_EQ(documents[0].path, kTarget);
  EXPECT_EQ(files.Content(kTarget), "xold");
}

TEST_P(FileFaults, SaveAllSavesTheOthers) {
  OpenNew(u"C:\\d\\c.tmj", "other");
  Box().Type(u"y");
  Make(kPath);
  commands.FileSaveAll();
  ExpectUntouched();
  ExpectToldOnce(u"Can't save file");
  EXPECT_EQ(files.Content(u"C:\\d\\c.tmj"), "yother");
  EXPECT_EQ(documents[1].modifiedFlag, 0);
}

class ReadingFaults : public FileFaults {};

TEST_P(ReadingFaults, Open) {
  files.AddFile(kTarget, "b");
  Make(kTarget);
  // Chosen before the fault came, or from a list.
  EXPECT_TRUE(commands.OpenPreviouslySavedFiles(kTarget));
  ExpectUntouched();
  ExpectToldOnce(u"Can't open file");
  EXPECT_EQ(documents.Count(), 1);
  EXPECT_EQ(Panel(1), u"b.tmj could not be opened");
  End(kTarget);
  EXPECT_TRUE(commands.OpenPreviouslySavedFiles(kTarget));
  EXPECT_EQ(documents.Count(), 2);
}

std::vector<Fault> FaultsOfReading() {
  std::vector<Fault> faults = Faults();
  std::erase_if(faults, [](const Fault& fault) { return !fault.readToo; });
  return faults;
}

INSTANTIATE_TEST_SUITE_P(Faults, FileFaults, testing::ValuesIn(Faults()),
                         [](const auto& fault) { return fault.param.name; });
INSTANTIATE_TEST_SUITE_P(Faults, ReadingFaults, testing::ValuesIn(FaultsOfReading()),
                         [](const auto& fault) { return fault.param.name; });

TEST_F(DocumentsFixture, ANameThatIsTooLongIsToldAndTheDocumentKeepsItsOwn) {
  OpenNew(kPath, "old");
  Box().Type(u"x");
  dialogs.saveResults.push_back(SaveChoice{u"C:\\d\\" + std::u16string(300, u'n'), 3});
  EXPECT_FALSE(commands.FileSaveAs());
  EXPECT_EQ(documents[0].path, kPath);
  EXPECT_EQ(documents[0].modifiedFlag, 1);
  ASSERT_EQ(prompts.shown.size(), 1u);
  EXPECT_TRUE(prompts.shown[0].text.ends_with(u"The filename or extension is too long."));
}

}  // namespace
}  // namespace deck
