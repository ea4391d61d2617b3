// The commands of find, replace and goto line: what the window `FindAndReplace` does. Works on the
// document that is selected at the moment a command runs. Owned by app/editor.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "documents/document_set.h"
#include "documents/status_bar.h"
#include "find/find_dialog_view.h"
#include "platform/edit_box.h"

namespace deck {

class FindAndReplace {
 public:
  // The view reports to this object from now on; all of them have to outlive it.
  FindAndReplace(DocumentSet& documents, StatusBar& status, FindDialogView& view);
  ~FindAndReplace() { view_.Connect({}); }
  FindAndReplace(const FindAndReplace&) = delete;
  FindAndReplace& operator=(const FindAndReplace&) = delete;

  // Opens the dialog on a page: 0 find, 1 replace, 2 goto line. Others do nothing.
  void mnuFRGArray(int index);
  // Presses the find button of the open dialog; without one, opens it to find.
  void FindAgain();
  void Minimise();
  void Close();

 private:
  struct FindControls;  // of one of the two pages that find

  // A match that the Replace page has found.
  struct Match {
    DocumentId document = 0;  // 0: none
    TextSpan span;
    std::u16string text;
  };

  // What lives as long as the dialog stays loaded.
  struct State {
    std::u16string searchText;
    int searchStart = 0;
    int foundPosition = -1;
    Match match;
    std::map<FindControl, std::vector<std::u16string>> histories;
  };

  static const FindControls& ControlsOf(FindPage page);

  void Open(FindPage page);
  void OnClicked(FindControl control);
  void OnTextChanged(FindControl combo);
  void OnPageChosen(FindPage page);
  void OnMouseMoved();

  void Find(const FindControls& controls);
  void Found(const FindControls& controls, const Match& match);
  void NotFound(const FindControls& controls, const Document& document);
  void Command5();
  bool MatchIsSelected();
  void ReplaceText();
  void Command6();
  void Command7();

  bool TakeSearchText(const FindControls& controls);
  std::u16string Text(FindControl field) const;
  void PutSearchText(const FindControls& controls, const std::u16string& text);
  void Remember(FindControl combo, const std::u16string& text);
  int Options(const FindControls& controls) const;
  bool IsUnderWay(const FindControls& controls) const;
  void SetUnderWay(const FindControls& controls, bool underWay);
  void StartAgain();
  void SetMatch(Match match);
  void SelectAt(DocumentId document, int position);
  void ShowSelection(EditBox& box, int position);

  DocumentSet& documents_;
  StatusBar& status_;
  FindDialogView& view_;
  FindPage page_ = FindPage::kFind;
  State state_;
};

}  // namespace deck
