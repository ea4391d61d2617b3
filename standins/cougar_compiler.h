#pragma once

// The compiling half of the stand-in for HOTASCompiler.exe: reads the text of a joystick file and
// says whether it is right. It stands for a program that is not ours, so what follows is what this
// stand-in accepts and no statement about the real compiler. Pure functions on bytes; compiler_main
// owns files, switches and HOTAS.ini.
//
// Lines. CR LF, LF and a lone CR each end a line; lines count from 1. Leading blanks and tabs do
// not matter. Blank lines are skipped, and so are comments: lines that begin with "rem" (any case),
// "~" or "//". Behind a statement the word "rem" or a word that begins with "//" starts a comment.
//
// Statements (any case): BTN CURVE JOYX JOYY THR RDDR LBRK RBRK MIX MIY ANT RNG, and USE followed
// by anything. A line that begins with a slash and a letter continues the statement above it.
//
// Macro names. Only what a BTN statement and its continuation lines send is looked up. Behind the
// button's name the statement is read word by word; brackets ( ) { } < > [ ] only group.
//   - A slash with one letter ("/I") is a modifier; a slash with several letters is an error; a
//     slash alone is the slash key.
//   - A stretch without blanks that is defined as a macro is that macro, whatever it contains.
//   - USB and the bracket behind it are raw codes and are not looked into.
//   - A word of two or more letters, digits and underscores that begins with a letter is a key word
//     (ENT, F5, DX12, SHF, DLY, KD ..., see the table in the source) or else must be a macro.
//   - Everything else (single characters, numbers, words with other signs in them) is keys.
// Case does not count in macro names or key words.
//
// Macro file. The last USE MDEF statement that is not a comment names it, relative to the joystick
// file's folder; a name without a dot gets the extension that belongs to the joystick file's own.
// It is read before anything is checked, so a missing one is the error that is reported.

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace deck {

struct CougarOutcome {
  // Empty on success, otherwise "Error " with four digits, ": " and what is wrong.
  std::string errorCode;
  // The 1-based line of the error; 0 on success and for errors that belong to no line.
  int lineNumber = 0;
  // Percentage of the Cougar's memory that the statements fill, rounded up; 0 on failure.
  int memory = 0;
  // The statements without comments and blanks, in bytes.
  std::size_t statementBytes = 0;
};

// Gives the text of the macro file with this name (as the statement has it, extension added), or
// nothing when there is no such file.
using MacroFileReader = std::function<std::optional<std::string>(const std::string& name)>;

// Compiles one joystick file. `extension` is the file's own, without the dot, in any case; one that
// is no joystick file's counts as "tmj". Never throws for any text.
[[nodiscard]] CougarOutcome CompileCougarText(std::string_view joystickText,
                                              std::string_view extension,
                                              const MacroFileReader& readMacroFile);

// The outcome for a joystick file that cannot be read; `name` is shown in the error.
[[nodiscard]] CougarOutcome UnreadableCougarFile(std::string_view name);

}  // namespace deck
