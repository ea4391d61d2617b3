// What must hold at every moment, whatever the user, the disk and the other programs do:
//
// - a text changes only by a command that edits it, and goes only when it is on disk, was
// unmodified
//   or the user said so;
// - text of others on disk is written over only when the document had read it, the user agreed, or
//   a copy of it stands beside the file;
// - captions, paths, flags, tabs and the visible box stay in step;
// - suppressions and busy flags are clear when nothing runs.
//
// The model knows no command's order or text; those have tests of their own.
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "tests/model/program_world.h"

namespace deck {

// Where the documents of the walks are.
inline const std::u16string kFilesFolder = u"C:\\Files";

class EditorModel {
 public:
  EditorModel(Machine& machine, ProgramRun& run);

  // The current document is edited by the step that runs: its text may change until the next Check.
  void AllowEdit();
  // Documents may come and show what is on disk.
  void AllowOpening() { opening_ = true; }
  // The user answered a question.
  void OnAnswer(const Message& question, Answer answer);
  // Unmodified documents may show what is on disk now.
  void AllowReadingAgain() { lookedAtDisk_ = true; }

  // To be called when a step has ended; `idle` when no command of an outer step still runs.
  void Check(bool idle);

  // To be called when the program has ended in order.
  void CheckEnd();

  // What is lost when the program is killed now: nothing, when these come back. By path and text.
  using Texts = std::vector<std::pair<std::u16string, std::u16string>>;
  Texts UnsavedTexts();
  // To be called after the next start. What reached its file after all need not come back.
  void CheckCameBack(Texts lost);

  // What did not hold, in the order found.
  const std::vector<std::string>& Complaints() const { return complaints_; }
  void Complain(const std::string& what) { complaints_.push_back(what); }

 private:
  struct Known {
    std::u16string text;
    std::u16string path;
    bool modified = false;
    bool givenUp = false;  // the user said No to saving it
  };

  void CheckWrittenOver(const std::u16string& path, const std::string& old);
  void CheckGone();
  void CheckTexts();
  void CheckNew(const Document& document);
  void CheckTabs();
  void CheckFlags();
  void CheckIdle();
  bool IsOpenTwice(const Document& document) const;
  bool IsSomewhere(const std::u16string& text) const;
  bool IsKept(const std::u16string& path, const std::u16string& text) const;
  bool IsOnDisk(const std::u16string& path, const std::u16string& text) const;
  void Require(bool holds, const std::string& what) {
    if (!holds) Complain(what);
  }

  Machine& machine_;
  ProgramRun& run_;
  std::map<DocumentId, Known> known_;
  DocumentId edited_ = 0;
  bool opening_ = false;
  bool lookedAtDisk_ = false;
  bool overwriteAgreed_ = false;
  std::vector<std::string> complaints_;
};

}  // namespace deck
