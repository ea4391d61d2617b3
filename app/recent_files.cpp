#include "app/recent_files.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "platform/strings.h"

namespace deck {
namespace {

constexpr std::u16string_view kSection = u"Previous Files";
constexpr std::u16string_view kCount = u"NumberPreviousFiles";
// A list that is longer than the user's maximum comes from a time when that was larger. Entries
// beyond this many are looked for only by who asks for as many: a count edited by hand would hold
// up the start with thousands of looks into the file.
constexpr int kMostUnasked = 1000;

std::u16string KeyOf(int entry) {
  return u"PreviousFilePath" + Decimal(entry);
}

}  // namespace

RecentFileList::RecentFileList(ProfileFiles& profiles, BackgroundWork& background,
                               MainWindowView& view, const Settings& settings)
    : profiles_(profiles), background_(background), view_(view), settings_(settings) {}

void RecentFileList::LoadRecentFiles() {
  recentFiles_.clear();
  const int count = profiles_.ReadInteger(settings_.SettingsPath, kSection, kCount, 0);
  const bool fits = count <= std::numeric_limits<std::int16_t>::max();
  const int most = std::max<int>(settings_.MaxPreviousFiles, kMostUnasked);
  for (int entry = 1; fits && entry <= std::min(count, most); ++entry) {
    recentFiles_.push_back(profiles_.ReadText(settings_.SettingsPath, kSection, KeyOf(entry), u""));
  }
  // An entry without a path keeps its place, but a count that was edited by hand must not give
  // thousands of blank menu items.
  while (!recentFiles_.empty() && recentFiles_.back().empty()) recentFiles_.pop_back();
  view_.SetRecentFiles(recentFiles_);
}

void RecentFileList::AddRecentFile(const std::u16string& path) {
  const auto maximum = static_cast<std::size_t>(std::max<int>(settings_.MaxPreviousFiles, 0));
  const auto found = std::ranges::find(recentFiles_, path);
  if (found != recentFiles_.end()) {
    std::rotate(recentFiles_.begin(), found, found + 1);
  } else {
    recentFiles_.insert(recentFiles_.begin(), path);
    if (recentFiles_.size() > maximum) recentFiles_.resize(maximum);
  }
  view_.SetRecentFiles(recentFiles_);
  if (holders_ > 0) {
    unwritten_ = true;
  } else {
    WriteAll();
  }
}

void RecentFileList::Clear() {
  const std::size_t entries = recentFiles_.size();
  recentFiles_.assign(entries, u"");
  std::vector<ProfileText> texts = Paths();
  recentFiles_.clear();
  texts.push_back(Count());
  Write(std::move(texts));
  view_.SetRecentFiles(recentFiles_);
}

ProfileText RecentFileList::Count() const {
  return {std::u16string(kCount), Decimal(static_cast<int>(recentFiles_.size()))};
}

std::vector<ProfileText> RecentFileList::Paths() const {
  std::vector<ProfileText> texts;
  for (const std::u16string& path : recentFiles_) {
    texts.push_back({KeyOf(static_cast<int>(texts.size()) + 1), path});
  }
  return texts;
}

void RecentFileList::WriteAll() {
  std::vector<ProfileText> texts = Paths();
  texts.insert(texts.begin(), Count());
  Write(std::move(texts));
}

// The list is a convenience: what cannot be stored is simply not there at the next start.
void RecentFileList::Write(std::vector<ProfileText> texts) {
  background_.Start(
      [&profiles = profiles_, file = settings_.SettingsPath, texts = std::move(texts)] {
        static_cast<void>(profiles.WriteTexts(file, kSection, texts));
      });
  unwritten_ = false;
}

}  // namespace deck
