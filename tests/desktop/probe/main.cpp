// probe.exe <command> [<window> [<number>]]
//
// Tells about the windows of other programs, one line of JSON for each command; one that does
// something to them answers {}, one that fails {"error": "..."}. Started without arguments it reads
// a command from each line of its input, which spares the start of a process for every look.
//
//   windows | focus | clipboard
//   fill <part>...   of the clipboard, without blanks: text=... rtf=... picture
//   children | text | status | tabs | list | listview | combo | edit | toolbar | menu   <window>
//   character <edit box> <position>
//   post <window> <message> <wParam> <lParam>
//   insert <edit box> <text>          without blanks
//   terminate <process id>
#include <windows.h>

#include <functional>
#include <iostream>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/desktop/probe/acts.h"
#include "tests/desktop/probe/menu_reader.h"
#include "tests/desktop/probe/readers.h"

namespace deck::probe {
namespace {

using WindowReader = std::function<void(HWND, JsonWriter&)>;

const std::map<std::string, WindowReader, std::less<>>& WindowReaders() {
  static const std::map<std::string, WindowReader, std::less<>> kReaders{
      {"children", ReadChildren}, {"status", ReadStatusBar}, {"tabs", ReadTabs},
      {"list", ReadList},         {"combo", ReadCombo},      {"edit", ReadEdit},
      {"toolbar", ReadToolbar},   {"text", ReadText},        {"listview", ReadListView},
  };
  return kReaders;
}

HWND WindowFrom(const std::vector<std::string>& words) {
  if (words.size() < 2) throw std::runtime_error("the command names no window");
  auto* const window = reinterpret_cast<HWND>(static_cast<INT_PTR>(std::stoll(words[1])));
  if (IsWindow(window) == 0) throw std::runtime_error("there is no such window");
  return window;
}

std::string Answer(const std::vector<std::string>& words) {
  const std::string command = words.empty() ? "" : words[0];
  JsonWriter json;
  if (command == "windows") {
    ReadWindows(json);
  } else if (command == "focus") {
    ReadFocus(json);
  } else if (command == "clipboard") {
    ReadClipboard(json);
  } else if (command == "fill") {
    FillClipboard({words.begin() + 1, words.end()}, json);
  } else if (command == "menu") {
    return ReadMenuOf(WindowFrom(words));
  } else if (command == "character" && words.size() == 3) {
    ReadCharacterPoint(WindowFrom(words), std::stoi(words[2]), json);
  } else if (command == "post" && words.size() == 5) {
    PostTo(WindowFrom(words), static_cast<UINT>(std::stoul(words[2])),
           static_cast<WPARAM>(std::stoull(words[3])), static_cast<LPARAM>(std::stoll(words[4])),
           json);
  } else if (command == "insert" && words.size() == 3) {
    InsertInto(WindowFrom(words), words[2], json);
  } else if (command == "terminate" && words.size() == 2) {
    Terminate(static_cast<DWORD>(std::stoul(words[1])), json);
  } else if (const auto reader = WindowReaders().find(command); reader != WindowReaders().end()) {
    reader->second(WindowFrom(words), json);
  } else {
    throw std::runtime_error("no such command");
  }
  return json.Written();
}

// False when the command failed.
bool Print(const std::vector<std::string>& words) {
  try {
    std::cout << Answer(words) << std::endl;
    return true;
  } catch (const std::exception& problem) {
    const std::string what = problem.what();
    JsonWriter json;
    json.BeginObject().Key("error").Text(std::wstring(what.begin(), what.end())).EndObject();
    std::cout << json.Written() << std::endl;
    return false;
  }
}

std::vector<std::string> WordsOf(const std::string& line) {
  std::istringstream stream(line);
  std::vector<std::string> words;
  for (std::string word; stream >> word;) words.push_back(word);
  return words;
}

}  // namespace
}  // namespace deck::probe

int main(int argc, char** argv) {
  using namespace deck::probe;
  if (argc > 1) return Print({argv + 1, argv + argc}) ? 0 : 1;
  for (std::string line; std::getline(std::cin, line);) Print(WordsOf(line));
  return 0;
}
