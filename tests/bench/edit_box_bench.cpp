// What an edit box costs, next to a bare rich edit control filled in the same run: prints a table.
// Run under Wine or on Windows, with a display; docs/rich_edit.md explains the numbers.
#include <windows.h>

#include <ole2.h>
#include <richedit.h>

#include <cstdio>
#include <string>
#include <vector>

#include "documents/win32/rich_edit_box.h"
#include "tests/bench/bench_session.h"
#include "tests/bench/costs.h"

namespace deck {
namespace {

constexpr int kRounds = 5;
constexpr RECT kPlace{0, 0, 900, 600};

std::u16string Text(int lines) {
  std::u16string text;
  for (int i = 0; i < lines; ++i) {
    text += u"   BTN X1 /U FIRE_THE_GUN /M (* a line of ordinary length *)\n";
  }
  return text;
}

std::vector<int> LineStarts(const std::u16string& text) {
  std::vector<int> starts = {0};
  for (std::size_t i = 0; i + 1 < text.size(); ++i) {
    if (text[i] == u'\n') starts.push_back(static_cast<int>(i) + 1);
  }
  return starts;
}

struct Row {
  Costs bare, load, apply, undo, steps, undoStep, replaceAll, text, lineOf, type;
};

Row Measure(HWND window, EditBoxSettings& settings, int lines) {
  const std::u16string text = Text(lines);
  const FontHandle font = settings.fonts.Make(96);
  std::vector<TextEdit> edits;
  std::vector<TextEdit> steps;
  for (const int start : LineStarts(text)) {
    edits.push_back({{start, 3}, u"Rem"});
    steps.push_back({{start + 4 * static_cast<int>(steps.size()), 0}, u"Rem "});
  }
  Row row;
  for (int round = 0; round < kRounds; ++round) {
    HWND bare = nullptr;
    row.bare.Add(CostOf([&] {
      bare = CreateRichEdit(window, 1, kPlace, font.Get());
      StreamIntoControl(bare, text);
      ShowWindow(bare, SW_SHOW);
    }));
    Pump();
    DestroyWindow(bare);

    RichEditBox box(settings, window, 2, 96, {});
    box.SetVisible(true);
    box.Focus();
    box.Load(text);
    Pump();
    row.load.Add(CostOf([&] { box.Load(text); }));
    Pump();
    row.text.Add(CostOf([&] { static_cast<void>(box.Text()); }));
    row.lineOf.Add(CostOf([&] { static_cast<void>(box.LineOf(box.Length())); }));
    row.apply.Add(CostOf([&] { box.Apply(edits); }));
    Pump();
    row.undo.Add(CostOf([&] { box.Undo(); }));
    Pump();
    row.steps.Add(CostOf([&] { box.ApplyStepByStep(steps); }));
    Pump();
    row.undoStep.Add(CostOf([&] { box.Undo(); }));
    box.Load(text);
    box.Select({box.Length() / 2, 0});
    Pump();
    row.type.Add(CostOf([&] { SendMessageW(box.Window(), WM_CHAR, 'x', 1); }));
    box.Select({0, box.Length()});
    row.replaceAll.Add(CostOf([&] { box.ReplaceSelection(text + u"end"); }));
    Pump();
  }
  return row;
}

void Print(int lines, const Row& row) {
  const double bare = row.bare.Least();
  const struct {
    const char* name;
    const Costs& cost;
  } cells[] = {
      {"bare control: create, fill, show", row.bare},
      {"Load over another text", row.load},
      {"Apply, one edit in each line", row.apply},
      {"Undo of it", row.undo},
      {"ApplyStepByStep, one step in each line", row.steps},
      {"Undo of one of these steps", row.undoStep},
      {"ReplaceSelection over all text", row.replaceAll},
      {"Text", row.text},
      {"LineOf the last position", row.lineOf},
      {"a typed character in the middle", row.type},
  };
  std::printf("%d lines\n", lines);
  for (const auto& cell : cells) {
    std::printf("  %-40s %9.2f ms  %5.2f x bare\n", cell.name, cell.cost.Least(),
                cell.cost.Least() / bare);
  }
  std::fflush(stdout);
}

void Run() {
  OleInitialize(nullptr);
  {
    const BenchWindow window;
    SetForegroundWindow(window.Handle());
    Pump();
    EditBoxSettings settings;
    settings.place = kPlace;
    for (const int lines : {200, 2'000, 10'000}) {
      Print(lines, Measure(window.Handle(), settings, lines));
    }
  }
  OleUninitialize();
}

}  // namespace
}  // namespace deck

int main() {
  deck::Run();
  return 0;
}
