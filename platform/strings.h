// Small operations on UTF-16 text that several folders share. All of them are total: any text,
// lone surrogates included, gives a result.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace deck {

// Blanks (U+0020) only; tabs and line breaks stay.
std::u16string_view TrimLeft(std::u16string_view text);
std::u16string_view TrimRight(std::u16string_view text);
std::u16string_view Trim(std::u16string_view text);

// Simple case mapping, one character to one: ASCII, Latin-1, Latin Extended-A, Greek and Cyrillic,
// which covers the letters of the Western, Central European, Greek, Turkish, Baltic and Cyrillic
// code pages. Every other character stays, and so do letters without a partner of their own: sharp
// s, the micro sign and, since the language is not known, the dotted capital and dotless small i.
char16_t ToLower(char16_t character);
char16_t ToUpper(char16_t character);
std::u16string ToLower(std::u16string_view text);
// The form in which two characters that differ in case only are equal: the small letter, and the
// usual small sigma for the one that ends a word.
char16_t FoldCase(char16_t character);

bool EqualsIgnoringCase(std::u16string_view left, std::u16string_view right);
bool StartsWithIgnoringCase(std::u16string_view text, std::u16string_view prefix);
// Position of the first occurrence at or after `from`, or npos. Empty text occurs everywhere.
std::size_t FindIgnoringCase(std::u16string_view text, std::u16string_view pattern,
                             std::size_t from = 0);

std::u16string ReplaceAll(std::u16string_view text, char16_t from, char16_t to);
std::u16string Join(const std::vector<std::u16string>& parts, std::u16string_view separator);
// For menus and tabs, where a single "&" would underline the next letter.
std::u16string DoubleAmpersands(std::u16string_view text);

std::u16string Decimal(std::int64_t number);
// A leading blank stands for the sign of a number that is not negative: " 5", "-5".
std::u16string DecimalWithSignPlace(std::int64_t number);

// Path parts; "\" is the separator. FileNameOf("C:\x\a.tmj") is "a.tmj"; FolderOf keeps its "\".
std::u16string_view FileNameOf(std::u16string_view path);
std::u16string_view FolderOf(std::u16string_view path);
// The last three characters in lower case, without asking for a dot ("mytmj" gives "tmj"); shorter
// text gives the whole of it.
std::u16string ExtensionOf(std::u16string_view nameOrPath);

}  // namespace deck
