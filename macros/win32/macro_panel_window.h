// `FrameMacros` with the headings (`Combo1`) and the macros of the chosen one (`List1`), and the
// edge on its right by which its width is dragged, or moved with Ctrl and the arrow keys. Owned by
// the main window, which lays it out.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "documents/layout.h"
#include "platform/macro_panel_view.h"
#include "platform/win32/handles.h"

namespace deck {

class MacroPanelWindow : public MacroPanelView {
 public:
  // Indexes count from 0, widths are in pixels at 96 dpi. Unset functions are not called.
  struct Events {
    std::function<void(int index)> headingChosen;
    std::function<void()> headingPointer;  // the pointer moved over the headings
    std::function<void(int index)> macroClicked;
    std::function<void(int index)> macroDoubleClicked;  // or Return was pressed
    std::function<void()> listKey;
    std::function<void()> listPointer;
    // Gives the text to drag, empty for none.
    std::function<std::u16string(int index)> dragStarted;
    std::function<void(int width)> splitterMoved;    // while the edge is dragged or moved by keys
    std::function<void(int width)> splitterDragged;  // at the end, after the last splitterMoved
    std::function<void()> left;                      // Escape or Tab: the text gets the focus
  };

  // Hidden until shown by the layout.
  explicit MacroPanelWindow(HWND parent);

  Events events;

  HWND Handle() const { return window_; }
  void SetFont(const LOGFONTW& font, int dpi);
  // Gives the focus to the macros, or to the headings when there are none.
  void Focus();

  void ShowHeadings(const std::vector<std::u16string>& headings, int selected) override;
  void ShowMacros(const std::vector<std::u16string>& names) override;

 private:
  // A press of the left button on a macro that may become a drag.
  struct Press {
    int index = -1;  // -1: none
    POINT where{};
  };
  // The edge while it is dragged.
  struct EdgeDrag {
    bool active = false;
    int offset = 0;    // from the pointer to the edge, pixels
    int oldWidth = 0;  // pixels at 96 dpi, when it began
  };

  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

  LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT HandleCombo(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT HandleList(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

  void CreateControls();
  void LayOut();
  void OnCommand(WORD control, WORD code);
  bool OnComboKey(WPARAM key);
  bool OnEdgeKey(WPARAM key) const;
  bool OnListKey(WPARAM key);
  bool OnListMouseMove(WPARAM keys, POINT where, bool moved);
  void BeginDrag();
  int MacroAt(POINT where) const;

  bool IsOnSplitter(POINT where) const;
  void BeginEdgeDrag(int x);
  void MoveEdge(int x) const;
  void EndEdgeDrag(bool keep);
  int Width() const;  // pixels at 96 dpi

  HWND window_ = nullptr;
  HWND label_ = nullptr;
  HWND combo_ = nullptr;
  HWND list_ = nullptr;
  FontHandle font_;
  int dpi_ = 96;
  MacroFrameLayout layout_;
  Press press_;
  bool dragged_ = false;  // since the last press: what the list says of that one is no click
  EdgeDrag edge_;
};

}  // namespace deck
