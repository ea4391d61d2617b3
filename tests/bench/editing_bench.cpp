// What the commands that edit a whole document cost, next to loading the text that they make into a
// fresh rich edit control in the same round. Prints a table and whether the bounds hold;
// docs/performance.md tells what they are for. Run under Wine or on Windows, with a display.
#include <windows.h>

#include <ole2.h>

#include <cstdio>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "documents/win32/rich_edit_box.h"
#include "find/find_and_replace.h"
#include "platform/text_edits.h"
#include "tests/bench/bench_session.h"
#include "tests/bench/costs.h"
#include "tests/fakes/fake_code_page.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_find_dialog_view.h"
#include "tests/fakes/fake_keyboard.h"
#include "tests/fakes/fake_main_window_view.h"
#include "tests/fakes/fake_prompts.h"
#include "tools/block_rem.h"
#include "tools/remove_spaces.h"

namespace deck {
namespace {

constexpr RECT kPlace{0, 0, 900, 600};
constexpr int kDpi = 96;

struct Size {
  int lines;
  int rounds;
};
constexpr Size kSizes[] = {{500, 9}, {2'000, 9}, {10'000, 5}};
constexpr double kMostGrowth = 1.5;  // of the ratio, from 2,000 to 10,000 lines

bool allBoundsHold = true;

const char* Verdict(bool holds) {
  allBoundsHold = allBoundsHold && holds;
  return holds ? "holds" : "MISSED";
}

void Require(bool holds, const char* what) {
  if (holds) return;
  std::printf("WRONG RESULT: %s\n", what);
  allBoundsHold = false;
}

// A visible window with a document in it and the commands on that document.
class Workplace {
 public:
  explicit Workplace(HWND window) : window_(window) {
    boxes_.place = kPlace;
    view_.makeEditBox = [this](EditBox::Events events) {
      return std::make_unique<RichEditBox>(boxes_, window_, 1, kDpi, std::move(events));
    };
    documents_.Add();
    documents_.Select(0);
    Box().Focus();
  }

  RichEditBox& Box() { return dynamic_cast<RichEditBox&>(documents_.GetCurrentTextBox()); }
  BlockRem& Rem() { return rem_; }
  SlashAlignment& Alignment() { return alignment_; }

  // From the press of the button on.
  void ReplaceAll(const std::u16string& text, const std::u16string& with) {
    dialog_.Type(FindControl::kComboTextReplaceFind, text);
    dialog_.Type(FindControl::kComboTextReplaceWith, with);
    dialog_.Click(FindControl::kCommand6);
  }
  void OpenReplace() {
    find_.mnuFRGArray(1);
    dialog_.SetEnabled(FindControl::kCommand6, true);
  }
  double Bare(const std::u16string& text) {
    const FontHandle font = boxes_.fonts.Make(kDpi);
    HWND bare = nullptr;
    const double cost = CostOf([&] {
      bare = CreateRichEdit(window_, 2, kPlace, font.Get());
      StreamIntoControl(bare, text);
      ShowWindow(bare, SW_SHOW);
      Pump();
    });
    DestroyWindow(bare);
    Pump();
    return cost;
  }

 private:
  HWND window_;
  EditBoxSettings boxes_;
  FakeMainWindowView view_;
  FakeKeyboard keyboard_;
  FakeFiles files_;
  FakeCodePage codePage_;
  FakePrompts prompts_;
  FakeFindDialogView dialog_{prompts_};
  Settings settings_;
  StatusBar status_{view_};
  DocumentSet documents_{view_, status_, keyboard_, settings_};
  BlockRem rem_{documents_};
  SlashAlignment alignment_{documents_, status_, settings_, {files_, codePage_, view_}};
  FindAndReplace find_{documents_, status_, dialog_};
};

std::u16string Repeated(std::u16string_view part, int times) {
  std::u16string text;
  for (int i = 0; i < times; ++i) text += part;
  return text;
}

// One command on the whole text of a document, which it leaves with another one.
struct Command {
  const char* name;
  double mostRatio;                   // of the cost of loading the result, in documents of up to
  int boundedLines;                   // so many lines
  bool oneUndo;                       // takes the whole command back
  std::u16string_view before, after;  // two lines of the document
  std::function<void(Workplace&)> run;
};

const std::vector<Command>& Commands() {
  static const std::vector<Command> commands = {
      {"align, every line changes", 1.5, 10'000, true,
       u"BTN  S1\t/I FIRE_THE_GUN   (* a line of ordinary length *)\n/O HOLD_FIRE  (* and its "
       u"continuation *)\n",
       u"BTN S1 /I FIRE_THE_GUN (* a line of ordinary length *)\n       /O HOLD_FIRE (* and its "
       u"continuation *)\n",
       [](Workplace& place) { place.Alignment().RemoveSpaces(); }},
      {"replace all, a match on every line", 1.5, 10'000, true,
       u"BTN S1 /I FIRE_THE_GUN (* a line of ordinary length *)\n       /O HOLD_THE_GUN (* and its "
       u"continuation *)\n",
       u"BTN S1 /I FIRE_THE_CANNON (* a line of ordinary length *)\n       /O HOLD_THE_CANNON (* "
       u"and "
       u"its continuation *)\n",
       [](Workplace& place) { place.ReplaceAll(u"GUN", u"CANNON"); }},
      {"block REM of all lines", 3.0, 2'000, false,
       u"BTN S1 /I FIRE_THE_GUN (* a line of ordinary length *)\n       /O HOLD_FIRE (* and its "
       u"continuation *)\n",
       u"Rem BTN S1 /I FIRE_THE_GUN (* a line of ordinary length *)\nRem        /O HOLD_FIRE (* "
       u"and "
       u"its continuation *)\n",
       [](Workplace& place) {
         place.Box().Select({0, place.Box().Length()});
         place.Rem().REMblock();
       }},
  };
  return commands;
}

struct Row {
  Costs bare, command, undo;
};

void MeasureRound(Workplace& place, const Command& command, int lines, Row& row) {
  const std::u16string before = Repeated(command.before, lines / 2);
  const std::u16string after = Repeated(command.after, lines / 2);
  row.bare.Add(place.Bare(after));
  place.Box().Load(before);
  place.OpenReplace();
  Pump();
  row.command.Add(CostOf([&] {
    command.run(place);
    Pump();
  }));
  Require(place.Box().Text() == after, command.name);
  row.undo.Add(CostOf([&] {
    place.Box().Undo();
    Pump();
  }));
  Require(place.Box().Text() != after, "undo");
  if (command.oneUndo) Require(place.Box().Text() == before, "one undo takes it back");
}

void Measure(Workplace& place, const Command& command) {
  std::printf("%s (medians, ms)\n", command.name);
  std::printf("   lines  bare control     command  x bare             %s  x bare\n",
              command.oneUndo ? "undo of it" : "undo of one line");
  std::vector<double> ratios;
  for (const Size& size : kSizes) {
    Row row;
    Row unused;  // the first round pays for what is loaded once
    for (int round = 0; round <= size.rounds; ++round) {
      MeasureRound(place, command, size.lines, round == 0 ? unused : row);
    }
    const double bare = row.bare.Median();
    const double ratio = row.command.Median() / bare;
    const bool bounded = size.lines <= command.boundedLines;
    std::printf("  %6d %13.1f %11.1f %7.2f %-6s %20.1f %7.2f\n", size.lines, bare,
                row.command.Median(), ratio, bounded ? Verdict(ratio <= command.mostRatio) : "",
                row.undo.Median(), row.undo.Median() / bare);
    std::fflush(stdout);
    ratios.push_back(ratio);
  }
  std::printf("  linear beside the control: %s\n\n", Verdict(ratios[2] <= kMostGrowth * ratios[1]));
}

int Run() {
  OleInitialize(nullptr);
  {
    const BenchWindow window;
    SetForegroundWindow(window.Handle());
    Pump();
    Workplace place(window.Handle());
    for (const Command& command : Commands()) Measure(place, command);
  }
  OleUninitialize();
  std::printf("%s\n", allBoundsHold ? "all bounds hold" : "at least one bound is missed");
  return allBoundsHold ? 0 : 1;
}

}  // namespace
}  // namespace deck

int main() {
  return deck::Run();
}
