// docs/automation.md promises ids, names and captions to people who write scripts: it must say what
// the program does.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "app/command_table.h"
#include "keytest/key_test_commands.h"
#include "platform/control_ids.h"
#include "platform/strings.h"

namespace deck {
namespace {

using Cells = std::vector<std::string>;

// Everything here is ASCII.
std::string Narrow(std::u16string_view text) {
  return {text.begin(), text.end()};
}

std::string Number(int number) {
  return Narrow(Decimal(number));
}

std::string Quoted(std::u16string_view name) {
  return "`" + Narrow(name) + "`";
}

std::string Trimmed(std::string text) {
  text.erase(0, text.find_first_not_of(' '));
  text.erase(text.find_last_not_of(" \r") + 1);
  return text;
}

Cells CellsOf(const std::string& line) {
  Cells cells;
  std::size_t from = 1;
  for (std::size_t bar = line.find('|', from); bar != std::string::npos;
       from = bar + 1, bar = line.find('|', from)) {
    cells.push_back(Trimmed(line.substr(from, bar - from)));
  }
  return cells;
}

// The rows of the table with this heading.
std::vector<Cells> TableWith(const Cells& heading) {
  std::ifstream page(WRENDECK_DOCS "/automation.md");
  EXPECT_TRUE(page.good());
  std::vector<Cells> rows;
  bool inside = false;
  for (std::string line; std::getline(page, line);) {
    const bool isRow = line.starts_with('|');
    if (isRow && inside && !line.starts_with("|---")) rows.push_back(CellsOf(line));
    inside = isRow && (inside || CellsOf(line) == heading);
  }
  return rows;
}

std::string MenuCaption(Menu menu) {
  for (const MenuHeading& heading : kMenuBar) {
    if (heading.menu == menu) return Narrow(heading.caption);
  }
  return {};
}

Cells RowOf(const CommandRow& row) {
  const bool hasControl = row.menu != Menu::kNone;
  return {Number(static_cast<int>(row.id)),
          hasControl ? Quoted(row.controlName) : "",
          row.controlIndex < 0 ? "" : Number(row.controlIndex),
          MenuCaption(row.menu),
          Narrow(row.caption),
          Narrow(ShortcutText(row.shortcut))};
}

TEST(AutomationPage, ListsEveryCommandWithIdControlIndexMenuCaptionAndShortcut) {
  std::vector<Cells> expected;
  for (const CommandRow& row : kCommands) expected.push_back(RowOf(row));
  EXPECT_EQ(TableWith({"id", "control", "index", "menu", "caption", "shortcut"}), expected);
}

std::string KeyTestMenuCaption(KeyTestMenu menu) {
  for (const KeyTestMenuHeading& heading : kKeyTestMenuBar) {
    if (heading.menu == menu) return Narrow(heading.caption);
  }
  return {};
}

TEST(AutomationPage, ListsEveryCommandOfTheKeyTester) {
  std::vector<Cells> expected;
  for (const KeyTestCommandRow& row : kKeyTestCommands) {
    const bool hasControl = row.menu != KeyTestMenu::kBox;
    expected.push_back({Number(static_cast<int>(row.id)), hasControl ? Quoted(row.controlName) : "",
                        row.controlIndex < 0 ? "" : Number(row.controlIndex),
                        KeyTestMenuCaption(row.menu), Narrow(row.caption)});
  }
  EXPECT_EQ(TableWith({"id", "control", "index", "menu", "caption"}), expected);
}

TEST(AutomationPage, ListsEveryControlWithIdWindowAndClass) {
  std::vector<Cells> expected;
  for (const ControlRow& row : kControls) {
    expected.push_back({Number(static_cast<int>(row.id)), Quoted(row.name), Quoted(row.window),
                        Quoted(row.windowClass)});
  }
  EXPECT_EQ(TableWith({"id", "control", "in", "class"}), expected);
}

TEST(AutomationPage, ListsEveryWindowWithClassAndTitle) {
  std::vector<Cells> listed;
  for (const Cells& row : TableWith({"class", "title", "what it is"})) {
    ASSERT_EQ(row.size(), 3U);
    EXPECT_FALSE(row[2].empty());
    listed.push_back({row[0], row[1]});
  }
  std::vector<Cells> expected;
  for (const WindowRow& row : kWindows)
    expected.push_back({Quoted(row.windowClass), Narrow(row.title)});
  EXPECT_EQ(listed, expected);
}

TEST(ControlIds, EveryControlIsInAWindowOrInAnotherControl) {
  const auto isNamed = [](std::u16string_view name) {
    return std::any_of(std::begin(kWindows), std::end(kWindows),
                       [&](const WindowRow& row) { return row.windowClass == name; }) ||
           std::any_of(std::begin(kControls), std::end(kControls),
                       [&](const ControlRow& row) { return row.windowClass == name; });
  };
  for (const ControlRow& row : kControls) EXPECT_TRUE(isNamed(row.window)) << Narrow(row.name);
}

TEST(AutomationPage, CountsRecentFilesFromTheIdThatItNames) {
  EXPECT_EQ(static_cast<int>(CommandId::kRecentFile1), 2001);
}

TEST(ControlIds, NoTwoControlsOfAWindowShareANumberAndNoneIsACommands) {
  for (const ControlRow& row : kControls) {
    EXPECT_EQ(std::count_if(std::begin(kControls), std::end(kControls),
                            [&](const ControlRow& other) {
                              return other.window == row.window && other.id == row.id;
                            }),
              1);
    const auto command = static_cast<CommandId>(row.id);
    EXPECT_EQ(FindCommand(command), nullptr) << Narrow(row.name);
    EXPECT_LT(command, CommandId::kRecentFile1) << Narrow(row.name);
  }
}

}  // namespace
}  // namespace deck
